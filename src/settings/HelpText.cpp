// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/HelpText.h"

#include "base/Folder.h"
#include "base/TextFile.h"

namespace tavrel {

namespace {

constexpr std::string_view formerHelpFile = "Tavrel1.txt";

void removeFormerHelp(const std::filesystem::path& programFolder)
{
    if (const auto file = findFile(programFolder, formerHelpFile)) {
        std::error_code ignored;
        std::filesystem::remove(*file, ignored);
    }
}

bool isRule(std::string_view line)
{
    return line.starts_with("====");
}

} // namespace

std::vector<HelpSection> helpSections(std::string_view text)
{
    const TextFile file{{}, std::string(text), false, {}};
    const std::vector<std::string_view> lines = file.lines();
    std::vector<HelpSection> sections;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        const std::string_view line = lines[i];
        const bool isChapter = isRule(lines[i - 1]) && isRule(lines[i + 1]);
        const bool isAtMargin = !line.empty() && line.front() != ' ' && !isRule(line);
        const bool isSection = isAtMargin && lines[i - 1].empty() && lines[i + 1].starts_with("   ");
        const bool isNumbered = !line.empty() && line.front() >= '0' && line.front() <= '9';
        if ((isChapter && isNumbered) || (isSection && !sections.empty())) {
            sections.push_back({std::string(line), i, isChapter});
        }
    }
    return sections;
}

Result<std::string> loadHelp(const std::filesystem::path& programFolder, Language language)
{
    removeFormerHelp(programFolder);
    const Result<TextFile> file =
        readTextFile(programFolder, language == Language::French ? "SFX_Fra1.txt" : "SFX_Eng1.txt");
    if (!file) {
        return file.failure();
    }
    std::string text;
    for (const std::string_view line : file->lines()) {
        text.append(line).append("\r\n");
    }
    return text;
}

} // namespace tavrel
