// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What an apply writes.
struct FileText
{
    std::string bytes;
    std::vector<std::size_t> linesInFile; // of each sound, 1-based
};

// The current lines alone, CR LF after each.
FileText soundsAlone(const SoundCatalogue& catalogue);

// The current lines, and the lines of the file that are no sounds where they stood, before the same sounds.
// With the very file that was loaded, lines that are as they were keep their bytes, line ends and blanks
// behind the letters included.
FileText soundsWithComments(const SoundCatalogue& catalogue, std::string_view file, bool isLoadedFile);

} // namespace tavrel
