// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "checks/Finding.h"

#include <span>

namespace tavrel {

// "3 errors", with its own word for one.
BilingualText counted(std::size_t count, Severity severity);

// "12 LARA_NO", the sound to which the finding leads; else its file; else nothing. UTF-8.
std::string placeOf(const Finding& finding, const SoundCatalogue& catalogue);

// All of them for a text file: a heading for each severity, a line for each finding.
std::string textOf(std::span<const Finding* const> findings, const SoundCatalogue& catalogue,
                   Language language);
// A table for a spreadsheet.
std::string csvOf(std::span<const Finding* const> findings, const SoundCatalogue& catalogue,
                  Language language);

// Each line as it is and as it would be, for those who decide.
std::string previewOf(std::span<const SoundCatalogue::LineChange> changes, const SoundCatalogue& catalogue);
std::string previewOf(std::span<const LineReadOtherwise> lines);

} // namespace tavrel
