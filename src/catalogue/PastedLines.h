// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ChangeSounds.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Which lines a text brings to which sounds. A line names its sound by "12: " in front of it or by its own
// name. Of several sounds with that name it is the selected one.
struct PastedLines
{
    std::vector<SoundCatalogue::LineChange> lines;
    std::vector<std::string> homeless; // no sound, or too many, of that name
};
PastedLines findPastedLines(const SoundCatalogue& catalogue, std::string_view text,
                            std::span<const std::size_t> selected);

// Shows what would become of which line, and asks. Nothing when the text holds no sound line, or the user
// declines.
std::optional<SoundsChanged> pasteLines(SoundCatalogue& catalogue, std::string_view text,
                                        std::span<const std::size_t> selected, Dialogs& dialogs);

} // namespace tavrel
