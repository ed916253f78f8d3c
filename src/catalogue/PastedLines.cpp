// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/PastedLines.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FilledText.h"
#include "base/TextFile.h"
#include "base/Titles.h"
#include "catalogue/LineWords.h"

#include <algorithm>
#include <map>

namespace tavrel {

namespace {

struct NumberedLine
{
    std::optional<std::size_t> number;
    std::string_view text;
};

// "12: NAME:..." has a number in front of its line.
NumberedLine splitNumber(std::string_view line)
{
    constexpr std::size_t mostDigits = 9;
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t end = std::min(line.find_first_not_of("0123456789", start), line.size());
    const std::string_view behind = line.substr(end);
    if (end == start || end - start > mostDigits || !behind.starts_with(": ") ||
        behind.find(':', 1) == std::string_view::npos) {
        return {std::nullopt, line};
    }
    return {std::stoul(std::string(line.substr(start, end - start))),
            behind.substr(std::min(behind.find_first_not_of(' ', 1), behind.size()))};
}

std::string_view nameOf(std::string_view line)
{
    return line.substr(0, line.find(':'));
}

std::optional<std::size_t> soundNamed(const SoundCatalogue& catalogue, std::string_view name,
                                      std::span<const std::size_t> selected)
{
    std::vector<std::size_t> named;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        if (nameOf(catalogue.currentLine(k)) == name) {
            named.push_back(k);
        }
    }
    if (named.size() > 1) {
        std::erase_if(named,
                      [&](std::size_t number) { return !std::ranges::binary_search(selected, number); });
    }
    return named.size() == 1 ? std::optional(named.front()) : std::nullopt;
}

} // namespace

PastedLines findPastedLines(const SoundCatalogue& catalogue, std::string_view text,
                            std::span<const std::size_t> selected)
{
    PastedLines result;
    std::map<std::size_t, std::string> bySound; // the last line for a sound counts
    const TextFile file{{}, std::string(text), false, {}};
    for (const std::string_view pasted : file.lines()) {
        const auto [number, line] = splitNumber(pasted);
        if (line.find(':') == std::string_view::npos) {
            continue; // a comment, a blank line
        }
        const std::optional<std::size_t> sound =
            number && *number < catalogue.size() ? number : soundNamed(catalogue, nameOf(line), selected);
        if (sound) {
            bySound[*sound] = line;
        } else {
            result.homeless.emplace_back(nameOf(line));
        }
    }
    for (auto& [sound, line] : bySound) {
        result.lines.push_back({sound, std::move(line)});
    }
    return result;
}

namespace {

// The words of a line, without the columns that would push the last ones out of sight.
std::string shownWords(std::string_view line)
{
    std::string words(nameOf(line));
    words += ":";
    for (const std::string_view word : wordsBehindName(line)) {
        words += " " + std::string(word);
    }
    return shownText(words);
}

BilingualText preview(const SoundCatalogue& catalogue, const PastedLines& pasted)
{
    constexpr std::size_t mostShown = 100;
    BilingualText text;
    for (std::size_t i = 0; i < std::min(pasted.lines.size(), mostShown); ++i) {
        const auto& [number, line] = pasted.lines[i];
        const std::string before = shownWords(catalogue.currentLine(number));
        const std::string after = shownWords(line);
        text += (i == 0 ? "" : "\n") + std::to_string(number) + "\n- " + before + "\n";
        text += before == after ? BilingualText("  only blanks and TABs differ",
                                                "  seuls des blancs et des TAB diffèrent")
                                : BilingualText::same("+ " + after);
    }
    return text;
}

BilingualText homelessText(const std::vector<std::string>& names)
{
    constexpr std::size_t mostShown = 20;
    if (names.empty()) {
        return {};
    }
    BilingualText text("No sound, or more than one, has the name: ",
                       "Aucun son, ou plus d'un, ne porte le nom : ");
    for (std::size_t i = 0; i < std::min(names.size(), mostShown); ++i) {
        text += (i == 0 ? "[" : " [") + shownText(names[i]) + "]";
    }
    return text;
}

} // namespace

std::optional<SoundsChanged> pasteLines(SoundCatalogue& catalogue, std::string_view text,
                                        std::span<const std::size_t> selected, Dialogs& dialogs)
{
    PastedLines pasted = findPastedLines(catalogue, text, selected);
    std::erase_if(pasted.lines, [&](const SoundCatalogue::LineChange& line) {
        return catalogue.currentLine(line.number) == line.text;
    });
    const BilingualText homeless = homelessText(pasted.homeless);
    if (pasted.lines.empty()) {
        const BilingualText nothing("The clipboard contains no line that would change a sound.",
                                    "Le presse-papiers ne contient aucune ligne qui changerait un son.");
        dialogs.show({MessageIcon::Exclamation, titles::lines,
                      homeless.empty() ? nothing : nothing + BilingualText::same("\n") + homeless});
        return std::nullopt;
    }
    Question question{titles::lines,
                      filled({"Paste {} onto the sounds of the same number or name?",
                              "Coller {} sur les sons du même numéro ou du même nom ?"},
                             {countedLines(pasted.lines.size())}),
                      Buttons::YesNo};
    if (!homeless.empty()) {
        question.text = homeless + BilingualText::same("\n") + question.text;
    }
    question.details = preview(catalogue, pasted);
    question.showsDetails = true;
    if (dialogs.ask(question) != Answer::Yes) {
        return std::nullopt;
    }
    std::vector<std::size_t> numbers;
    std::ranges::transform(pasted.lines, std::back_inserter(numbers), &SoundCatalogue::LineChange::number);
    const auto rewrite = [&](std::size_t number) -> Result<std::string> {
        return std::ranges::find(pasted.lines, number, &SoundCatalogue::LineChange::number)->text;
    };
    SoundsChanged changed = changeSounds(
        catalogue, numbers,
        {stepLabel({"Paste lines", "Coller des lignes"}, catalogue, numbers), titles::lines, rewrite},
        dialogs);
    tellRefused(changed, titles::lines, dialogs);
    return changed;
}

} // namespace tavrel
