// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

#include <cstdlib>

namespace tavrel {

namespace {

constexpr std::size_t mostNames = 3;

// The names of lines, each as `lineOf` gives it.
template <typename LineOf>
std::string namesOf(std::size_t count, LineOf lineOf)
{
    std::string names;
    for (std::size_t i = 0; i < std::min(count, mostNames); ++i) {
        names += (i == 0 ? "" : " ") + bracketed(nameOf(lineOf(i)));
    }
    return names + (count > mostNames ? " ..." : "");
}

BilingualText causeOf(const ShiftedRun& run, const SoundCatalogue& catalogue)
{
    const std::ptrdiff_t change = run.late - run.before;
    const auto count = static_cast<std::size_t>(std::abs(change));
    if (change > 0) {
        const std::string added =
            namesOf(std::min(count, run.first), [&](std::size_t i) -> const std::string& {
                return catalogue.currentLine(run.first - std::min(count, run.first) + i);
            });
        return {"Probably added just before: " + added + ".",
                "Sans doute ajouté juste avant : " + added + "."};
    }
    const auto place = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(run.first) - run.before);
    const std::size_t known = std::min(count, catalogue.size() - std::min(place, catalogue.size()));
    const std::string missing = namesOf(
        known, [&](std::size_t i) -> const std::string& { return catalogue.originalLine(place + i); });
    return {"Probably missing just before, or without a colon: " + missing + ".",
            "Sans doute manquant juste avant, ou sans deux-points : " + missing + "."};
}

BilingualText howFar(const ShiftedRun& run, const SoundCatalogue& catalogue)
{
    const std::string first = std::to_string(catalogue.lineInFile(run.first));
    const std::string last = std::to_string(catalogue.lineInFile(run.last));
    const bool isToTheEnd = run.last + 1 == catalogue.size();
    const std::string count = std::to_string(std::abs(run.late));
    const bool isOne = count == "1";
    const BilingualText lines(isOne ? " one line" : " " + count + " lines",
                              isOne ? " une ligne" : " " + count + " lignes");
    return BilingualText("From line " + first, "À partir de la ligne " + first) +
           (isToTheEnd ? BilingualText(" on", "")
                       : BilingualText(" to line " + last, " jusqu'à la ligne " + last)) +
           BilingualText(" every sound stands", ", chaque son se trouve") + lines +
           (run.late > 0 ? BilingualText(" late.", " trop bas.") : BilingualText(" early.", " trop haut."));
}

} // namespace

void checks::lineShifted(CheckRun& run)
{
    for (const ShiftedRun& shifted : run.alignment().runs()) {
        Finding& finding =
            run.add("line-shifted", Severity::Error,
                    howFar(shifted, run.catalogue()) + " " + causeOf(shifted, run.catalogue()));
        finding.sounds = {shifted.first};
    }
}

} // namespace tavrel
