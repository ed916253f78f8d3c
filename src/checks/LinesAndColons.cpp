// SPDX-License-Identifier: GPL-3.0-or-later
// A colon makes a line of sounds.txt a sound: one too many, or one too few.
#include "catalogue/LostColon.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

#include <set>

namespace tavrel {

namespace {

constexpr std::string_view separators = " \t";

std::string_view trimmed(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    return text.substr(0, text.find_last_not_of(separators) + 1);
}

// Among the lines without which the sounds behind them would stand where the installed catalogue has them.
bool pushesOthers(const Alignment& alignment, std::size_t sound)
{
    return std::ranges::any_of(alignment.runs(),
                               [place = static_cast<std::ptrdiff_t>(sound)](const ShiftedRun& run) {
                                   const auto first = static_cast<std::ptrdiff_t>(run.first);
                                   return first - (run.late - run.before) <= place && place < first;
                               });
}

bool isComment(const LineReading& reading, const InstalledNames& installed, const CheckRun& run)
{
    const std::string_view name = trimmed(nameOf(reading.line));
    if (hasCommentMark(name)) {
        return true;
    }
    const bool hasFile = std::ranges::any_of(
        reading.samples, [&run](const std::string& sample) { return run.findSample(sample).has_value(); });
    if (hasFile || hasWordOfSound(reading.line) || installed.contains(nameOf(reading.line))) {
        return false;
    }
    return name.empty() || name.find_first_of(separators) != std::string_view::npos ||
           pushesOthers(run.alignment(), reading.sound);
}

std::string withoutColons(std::string_view line)
{
    std::string text(line);
    std::erase(text, ':');
    return text;
}

std::string soundsFileNameOf(const CheckRun& run)
{
    return codePagePath(run.catalogue().file().path.filename()).bytes;
}

} // namespace

void checks::colonComment(CheckRun& run)
{
    const InstalledNames installed = installedNames(run.catalogue());
    for (LineReading& reading : run.lines()) {
        if (!isComment(reading, installed, run)) {
            continue;
        }
        reading.isComment = true;
        const std::size_t line = run.catalogue().lineInFile(reading.sound);
        const std::string number = std::to_string(line);
        Finding& finding = run.addForSound(
            "colon-comment", Severity::Error, reading,
            BilingualText("Line " + number + ", a comment, reads as a sound because of its colon: ",
                          "La ligne " + number +
                              ", un commentaire, est lue comme un son à cause de ses deux-points : ") +
                bracketed(reading.line.substr(0, 60)));
        finding.fix = Fix{{"Read it as a comment", "La lire comme un commentaire"},
                          LineReadOtherwise{line, withoutColons(reading.line)}};
    }
}

void checks::lostColon(CheckRun& run)
{
    if (run.subject().soundsFile == nullptr) {
        return;
    }
    const InstalledNames installed = installedNames(run.catalogue());
    std::set<std::size_t> linesOfSounds;
    for (std::size_t k = 0; k < run.catalogue().size(); ++k) {
        linesOfSounds.insert(linesOfSounds.end(), run.catalogue().lineInFile(k));
    }
    std::size_t number = 0;
    for (const std::string_view line : run.subject().soundsFile->lines()) {
        ++number;
        if (line.find(':') != std::string_view::npos || linesOfSounds.contains(number)) {
            continue;
        }
        const std::string_view name = nameWithoutColon(line, installed);
        if (name.empty()) {
            continue;
        }
        const std::string shown = std::to_string(number);
        Finding& finding =
            run.add("lost-colon", Severity::Error,
                    BilingualText("Line " + shown + " has lost its colon and is no longer a sound: ",
                                  "La ligne " + shown + " a perdu ses deux-points et n'est plus un son : ") +
                        bracketed(name));
        finding.file = soundsFileNameOf(run);
        finding.fix =
            Fix{{"Read it as a sound", "La lire comme un son"},
                LineReadOtherwise{number, std::string(name) + ":" + std::string(line.substr(name.size()))}};
    }
}

} // namespace tavrel
