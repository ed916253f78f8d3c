// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::nameTwice(CheckRun& run)
{
    const SoundCatalogue& catalogue = run.catalogue();
    std::unordered_map<std::string_view, std::size_t> installed;
    for (std::size_t k = 0; k < installedCount(catalogue); ++k) {
        ++installed[nameOf(catalogue.originalLine(k))];
    }
    std::unordered_map<std::string_view, std::vector<std::size_t>> present;
    run.forEachSound(
        [&present](const LineReading& reading) { present[nameOf(reading.line)].push_back(reading.sound); });
    run.forEachSound([&](const LineReading& reading) {
        const std::string_view name = nameOf(reading.line);
        const std::vector<std::size_t>& sounds = present[name];
        const auto known = installed.find(name);
        if (sounds.size() < 2 || sounds.front() != reading.sound || known == installed.end() ||
            known->second != 1) {
            return;
        }
        std::string numbers;
        constexpr std::size_t mostNumbers = 10;
        for (std::size_t i = 0; i < std::min(sounds.size(), mostNumbers); ++i) {
            numbers += (i == 0 ? "" : ", ") + std::to_string(sounds[i]);
        }
        numbers += sounds.size() > mostNumbers ? " ..." : "";
        const std::string shown = bracketed(name);
        Finding& finding = run.add("name-twice", Severity::Warning,
                                   {"Several sounds are named " + shown + ": " + numbers + ".",
                                    "Plusieurs sons s'appellent " + shown + " : " + numbers + "."});
        finding.sounds = sounds;
    });
}

} // namespace tavrel
