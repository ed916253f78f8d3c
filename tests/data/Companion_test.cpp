// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const std::vector<std::string> workingFiles = {"SFX_Eng1.txt", "SFX_Fra1.txt", "Tavrel.tod",
                                               "Tavrel.too",   "Tavrel.tos",   "Tavrel.tow"};

bool unpackInto(const fs::path& folder, const fs::path& output)
{
    return runProgram(TAVREL_COMPANION, {"--program-folder", folder}, output) == 0;
}

TEST(Companion, UnpacksTheWorkingFiles)
{
    const TemporaryFolder root;
    const fs::path folder = root / u8"program \u00E9 \u0416";
    fs::create_directory(folder);
    EXPECT_TRUE(unpackInto(folder, root / "said"));
    EXPECT_EQ(namesIn(folder), workingFiles);
    for (const std::string& name : workingFiles) {
        EXPECT_EQ(readBytes(folder / name), readBytes(dataFolder() / name)) << name;
    }
}

TEST(Companion, LeavesFilesThatAreThere)
{
    const TemporaryFolder root;
    const fs::path folder = root / "program";
    writeBytes(folder / "TAVREL.TOD", "the user's own");
    writeBytes(folder / "Tavrel.tow", "");
    EXPECT_TRUE(unpackInto(folder, root / "said"));
    EXPECT_EQ(namesIn(folder), (std::vector<std::string>{"SFX_Eng1.txt", "SFX_Fra1.txt", "TAVREL.TOD",
                                                         "Tavrel.too", "Tavrel.tos", "Tavrel.tow"}));
    EXPECT_EQ(readBytes(folder / "TAVREL.TOD"), "the user's own");
    EXPECT_EQ(readBytes(folder / "Tavrel.tow"), "");
    EXPECT_EQ(readBytes(folder / "Tavrel.tos"), readBytes(dataFolder() / "Tavrel.tos"));
}

#ifndef _WIN32
// However it is started, without the option it unpacks into its own folder.
TEST(Companion, KnowsItsOwnFolder)
{
    for (const std::string start : {"./program/Tavrel_Files", "PATH=\"$PWD/program:$PATH\" Tavrel_Files"}) {
        SCOPED_TRACE(start);
        const TemporaryFolder root;
        fs::create_directory(root / "program");
        fs::copy_file(TAVREL_COMPANION, root / "program" / "Tavrel_Files");
        EXPECT_EQ(std::system(("cd '" + root.path().string() + "' && " + start + " >said 2>&1").c_str()), 0);
        EXPECT_EQ(namesIn(root / "program").size(), 1 + workingFiles.size());
        EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"program", "said"}));
    }
}
#endif

TEST(Companion, TakesCopiesFromALevelEditor)
{
    const DemoFolders demo;
    const fs::path program = demo.root / "fresh";
    fs::create_directory(program);
    const auto take = [&demo, &program](const fs::path& editor) {
        return runProgram(TAVREL_COMPANION, {"--from", editor, "--program-folder", program},
                          demo.root / "said");
    };
    std::string sounds = readBytes(demo.sounds);
    sounds += "; a remark\r\n";
    writeBytes(demo.sounds, sounds);
    EXPECT_NE(take(demo.levelEditor), 0) << "the demo has no stock samples";
    EXPECT_EQ(readBytes(program / "Tavrel.tos"), sounds);
    EXPECT_EQ(namesIn(program),
              (std::vector<std::string>{"SFX_Eng1.txt", "SFX_Fra1.txt", "Tavrel.tod", "Tavrel.too",
                                        "Tavrel.tos", "Tavrel.tow", "Tavrel_copy1.tos"}));
    const std::string said = readBytes(demo.root / "said");
    for (const char* part : {"[Tavrel.tos] is taken from", "[Tavrel.tos] est pris dans",
                             "[Samples_ORIG] is not filled", "[SFX_ORIG] n'est pas rempli"}) {
        EXPECT_NE(said.find(part), std::string::npos) << part;
    }
}

TEST(Companion, SaysWhenItCannot)
{
    const TemporaryFolder root;
    EXPECT_FALSE(unpackInto(root / "missing", root / "said"));
    EXPECT_NE(readBytes(root / "said").find("Tavrel.tos"), std::string::npos);
    EXPECT_NE(runProgram(TAVREL_COMPANION, {"--nonsense"}, root / "said"), 0);
}

} // namespace
