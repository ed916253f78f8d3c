// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ProcessLock.h"

#include "base/Folder.h"

#include <thread>

namespace tavrel {

Result<ProcessLock> takeLock(const std::filesystem::path& programFolder, std::string_view name,
                             std::chrono::seconds patience)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause(20);
    const std::filesystem::path file = fileIn(programFolder, name);
    const Clock::time_point end = Clock::now() + patience;
    auto lock = std::make_unique<system::FileLock>();
    while (lock->take(file) == std::errc::resource_unavailable_try_again) {
        if (Clock::now() >= end) {
            return Failure{{"Another window or command of Tavrel is at work on the same files.\nNothing was "
                            "changed. Try again when it is done.",
                            "Une autre fenêtre ou commande de Tavrel travaille sur les mêmes fichiers.\nRien "
                            "n'a été modifié. Réessayez quand elle aura fini."}};
        }
        std::this_thread::sleep_for(pause);
    }
    return lock;
}

} // namespace tavrel
