// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::noLetter(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        const bool isReserved =
            std::ranges::find(emptyAndUnsureSounds, reading.sound) != emptyAndUnsureSounds.end();
        const std::optional<std::string_view> installed = run.alignment().installedLine(reading.sound);
        if (isReserved || reading.samples.empty() || !reading.letters.empty() || !installed ||
            haveSameWords(reading.line, *installed)) {
            return;
        }
        run.addForSound("no-letter", Severity::Warning, reading,
                        {"Changed, but without a letter: no level has it.",
                         "Modifié, mais sans lettre : aucun niveau ne le contient."});
    });
}

} // namespace tavrel
