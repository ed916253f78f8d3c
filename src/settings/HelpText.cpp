// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/HelpText.h"

#include "base/Folder.h"
#include "base/TextFile.h"

#include <algorithm>
#include <span>

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

bool isAtMargin(std::string_view line)
{
    return !line.empty() && line.front() != ' ' && !isRule(line);
}

// Whether a heading names the title.
bool names(std::string_view heading, std::string_view title)
{
    while (!heading.empty()) {
        const std::size_t end = std::min(heading.find(", "), heading.size());
        const std::string_view name = heading.substr(0, end);
        if (name == title || name.substr(0, name.rfind(" (")) == title ||
            (name.ends_with('-') && title.starts_with(name))) {
            return true;
        }
        heading.remove_prefix(std::min(end + 2, heading.size()));
    }
    return false;
}

// Whether the lines have the title in the quotes of either language. It may run over the end of a line.
bool quotes(std::span<const std::string_view> lines, std::string_view title)
{
    std::string text;
    for (std::string_view line : lines) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        text.append(line).append(" ");
    }
    const std::string wanted(title);
    return text.find('"' + wanted + '"') != std::string::npos ||
           text.find("\xAB " + wanted + " \xBB") != std::string::npos;
}

using Sections = std::span<const HelpSection>;

// Without its own heading.
Sections chapter(Sections sections, std::string_view number)
{
    const auto heading = std::ranges::find_if(sections, [number](const auto& section) {
        return section.isChapter && section.title.starts_with(number);
    });
    const auto first = heading == sections.end() ? heading : std::next(heading);
    const auto last =
        std::find_if(first, sections.end(), [](const auto& section) { return section.isChapter; });
    return {first, last};
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
        const bool isNumbered = !line.empty() && line.front() >= '0' && line.front() <= '9';
        const bool begins = isAtMargin(line) && lines[i - 1].empty();
        const bool goesOn = begins && isAtMargin(lines[i + 1]) && i + 2 < lines.size();
        const bool isSection = begins && lines[goesOn ? i + 2 : i + 1].starts_with("   ");
        if ((isChapter && isNumbered) || (isSection && !sections.empty())) {
            std::string title(line);
            if (goesOn) {
                title.append(" ").append(lines[i + 1]);
            }
            sections.push_back({title, i, isChapter});
        }
    }
    return sections;
}

const HelpSection* findHelpSection(std::string_view text, const std::vector<HelpSection>& sections,
                                   std::string_view title, HelpAbout about)
{
    const auto isNamed = [title](const HelpSection& section) {
        return section.isChapter && section.title == title;
    };
    if (const auto named = std::ranges::find_if(sections, isNamed); named != sections.end()) {
        return &*named;
    }
    Sections places[] = {chapter(sections, "4. "), chapter(sections, "5. ")};
    if (about == HelpAbout::Message) {
        std::swap(places[0], places[1]);
    }
    for (const Sections& place : places) {
        for (const HelpSection& section : place) {
            if (names(section.title, title)) {
                return &section;
            }
        }
    }
    const TextFile file{{}, std::string(text), false, {}};
    const std::vector<std::string_view> lines = file.lines();
    for (const Sections& place : places) {
        for (const HelpSection& section : place) {
            const auto first = lines.begin() + static_cast<std::ptrdiff_t>(section.line);
            if (quotes({first, std::find(first, lines.end(), std::string_view())}, title)) {
                return &section;
            }
        }
    }
    return nullptr;
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
