// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/Titles.h"
#include "settings/HelpText.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavrel;

namespace {

struct HelpFile
{
    const char* name;
    Language language;
};

const HelpFile helpFiles[] = {{"SFX_Eng1.txt", Language::English}, {"SFX_Fra1.txt", Language::French}};

// Without the CR LF at their ends, as the file has them.
std::vector<std::string> linesOf(const HelpFile& file)
{
    std::string bytes = readBytes(dataFolder() / file.name);
    std::vector<std::string> lines;
    for (std::size_t end = 0; (end = bytes.find("\r\n")) != std::string::npos;) {
        lines.push_back(bytes.substr(0, end));
        bytes.erase(0, end + 2);
    }
    EXPECT_EQ(bytes, "") << "behind the last CR LF";
    return lines;
}

} // namespace

TEST(HelpFiles, FitTheWindowLineByLine)
{
    for (const HelpFile& file : helpFiles) {
        SCOPED_TRACE(file.name);
        const std::vector<std::string> lines = linesOf(file);
        EXPECT_GE(lines.size(), 250U);
        for (const std::string& line : lines) {
            EXPECT_LE(line.size(), 78U) << utf8FromCodePage(line);
            EXPECT_EQ(std::ranges::count_if(line, [](unsigned char c) { return c < ' '; }), 0) << line;
        }
    }
}

// Whoever sees a title finds it among the windows and messages: as a heading, or in quotes.
TEST(HelpFiles, EveryTitleLeadsToItsSection)
{
    for (const HelpFile& file : helpFiles) {
        SCOPED_TRACE(file.name);
        const std::string text = readBytes(dataFolder() / file.name);
        const std::vector<HelpSection> sections = helpSections(text);
        for (const BilingualText& title : Title::all()) {
            if (title == titles::mainWindow) {
                continue; // its own chapter
            }
            for (const HelpAbout about : {HelpAbout::Window, HelpAbout::Message}) {
                const std::string wanted = codePageFromUtf8(title.in(file.language)).bytes;
                EXPECT_NE(findHelpSection(text, sections, wanted, about), nullptr) << title.in(file.language);
            }
        }
    }
}
