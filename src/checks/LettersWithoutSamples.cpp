// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::lettersWithoutSamples(CheckRun& run)
{
    run.forEachSound([&run](LineReading& reading) {
        if (reading.letters.empty() || !reading.samples.empty()) {
            return;
        }
        for (const std::string& letter : reading.letters) {
            reading.named.push_back("#" + letter);
        }
        Finding& finding =
            run.addForSound("letters-no-samples", Severity::Error, reading,
                            BilingualText::same("#" + utf8FromCodePage(reading.letters.front())) +
                                BilingualText(reading.letters.size() == 1 ? ": " : " ...: ",
                                              reading.letters.size() == 1 ? " : " : " ... : ") +
                                BilingualText("a level takes this sound, but it has no samples.",
                                              "un niveau prend ce son, mais il n'a pas de samples."));
        run.offerRewrite(finding, {"Take the letters off", "Enlever les lettres"},
                         [](const std::string& line) {
                             return withoutLetters(line, [](std::string_view) { return true; });
                         });
    });
}

} // namespace tavrel
