// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::protectedChanged(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        const bool isReserved =
            std::ranges::find(emptyAndUnsureSounds, reading.sound) != emptyAndUnsureSounds.end();
        const std::string& installed = run.catalogue().originalLine(reading.sound);
        // In a shifted run it is another sound that stands here.
        if (!isReserved || run.alignment().isShifted(reading.sound) ||
            haveSameWords(reading.line, installed)) {
            return;
        }
        Finding& finding = run.addForSound(
            "protected-changed", Severity::Warning, reading,
            {"The level editor keeps this line for itself, and it differs from the installed one.",
             "L'éditeur de niveaux se réserve cette ligne, et elle diffère de celle d'origine."});
        finding.fix =
            Fix{{"Put the installed line back", "Remettre la ligne d'origine"},
                [sound = reading.sound, installed](LineDraft& draft) { draft.set(sound, installed); }};
    });
}

} // namespace tavrel
