// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ChangeSounds.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "catalogue/LineWords.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t mostNumbers = 20;

bool confirmComposing(const SoundCatalogue& catalogue, std::span<const SoundCatalogue::LineChange> changes,
                      bool single, Dialogs& dialogs)
{
    if (single) {
        return changes.empty() || confirmComposing(catalogue.currentLine(changes.front().number), dialogs);
    }
    std::vector<ComposedLine> lines;
    lines.reserve(changes.size());
    for (const SoundCatalogue::LineChange& change : changes) {
        lines.push_back({change.number, catalogue.currentLine(change.number)});
    }
    return confirmComposing(lines, dialogs);
}

} // namespace

BilingualText SoundsChanged::report() const
{
    BilingualText text =
        counted(changed, {"line changed", "ligne modifiée"}, {"lines changed", "lignes modifiées"});
    const BilingualText leftOut("; left out: ", " ; laissées : ");
    if (!isProtected.empty()) {
        text +=
            leftOut + numberRanges(isProtected, mostNumbers) + BilingualText(" (protected)", " (protégées)");
    }
    if (!refused.empty()) {
        std::vector<std::size_t> numbers;
        std::ranges::transform(refused, std::back_inserter(numbers), &LeftOut::number);
        text +=
            (isProtected.empty() ? leftOut : BilingualText::same(", ")) + numberRanges(numbers, mostNumbers);
    }
    return text;
}

SoundsChanged changeSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                           const SoundsChange& change, Dialogs& dialogs)
{
    SoundsChanged result;
    std::vector<SoundCatalogue::LineChange> changes;
    for (const std::size_t number : numbers) {
        if (catalogue.isProtected(number)) {
            result.isProtected.push_back(number);
            continue;
        }
        Result<std::string> line = change.rewrite(number);
        const std::optional<BilingualText> why =
            line ? SoundCatalogue::refusal(*line) : std::optional(line.failure().text);
        if (why) {
            result.refused.push_back({number, *why});
        } else if (*line != catalogue.currentLine(number)) {
            changes.push_back({number, std::move(*line)});
        }
    }
    if (change.composes && !confirmComposing(catalogue, changes, numbers.size() == 1, dialogs)) {
        SoundsChanged nothing;
        nothing.agreed = false;
        return nothing;
    }
    result.changed = changes.size();
    const Step step(catalogue, change.label);
    if (const Problem problem = catalogue.setCurrentLines(std::move(changes))) {
        result.changed = 0; // each was asked for a refusal above
        result.refused.push_back({numbers.front(), problem->text});
    }
    return result;
}

void tellRefused(const SoundsChanged& changed, const Title& title, Dialogs& dialogs)
{
    constexpr std::size_t mostShown = 200;
    if (changed.refused.empty()) {
        return;
    }
    if (changed.refused.size() == 1 && changed.changed == 0) {
        dialogs.show({MessageIcon::Exclamation, title, changed.refused.front().why});
        return;
    }
    BilingualText details;
    for (std::size_t i = 0; i < std::min(changed.refused.size(), mostShown); ++i) {
        const SoundsChanged::LeftOut& line = changed.refused[i];
        details += (i == 0 ? "" : "\n") + std::to_string(line.number) + ": ";
        details += line.why;
    }
    dialogs.show(
        {MessageIcon::Exclamation, title,
         changed.report() + ".\n" +
             counted(changed.refused.size(),
                     {"line cannot be changed in this way.", "ligne ne peut pas être modifiée ainsi."},
                     {"lines cannot be changed in this way.", "lignes ne peuvent pas être modifiées ainsi."}),
         details});
}

BilingualText listedSounds(const SoundCatalogue& catalogue, std::span<const std::size_t> numbers)
{
    std::string rows;
    for (const std::size_t number : numbers) {
        const std::string& line = catalogue.currentLine(number);
        rows += (rows.empty() ? "" : "\n") + std::to_string(number) + ": " +
                shownText(line.substr(0, line.find(':')));
    }
    return BilingualText::same(rows);
}

Result<std::string> composeEdited(const SoundLine& record)
{
    std::string line = ComposeSoundLine(record);
    if (ParseSoundLine(line).sampleCount() > record.sampleCount()) {
        return Failure{
            {"This line has no sample: its values or letters would be read as one. Add a sample first.",
             "Cette ligne n'a pas de sample : ses valeurs ou ses lettres seraient lues comme un sample. "
             "Ajoutez d'abord un sample."}};
    }
    return line;
}

SoundsChanged editSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                         const LineEdit& edit, const Title& title, Dialogs& dialogs)
{
    const auto changes = [&](std::size_t number) {
        const SoundLine before = ParseSoundLine(catalogue.currentLine(number));
        return !catalogue.isProtected(number) && edit.applied(before) != before;
    };
    const bool writesAll = std::ranges::none_of(numbers, changes);
    const auto rewrite = [&](std::size_t number) -> Result<std::string> {
        const std::string& line = catalogue.currentLine(number);
        const SoundLine before = ParseSoundLine(line);
        const SoundLine after = edit.applied(before);
        if (after == before && !writesAll) {
            return line;
        }
        return composeEdited(after);
    };
    return changeSounds(catalogue, numbers, {stepLabel(title, catalogue, numbers), title, rewrite, true},
                        dialogs);
}

BilingualText stepLabel(const BilingualText& command, const SoundCatalogue& catalogue,
                        std::span<const std::size_t> numbers)
{
    if (numbers.size() == 1) {
        return stepLabel(command, catalogue, numbers.front());
    }
    return command + ", " + countedSounds(numbers.size());
}

} // namespace tavrel
