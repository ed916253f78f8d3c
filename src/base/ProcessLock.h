// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/System.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrel {

// One of several processes has it. It ends with its owner. Empty where a folder takes no lock.
using ProcessLock = std::unique_ptr<system::FileLock>;

// Waits while another process has it, and fails when that lasts too long. Where the folder cannot be written,
// and where the system has no locks, the work goes on without one.
Result<ProcessLock> takeLock(const std::filesystem::path& folder, std::string_view name,
                             std::chrono::seconds patience);

// What is about to be written.
struct LockedPlaces
{
    std::filesystem::path programFolder;
    std::filesystem::path soundsFile = {};    // empty when it is not touched
    std::filesystem::path samplesFolder = {}; // the level editor's; empty when it is not touched
};

// The locks for these places: whoever changes a file has them from reading it to writing it, for what another
// process would change in between would be lost. Everybody takes them in the same order: program folder,
// sounds.txt, samples. Whoever has them takes away what interrupted writes have left there.
class ChangeLocks
{
public:
    ChangeLocks(LockedPlaces places, std::chrono::seconds patience);

    // Nothing to do when they are taken already. Waits and fails as takeLock() does, and has none of them
    // then.
    [[nodiscard]] Problem take();
    void release();
    bool areTaken() const { return m_taken; }

    // That the system has no locks there: once in a run of the program, after the first take() that met it.
    std::optional<BilingualText> notice() const;

private:
    using Clock = std::chrono::steady_clock;
    [[nodiscard]] Problem takeOne(const std::filesystem::path& file, Clock::time_point end);

    LockedPlaces m_places;
    std::chrono::seconds m_patience;
    std::vector<ProcessLock> m_locks;
    bool m_taken = false;
    bool m_hasLocks = true; // the system, for the places that were asked for last
};

} // namespace tavrel
