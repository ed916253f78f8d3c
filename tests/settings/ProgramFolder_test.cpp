// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ProgramFolder.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

class ProgramFolder : public testing::Test
{
protected:
    ProgramFolder() { fs::create_directory(places.ownFolder); }

    TemporaryFolder root;
    ProgramPlaces places{root / "bin", root / "share" / "tavrel", root / "home" / "tavrel"};
};

TEST_F(ProgramFolder, IsTheProgramsOwnWhereItMayWrite)
{
    EXPECT_EQ(usualProgramFolder(places), places.ownFolder);
    EXPECT_FALSE(fs::exists(places.users));
}

TEST_F(ProgramFolder, IsTheUsersOnceInstalled)
{
    writeBytes(places.installed / "Tavrel.tod", "new");
    writeBytes(places.installed / "Tavrel.tow", "new");
    writeBytes(places.installed / "SFX_Eng1.txt", "help");
    EXPECT_EQ(usualProgramFolder(places), places.users);
    EXPECT_EQ(namesIn(places.users), (std::vector<std::string>{"SFX_Eng1.txt", "Tavrel.tod", "Tavrel.tow"}));

    writeBytes(places.users / "Tavrel.tod", "the user's");
    writeBytes(places.users / "SFX_Eng1.txt", "help of an earlier version");
    fs::remove(places.users / "Tavrel.tow");
    writeBytes(places.users / "TAVREL.TOW", "");
    EXPECT_EQ(usualProgramFolder(places), places.users);
    EXPECT_EQ(namesIn(places.users), (std::vector<std::string>{"SFX_Eng1.txt", "TAVREL.TOW", "Tavrel.tod"}));
    EXPECT_EQ(readBytes(places.users / "Tavrel.tod"), "the user's");
    EXPECT_EQ(readBytes(places.users / "SFX_Eng1.txt"), "help");

    writeBytes(root / "file", "");
    places.users = root / "file" / "tavrel"; // which cannot be made
    EXPECT_EQ(usualProgramFolder(places), places.ownFolder);
}

TEST_F(ProgramFolder, IsTheUsersWhereTheProgramMayNotWrite)
{
    places.ownFolder = root / "missing"; // as good as forbidden, and so for an administrator
    EXPECT_EQ(usualProgramFolder(places), places.users);
    EXPECT_TRUE(fs::is_directory(places.users));
    places.users.clear();
    EXPECT_EQ(usualProgramFolder(places), places.ownFolder);
}

} // namespace
