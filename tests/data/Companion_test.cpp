// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const std::vector<std::string> workingFiles = {"Tavrel.tod", "Tavrel.too", "Tavrel.tos", "Tavrel.tow"};

bool unpackInto(const fs::path& folder, const fs::path& output)
{
    const std::string command = "\"" TAVREL_COMPANION "\" --program-folder \"" + folder.string() + "\" >\"" +
                                output.string() + "\" 2>&1";
    return std::system(command.c_str()) == 0;
}

TEST(Companion, UnpacksTheWorkingFiles)
{
    const TemporaryFolder root;
    const fs::path folder = root / "program \u00E9";
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
    EXPECT_EQ(namesIn(folder),
              (std::vector<std::string>{"TAVREL.TOD", "Tavrel.too", "Tavrel.tos", "Tavrel.tow"}));
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

TEST(Companion, SaysWhenItCannot)
{
    const TemporaryFolder root;
    EXPECT_FALSE(unpackInto(root / "missing", root / "said"));
    EXPECT_NE(readBytes(root / "said").find("Tavrel.tos"), std::string::npos);
    EXPECT_NE(std::system(
                  ("\"" TAVREL_COMPANION "\" --nonsense >\"" + (root / "said").string() + "\" 2>&1").c_str()),
              0);
}

} // namespace
