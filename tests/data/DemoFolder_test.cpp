// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Folder.h"
#include "catalogue/SoundLine.h"
#include "demo/DemoFolder.h"
#include "references/ReferenceRegister.h"
#include "settings/Places.h"
#include "settings/ProgramSettings.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

std::string little(std::uint32_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i));
    }
    return bytes;
}

// The 44 bytes in front of the sound of a file with this format.
std::string header(std::size_t fileSize, std::uint32_t channels, std::uint32_t rate, std::uint32_t bits)
{
    const std::uint32_t frame = channels * bits / 8;
    const auto size = static_cast<std::uint32_t>(fileSize);
    return "RIFF" + little(size - 8, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) + little(channels, 2) +
           little(rate, 4) + little(rate * frame, 4) + little(frame, 2) + little(bits, 2) + "data" +
           little(size - 44, 4);
}

bool has(const std::string& wav, std::uint32_t channels, std::uint32_t rate, std::uint32_t bits)
{
    return wav.size() > 44 && wav.substr(0, 44) == header(wav.size(), channels, rate, bits) &&
           (wav.size() - 44) % (channels * bits / 8) == 0;
}

class DemoSampleFiles : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        root = std::make_unique<TemporaryFolder>();
        makeLevelEditorFolder(root->path(), dataFolder(), DemoSamples::All);
    }
    static void TearDownTestSuite() { root.reset(); }

    static std::string sample(const std::string& name)
    {
        return readBytes(*root / "sound" / "Samples" / name);
    }

    static inline std::unique_ptr<TemporaryFolder> root;
};

TEST_F(DemoSampleFiles, AreValidAndDistinctForEveryStockName)
{
    std::set<std::string> names;
    std::set<std::string> contents;
    for (const std::string& line : stockLines()) {
        for (const std::string& name : ParseSoundLine(line).Samples) {
            if (names.insert(name).second) {
                const std::string wav = sample(name + ".wav");
                EXPECT_TRUE(has(wav, 1, 22'050, 16)) << name;
                EXPECT_TRUE(contents.insert(wav).second) << name << " sounds like another one";
            }
        }
    }
    EXPECT_GT(names.size(), 300U);
    EXPECT_EQ(namesIn(*root / "sound" / "Samples").size(), names.size() + 5);
}

TEST_F(DemoSampleFiles, AreWrongInTheirOwnWay)
{
    EXPECT_TRUE(has(sample("demo_stereo.wav"), 2, 22'050, 16));
    EXPECT_TRUE(has(sample("demo_44100.wav"), 1, 44'100, 16));
    EXPECT_TRUE(has(sample("demo_8_bits.wav"), 1, 22'050, 8));
    EXPECT_LT(sample("demo_truncated.wav").size(), 44U);
    const std::string list = sample("demo_list_chunk.wav");
    EXPECT_EQ(list.substr(36, 4), "LIST");
    const auto listSize = static_cast<unsigned char>(list[40]);
    EXPECT_EQ(list.substr(44U + listSize, 4), "data");
    EXPECT_EQ(list.substr(4, 4), little(static_cast<std::uint32_t>(list.size() - 8), 4));
}

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
