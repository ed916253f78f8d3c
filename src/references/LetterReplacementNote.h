// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "catalogue/SoundCatalogue.h"
#include "references/ReferenceRegister.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// A letter that is replaced stands in two files, sounds.txt and the register. The note is written before the
// first of them changes, so that a later start can tell when the second did not follow.
namespace tavrel {

struct LetterReplacement
{
    std::filesystem::path soundsFile;
    std::string wadName;
    std::string oldLetter;
    std::string newLetter;
};

[[nodiscard]] Problem noteLetterReplacement(const std::filesystem::path& programFolder,
                                            const LetterReplacement& replacement);
// Both files have the new letter, or none of them.
[[nodiscard]] Problem forgetLetterReplacement(const std::filesystem::path& programFolder,
                                              const LetterReplacement& replacement);

// Which of the files has the new letter, and what to do.
BilingualText halfReplacedLetter(const LetterReplacement& replacement);
// Such a text for each noted replacement that was cut short, as far as sounds.txt and the register show it.
std::vector<Failure> halfReplacedLetters(const std::filesystem::path& programFolder,
                                         const SoundCatalogue& catalogue,
                                         const ReferenceRegister& references);

} // namespace tavrel
