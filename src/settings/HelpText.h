// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Result.h"

#include <filesystem>
#include <string>

namespace tavrel {

// The help of a language, code page bytes, each line ended by CR LF. Also removes the help file of an earlier
// release, where it still lies.
Result<std::string> loadHelp(const std::filesystem::path& programFolder, Language language);

} // namespace tavrel
