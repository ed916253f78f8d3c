// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Folder.h"
#include "demo/DemoFolder.h"
#include "references/ReferenceRegister.h"
#include "settings/Places.h"
#include "settings/ProgramSettings.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

TEST(DemoFolder, LooksLikeAUsersFolder)
{
    const DemoFolders demo;
    for (const char* name : {"winroomedit.exe", "script/script.txt", "graphics/wads/oasis.wad"}) {
        EXPECT_TRUE(fs::is_regular_file(demo.levelEditor / name)) << name;
    }
    const Result<LoadedRegister> references = loadRegister(demo.program);
    ASSERT_TRUE(references);
    EXPECT_TRUE(references->notices.empty());
    const std::vector<WadReference>& all = references->references.all();
    ASSERT_EQ(all.size(), 44U);
    for (std::size_t i = references->references.userBegin(); i < all.size(); ++i) {
        for (const char* ending : {".wad", ".was", ".sam"}) {
            EXPECT_TRUE(findFile(demo.levelEditor / "graphics" / "wads", all[i].wadName + ending))
                << all[i].wadName;
        }
    }
    const LoadedSettings settings = LoadSettings(demo.program);
    EXPECT_FALSE(settings.damage);
    for (const bool shown : settings.settings.panels) {
        EXPECT_TRUE(shown);
    }
    EXPECT_EQ(derivePlaces(demo.program, settings.settings.LevelEditorFolder).creator, demo.creator);
}

} // namespace
