// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

void checks::samplesTooLong(CheckRun& run)
{
    run.forEachSound([&run](LineReading& reading) {
        std::size_t length = 0;
        for (const std::string& sample : reading.samples) {
            length += sample.size() + 1;
        }
        const std::size_t width = reading.record.SampleText.view().size();
        if (length <= width + 1) { // the last blank may fall off
            return;
        }
        const std::vector<std::string_view> kept =
            wordsBehindName(reading.record.SampleText.trimmed()); // the last one may be a piece
        reading.cut = reading.samples;
        reading.cut.insert(reading.cut.end(), kept.begin(), kept.end());
        const std::string taken = std::to_string(length - 1);
        const std::string room = std::to_string(width);
        run.addForSound("samples-too-long", Severity::Error, reading,
                        {"The sample names take " + taken + " characters; only " + room +
                             " are kept when the line is rewritten.",
                         "Les noms des samples prennent " + taken + " caractères ; seuls " + room +
                             " sont gardés quand la ligne est réécrite."});
    });
}

} // namespace tavrel
