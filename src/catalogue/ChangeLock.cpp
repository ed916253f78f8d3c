// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ChangeLock.h"

#include "base/Folder.h"

#include <string>
#include <thread>

namespace tavrel {

namespace {

Failure stillLocked(std::chrono::seconds patience)
{
    const std::string seconds = std::to_string(patience.count());
    return {{"Another window or command of Tavrel is at work on the same files, and has not ended within " +
                 seconds + " seconds.\nNothing was changed. Try again when it is done.",
             "Une autre fenêtre ou commande de Tavrel travaille sur les mêmes fichiers et ne s'est pas "
             "terminée en " +
                 seconds + " secondes.\nRien n'a été modifié. Réessayez quand elle aura fini."}};
}

} // namespace

Result<ChangeLock> lockChanges(const std::filesystem::path& programFolder, std::chrono::seconds patience)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause(20);
    const std::filesystem::path file = fileIn(programFolder, changeLockFileName);
    const Clock::time_point end = Clock::now() + patience;
    auto lock = std::make_unique<system::FileLock>();
    while (lock->take(file) == std::errc::resource_unavailable_try_again) {
        if (Clock::now() >= end) {
            return stillLocked(patience);
        }
        std::this_thread::sleep_for(pause);
    }
    return lock;
}

} // namespace tavrel
