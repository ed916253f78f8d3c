// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RecoverCommands.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class RecoverTest : public testing::Test
{
protected:
    std::unique_ptr<Session> open()
    {
        auto session = std::make_unique<Session>(demo.program, LoadSettings(demo.program).settings);
        session->keepRecoverable();
        EXPECT_TRUE(session->load());
        return session;
    }
    // Two sounds change, one of them twice, and a third one there and back; then the program is gone.
    RecoveryContent crash()
    {
        {
            const std::unique_ptr<Session> session = open();
            for (const auto& [number, text] : {std::pair<std::size_t, const char*>{10, "TEN:\tx \t"},
                                               {10, "TEN:\ty \t"},
                                               {20, "TWENTY:\tx \t"}}) {
                EXPECT_FALSE(session->catalogue().setCurrentLine(number, text));
            }
            EXPECT_FALSE(session->catalogue().setCurrentLine(30, "THIRTY:"));
            EXPECT_FALSE(session->catalogue().setCurrentLine(30, session->catalogue().fileLine(30)));
        }
        const std::vector<FoundRecovery> found = abandonedRecoveries(demo.program);
        EXPECT_EQ(found.size(), 1U);
        return found.at(0).content;
    }

    DemoFolders demo;
};

TEST_F(RecoverTest, BringsBackWhatFitsTheFile)
{
    const RecoveryContent content = crash();
    EXPECT_EQ(netChanges(content.track).size(), 2U);
    const std::vector<std::string>& stock = stockLines();
    struct Case
    {
        const char* file;
        std::function<void(std::vector<std::string>&)> change;
        std::size_t lines;
        std::size_t missed;
        std::vector<std::size_t> places; // of the two recovered lines
        std::size_t steps;
    };
    const Case cases[] = {
        {"as it was", [](std::vector<std::string>&) {}, 2, 0, {10, 20}, 5},
        {"another line is another", [](auto& lines) { lines[5] = "FIVE:"; }, 2, 0, {10, 20}, 1},
        {"all stand one line later",
         [](auto& lines) { lines.insert(lines.begin(), "NEW:"); },
         2,
         0,
         {11, 21},
         1},
        {"one of them is another", [](auto& lines) { lines[10] = "OTHER:"; }, 1, 1, {20}, 1},
        {"one stands as it was left", [](auto& lines) { lines[10] = "TEN:\ty \t"; }, 2, 0, {10, 20}, 1},
        {"an ambiguous one",
         [](auto& lines) {
             lines.insert(lines.begin(), lines[20]);
             lines.push_back(lines[0]);
         },
         1,
         1,
         {11},
         1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        std::vector<std::string> lines = stock;
        c.change(lines);
        const bool isSame = lines == stock;
        if (!isSame) {
            writeBytes(demo.sounds, textOf(lines));
        }
        const std::unique_ptr<Session> session = open();
        EXPECT_FALSE(isApplied(content, *session));
        const Recovered recovered = recover(*session, content);
        EXPECT_EQ(recovered.lines, c.lines);
        EXPECT_EQ(recovered.missed.size(), c.missed);
        for (const std::size_t place : c.places) {
            const std::string& line = session->catalogue().currentLine(place);
            EXPECT_TRUE(line == "TEN:\ty \t" || line == "TWENTY:\tx \t") << place << ": " << line;
        }
        EXPECT_EQ(session->history().steps.size(), c.steps);
        EXPECT_TRUE(session->pending());
        while (session->canUndo()) {
            session->undo();
        }
        EXPECT_FALSE(session->catalogue().differsFromFile());
        session->close();
    }
}

TEST_F(RecoverTest, AnApplyThatOnlyTheLogMissedIsNoCrash)
{
    const RecoveryContent content = crash();
    std::vector<std::string> lines = stockLines();
    lines[10] = "TEN:\ty \t";
    lines[20] = "TWENTY:\tx \t";
    writeBytes(demo.sounds, textOf(lines));
    const std::unique_ptr<Session> session = open();
    EXPECT_TRUE(isApplied(content, *session));
    RecoveryContent elsewhere = content;
    elsewhere.header.sounds = "/other/Sounds.txt";
    EXPECT_FALSE(isOfThisFile(elsewhere.header, *session));
    EXPECT_FALSE(isApplied(elsewhere, *session));
}

} // namespace
