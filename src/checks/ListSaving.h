// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <filesystem>
#include <functional>
#include <string>

namespace tavrel {

// Saves a list where the user wants it. `text` gives it as a table for a spreadsheet when the name ends with
// ".csv", else as text. Neither sounds.txt nor another file of the level editor or of Tavrel is ever
// replaced.
void saveList(const std::string& proposedName, bool onlyTable,
              const std::function<std::string(bool asTable)>& text, Dialogs& dialogs);

} // namespace tavrel
