// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterList.h"

#include "base/CodePage.h"
#include "references/ShippedTexts.h"

namespace tavrel {

namespace {

std::string readableName(std::string_view letter, const ReferenceRegister& references,
                         const CurrentWad& current, Language language)
{
    if (const WadReference* reference = references.findLetter(letter)) {
        return codePageFromUtf8(shippedText(reference->title).in(language)).bytes;
    }
    return !letter.empty() && letter == current.letter ? current.wadName : "**NO REF**";
}

} // namespace

std::vector<std::string> lettersOf(const SoundLine& line)
{
    std::vector<std::string> found;
    const std::string_view letters = line.Letters;
    for (std::size_t hash = letters.find('#'); hash != std::string_view::npos;
         hash = letters.find('#', hash + 1)) {
        const std::string_view rest = letters.substr(hash + 1);
        found.emplace_back(rest.substr(0, rest.find_first_of("# ")));
    }
    return found;
}

std::vector<std::string> letterEntries(const SoundLine& line, const ReferenceRegister& references,
                                       const CurrentWad& current, Language language,
                                       std::string_view justAdded)
{
    std::vector<std::string> entries;
    for (const std::string& letter : lettersOf(line)) {
        const bool showsWad = !letter.empty() && letter == justAdded && letter == current.letter;
        entries.push_back(std::string("#").append(letter).append(" - ").append(
            showsWad ? current.wadName : readableName(letter, references, current, language)));
    }
    return entries;
}

} // namespace tavrel
