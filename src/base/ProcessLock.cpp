// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ProcessLock.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/FilledText.h"
#include "base/Folder.h"
#include "base/SafeFile.h"

#include <atomic>
#include <thread>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

Failure atWorkElsewhere()
{
    return {
        {"Another window or command of Tavrel is at work on the same files.\nNothing was changed. Try again "
         "when it is done.",
         "Une autre fenêtre ou commande de Tavrel travaille sur les mêmes fichiers.\nRien n'a été modifié. "
         "Réessayez quand elle aura fini."}};
}

Failure ofSomebodyElse(const fs::path& file)
{
    return {filled(
        {"This lock file belongs to another user and cannot be opened:\n{}\nNothing was changed. Ask for "
         "the right to write it, or delete it when nobody is at work with Tavrel.",
         "Ce fichier de verrou appartient à un autre utilisateur et ne peut pas être ouvert :\n{}\nRien "
         "n'a été modifié. Demandez le droit de l'écrire, ou supprimez-le quand personne ne travaille "
         "avec Tavrel."},
        {displayPath(file)})};
}

struct Attempt
{
    ProcessLock lock;
    bool systemHasLocks = true;
};

Result<Attempt> attempt(const fs::path& file, Clock::time_point end)
{
    constexpr std::chrono::milliseconds pause(20);
    auto lock = std::make_unique<system::FileLock>();
    std::error_code error = lock->take(file);
    while (error == std::errc::resource_unavailable_try_again) {
        if (Clock::now() >= end) {
            return atWorkElsewhere();
        }
        std::this_thread::sleep_for(pause);
        error = lock->take(file);
    }
    if (!error) {
        return Attempt{std::move(lock)};
    }
    if (error == std::errc::not_supported) {
        return Attempt{nullptr, false};
    }
    // Where nothing can be written, nothing can be lost.
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
        (error == std::errc::permission_denied && !system::isWritableFolder(file.parent_path()))) {
        return Attempt{};
    }
    return error == std::errc::permission_denied ? ofSomebodyElse(file) : cannotWrite(file, error);
}

fs::path lockBeside(fs::path file, std::string_view name)
{
    if (followLinks(file)) {
        return {}; // a ring of links: it cannot be written either
    }
    return asOnDisk(name.empty() ? withEnding(file, fileLockEnding) : file.parent_path() / nativePath(name));
}

} // namespace

Result<ProcessLock> takeLock(const fs::path& folder, std::string_view name, std::chrono::seconds patience)
{
    Result<Attempt> taken = attempt(fileIn(folder, name), Clock::now() + patience);
    if (!taken) {
        return taken.failure();
    }
    return std::move(taken->lock);
}

ChangeLocks::ChangeLocks(LockedPlaces places, std::chrono::seconds patience)
    : m_places(std::move(places)), m_patience(patience)
{}

Problem ChangeLocks::takeOne(const fs::path& file, Clock::time_point end)
{
    Result<Attempt> taken = attempt(file, end);
    if (!taken) {
        return taken.failure();
    }
    m_hasLocks = m_hasLocks && taken->systemHasLocks;
    m_locks.push_back(std::move(taken->lock));
    return std::nullopt;
}

Problem ChangeLocks::take()
{
    if (m_taken) {
        return std::nullopt;
    }
    const Clock::time_point end = Clock::now() + m_patience;
    const fs::path& sounds = m_places.soundsFile;
    m_hasLocks = true;
    Problem problem = takeOne(fileIn(m_places.programFolder, changesLock), end);
    if (!problem && !sounds.empty()) {
        problem = takeOne(lockBeside(sounds, {}), end);
    }
    if (!problem && !m_places.samplesFolder.empty()) {
        problem = takeOne(lockBeside(sounds, samplesLock), end);
    }
    if (problem) {
        release();
        return problem;
    }
    m_taken = true;
    const Unfinished which = m_hasLocks ? Unfinished::All : Unfinished::OlderThanADay;
    removeUnfinishedWrites(m_places.programFolder, which);
    for (const fs::path& folder : {sounds.parent_path(), m_places.samplesFolder}) {
        if (!folder.empty()) {
            removeUnfinishedWrites(folder, which);
        }
    }
    return std::nullopt;
}

void ChangeLocks::release()
{
    while (!m_locks.empty()) {
        m_locks.pop_back();
    }
    m_taken = false;
}

std::optional<BilingualText> ChangeLocks::notice() const
{
    static std::atomic<bool> told = false;
    if (m_hasLocks || told.exchange(true)) {
        return std::nullopt;
    }
    return BilingualText(
        "This disk does not support locks. If another window or command of Tavrel changes the same files at the same "
        "time, changes may be lost.",
        "Ce disque ne connaît pas de verrous. Si une autre fenêtre ou commande de Tavrel modifie les mêmes "
        "fichiers en même temps, des modifications peuvent être perdues.");
}

} // namespace tavrel
