// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/System.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string_view>

namespace tavrel {

// Whoever changes sounds.txt or the register has this from reading them to writing them: what another process
// would change in between would be lost.
constexpr std::string_view changesLock = "Tavrel.lock";
// Whoever generates: two batch files of one name would be in each other's way.
constexpr std::string_view generationLock = "CreateSFX.lock";

// One of several processes has it. It ends with its owner.
using ProcessLock = std::unique_ptr<system::FileLock>;

// Waits while another process has it, and fails when that lasts too long. Where the program folder takes no
// lock (it may not be written to, its disk knows none), the work goes on without one.
Result<ProcessLock> takeLock(const std::filesystem::path& programFolder, std::string_view name,
                             std::chrono::seconds patience);

} // namespace tavrel
