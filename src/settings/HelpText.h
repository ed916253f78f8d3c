// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// The help of a language, code page bytes, each line ended by CR LF. Also removes the help file of an earlier
// release, where it still lies.
Result<std::string> loadHelp(const std::filesystem::path& programFolder, Language language);

// A heading of the help: a chapter between two lines of "=", or a line at the margin with indented text
// below.
struct HelpSection
{
    std::string title; // code page bytes, as it stands there
    std::size_t line;  // from 0
    bool isChapter;
};
// Without the list of contents that the text itself begins with.
std::vector<HelpSection> helpSections(std::string_view text);

enum class HelpAbout { Window, Message };
// The chapter of that name, or what the chapters of windows and messages say about a title: the section with
// the title in its heading, else the one that has it in quotes. A heading may name several titles ("Add, Add
// letter"), explain one in brackets, or end in "-" where the rest of the title is not always the same. None
// is null.
const HelpSection* findHelpSection(std::string_view text, const std::vector<HelpSection>& sections,
                                   std::string_view title, HelpAbout about);

} // namespace tavrel
