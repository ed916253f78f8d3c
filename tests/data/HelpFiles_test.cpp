// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/Titles.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

using namespace tavrel;

namespace {

struct HelpFile
{
    const char* name;
    Language language;
    std::string openingQuote;
    std::string closingQuote;
};

const HelpFile helpFiles[] = {{"SFX_Eng1.txt", Language::English, "\"", "\""},
                              {"SFX_Fra1.txt", Language::French, "« ", " »"}};

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

std::string trimmed(std::string text)
{
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// Headings stand at the left margin; several titles in one are separated by commas.
void addHeadings(std::set<std::string>& names, const std::vector<std::string>& lines)
{
    std::string heading;
    for (const std::string& line : lines) {
        if (!line.empty() && line.front() != ' ') {
            heading += (heading.empty() ? "" : " ") + utf8FromCodePage(line);
            continue;
        }
        std::istringstream titles(heading);
        for (std::string title; std::getline(titles, title, ',');) {
            names.insert(trimmed(title));
            names.insert(trimmed(title.substr(0, title.rfind(" (")))); // before a remark
        }
        heading.clear();
    }
}

void addQuoted(std::set<std::string>& names, const std::vector<std::string>& lines, const HelpFile& file)
{
    std::string text;
    for (const std::string& line : lines) {
        text += trimmed(utf8FromCodePage(line)) + " ";
    }
    std::size_t end = 0;
    for (std::size_t start = 0; (start = text.find(file.openingQuote, end)) != std::string::npos;) {
        start += file.openingQuote.size();
        end = text.find(file.closingQuote, start);
        ASSERT_NE(end, std::string::npos) << "no end of " << text.substr(start, 40);
        names.insert(text.substr(start, end - start));
        end += file.closingQuote.size();
    }
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

// Whoever sees a title finds it in the help: as a heading, or in quotes.
TEST(HelpFiles, NameEveryTitle)
{
    for (const HelpFile& file : helpFiles) {
        SCOPED_TRACE(file.name);
        const std::vector<std::string> lines = linesOf(file);
        std::set<std::string> names;
        addHeadings(names, lines);
        addQuoted(names, lines, file);
        for (const BilingualText* const title : titles::all()) {
            EXPECT_TRUE(names.contains(trimmed(title->in(file.language)))) << title->in(file.language);
        }
    }
}
