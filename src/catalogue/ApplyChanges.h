// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/ProcessLock.h"
#include "catalogue/SoundCatalogue.h"

#include <filesystem>
#include <functional>
#include <string>

namespace tavrel {

struct ApplyTarget
{
    std::filesystem::path programFolder;
    std::string wadName; // for the record of changed lines; none is kept when this is no plain file name
    // Of a caller that has them since it read the files. Without, the apply takes its own once its questions
    // are answered. A question that comes up later gives them back while it waits.
    ChangeLocks* locks = nullptr;
    // Puts the question before the write in another way, with more than Yes and No. True for Yes.
    std::function<bool(const Question&)> confirm = {};
    // Shows the file beside the catalogue when another program has changed it; true when lines were taken
    // over from it, which is the agreement to write.
    std::function<bool(const std::filesystem::path&)> compare = {};
    // Lines that are no sounds are written back where they stood, and the others byte for byte where nobody
    // changed them.
    bool keepComments = false;
    // Whatever is replaced is kept among the versions of sounds.txt.
    bool keepVersion = false;
};

// "Apply changes to sounds.txt": asks, then writes every current line to the file that was loaded. Keeps
// Orig_Sounds.txt from the first time, a copy of whatever else would be lost, and sounds\<WAD>.tor with the
// lines whose samples differ from the original's. True when sounds.txt was written.
bool applyChanges(SoundCatalogue& catalogue, const ApplyTarget& target, Dialogs& dialogs);

} // namespace tavrel
