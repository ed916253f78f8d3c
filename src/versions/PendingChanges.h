// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Result.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// What an apply is about to write.
namespace tavrel {

// A line that is another than in the file as it was last read or written.
struct PendingChange
{
    std::optional<std::size_t> number; // of the sound; none for a line that was taken out
    std::optional<std::string> before; // none for a line that was put in
    std::optional<std::string> after;
};
std::vector<PendingChange> pendingChanges(const SoundCatalogue& catalogue);
// "12: METAL_SCRAPE_LOOP: VOL 44 → 60, #oa added"
BilingualText describe(const PendingChange& change);

// A row for each, to be folded into a question that would give them up.
BilingualText listOfPendingChanges(const SoundCatalogue& catalogue);

// Lines of the file that are not sounds and will not be written back, as they stand there.
struct DroppedLine
{
    std::size_t lineInFile; // 1-based
    std::string text;
    bool looksLikeSound; // a name and samples, without the colon
};
Result<std::vector<DroppedLine>> droppedLines(const SoundCatalogue& catalogue);

} // namespace tavrel
