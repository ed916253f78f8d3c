// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::flagsRN(CheckRun& run)
{
    run.forEachSound([&run](LineReading& reading) {
        const auto has = [&reading](std::string_view flag) {
            return std::ranges::any_of(reading.words, [flag](const LineWord& word) {
                return word.kind == WordKind::Flag && word.text == flag;
            });
        };
        if (!has("R") || !has("N")) {
            return;
        }
        reading.named.emplace_back("R");
        run.addForSound("flags-rn", Severity::Warning, reading,
                        {"R beside N: they share one place, and N wins.",
                         "R à côté de N : ils partagent une place, et N l'emporte."});
    });
}

} // namespace tavrel
