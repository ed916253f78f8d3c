// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Progress.h"
#include "base/Result.h"

#include <filesystem>
#include <vector>

namespace tavrel {

// Puts copies of the files into the folder, in the place of the old ones that are named and of those with the
// same names. The copies stand complete beside the folder ("Samples_incoming") before anything in it moves,
// and the old files stay beside it ("Samples_replaced"); what was kept there before gets a number, the
// oldest the lowest, and stays, too. On a failure the folder is as it was. A folder that is missing is
// created in its parent.
[[nodiscard]] Problem replaceFiles(const std::vector<FolderEntry>& files, const std::filesystem::path& folder,
                                   const std::vector<FolderEntry>& oldFiles, Progress& progress);

// Says where the files are when a run of replaceFiles() was killed after it had begun to move them; a new run
// works all the same.
[[nodiscard]] Problem cutShortReplacement(const std::filesystem::path& folder);

} // namespace tavrel
