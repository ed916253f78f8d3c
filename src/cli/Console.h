// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ConsoleDialogs.h"
#include "cli/Output.h"

#include <filesystem>
#include <functional>
#include <string>

namespace tavrel {

// What every command gets.
struct Console
{
    std::filesystem::path programFolder;
    Language language;
    ConsoleDialogs& dialogs;
    Output& output;
};

using Command = std::function<ExitStatus(Console&)>;

} // namespace tavrel
