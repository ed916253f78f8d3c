// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ExitStatus.h"

#include <string>
#include <vector>

namespace tavrel {

// Does what the arguments (UTF-8) ask for, on the standard streams.
ExitStatus runCommandLine(const std::vector<std::string>& arguments);

} // namespace tavrel
