// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/SoundCatalogue.h"

#include <filesystem>
#include <string>

namespace tavrel {

constexpr std::string_view firstBackupName = "Orig_Sounds.txt";
constexpr std::string_view changedLinesFolderName = "sounds";

struct ApplyTarget
{
    std::filesystem::path programFolder;
    std::string wadName; // for the record of changed lines; none is kept when this is no plain file name
};

// "Apply changes to sounds.txt": asks, then writes every current line to the file that was loaded. Keeps
// Orig_Sounds.txt from the first time, and sounds\<WAD>.tor with the lines whose samples differ from the
// original's. True when sounds.txt was written.
bool applyChanges(SoundCatalogue& catalogue, const ApplyTarget& target, Dialogs& dialogs);

} // namespace tavrel
