// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LostColon.h"

#include "catalogue/LineWords.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::string_view separators = " \t";

} // namespace

InstalledNames installedNames(const SoundCatalogue& catalogue)
{
    InstalledNames names;
    for (std::size_t k = 0; k < std::min(catalogue.size(), DoublesStatus::size); ++k) {
        const std::string_view line = catalogue.originalLine(k);
        names.insert(line.substr(0, line.find(':')));
    }
    return names;
}

bool hasCommentMark(std::string_view text)
{
    return text.starts_with(';') || text.starts_with("//");
}

bool hasWordOfSound(std::string_view line)
{
    return std::ranges::any_of(wordsBehindName(line), [](std::string_view word) {
        const auto value = readValueWord(word);
        return word.starts_with('#') || (value && value->inCapitals && !value->digits.empty());
    });
}

std::string_view nameWithoutColon(std::string_view line, const InstalledNames& installed)
{
    const std::string_view name = line.substr(0, line.find_first_of(separators));
    const std::string_view rest = line.substr(name.size());
    const bool looksLikeName = name.size() > 1 && !hasCommentMark(name) &&
                               std::ranges::none_of(name, [](char c) { return c >= 'a' && c <= 'z'; });
    const bool hasColumns = rest.starts_with('\t') || rest.starts_with("  ");
    if (!(looksLikeName && hasColumns) && !installed.contains(name)) {
        return {};
    }
    return hasWordOfSound(rest) ? name : std::string_view();
}

} // namespace tavrel
