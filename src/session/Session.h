// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/ProcessLock.h"
#include "base/Result.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/SoundCatalogue.h"
#include "history/ChangeHistory.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"
#include "session/RecoveryLog.h"
#include "settings/Options.h"
#include "settings/Places.h"
#include "settings/ProgramSettings.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

// What shows something of a session follows it. Each is told once, when a command has come to its end.
class SessionObserver
{
public:
    SessionObserver() = default;
    SessionObserver(const SessionObserver&) = delete;
    SessionObserver& operator=(const SessionObserver&) = delete;
    virtual ~SessionObserver() = default;

    // Everything is another: a load, or another level editor. The calls below do not follow for it.
    virtual void reloaded() {}
    // These lines, by sound, ascending.
    virtual void linesChanged(const std::vector<std::size_t>& /*numbers*/) {}
    // A line was put in or taken out: every number may mean another sound.
    virtual void linesMoved() {}
    virtual void registerChanged() {}
    virtual void wadChanged() {}
    // What can be undone, what is pending, whether it can be recovered.
    virtual void historyChanged() {}
};

// How a window puts the questions of an apply (ApplyTarget).
struct ApplyDoors
{
    std::function<bool(const Question&)> confirm = {};
    std::function<bool(const std::filesystem::path&)> compare = {};
};

// The one document: what the user works on, and all that was done to it since it was loaded. The windows and
// the commands for scripts use the same.
class Session : private HistoryObserver
{
public:
    Session(const std::filesystem::path& programFolder, ProgramSettings settings);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() override;

    const Places& places() const { return m_places; }
    ProgramSettings& settings() { return m_settings; }
    const ProgramSettings& settings() const { return m_settings; }
    Options& options() { return m_options; }
    const Options& options() const { return m_options; }

    SoundCatalogue& catalogue() { return m_catalogue; }
    const SoundCatalogue& catalogue() const { return m_catalogue; }
    ReferenceRegister& references() { return m_references; }
    const ReferenceRegister& references() const { return m_references; }
    // The level that the user works on. Changed by reference only within a step; else by chooseWad().
    CurrentWad& wad() { return m_wad; }
    const CurrentWad& wad() const { return m_wad; }
    // The first reference of that name, be it a built-in one; none for an empty name.
    void chooseWad(const std::string& wadName);

    void addObserver(SessionObserver& observer) { m_observers.push_back(&observer); }
    void removeObserver(SessionObserver& observer) { std::erase(m_observers, &observer); }

    // Loading

    // Reads the register and the catalogue, and gives what the user has to know about them. Changes that were
    // not applied are discarded. A failure changes nothing: what was loaded stays, with its changes; before
    // the first load that is an empty catalogue. With lines that are read otherwise than they stand in the
    // file, the result waits to be applied.
    Result<std::vector<Failure>> load(std::vector<LineReadOtherwise> readOtherwise = {});
    // Loads as load() does, with another level editor than that of the settings.
    Result<std::vector<Failure>> loadFrom(const std::string& drive, const std::string& levelEditorFolder);
    bool isLoaded() const { return m_loaded; }
    // What there is to know about the register that was loaded. A state of its files is to be told once:
    // which one it is.
    const std::vector<Failure>& registerNotices() const { return m_registerNotices; }
    std::string registerState() const;
    // Another sounds.txt was put in its place since it was loaded.
    bool wasReplaced() const { return m_replaced; }
    void setReplaced(bool replaced) { m_replaced = replaced; }
    // Which lines are protected was settled by the option at the load.
    bool followsProtectedOption() const { return m_loadedEditable == m_settings.protectedLinesEditable; }

    // History

    const HistoryTrack& history() const { return m_history.track(); }
    bool pending() const { return m_history.pending(); }
    bool canUndo() const { return m_history.canUndo(); }
    bool canRedo() const { return m_history.canRedo(); }
    struct Moved
    {
        BilingualText label; // of the last step that moved
        std::optional<std::size_t> sound;
        Problem problem; // the register could not be written
    };
    Moved undo() { return goTo(history().position - 1); }
    Moved redo() { return goTo(history().position + 1); }
    // So many of the steps are done then; 0 to all of them.
    Moved goTo(std::size_t position);

    // Files

    // "Apply changes to sounds.txt". The record of changed lines is the current WAD's, or the named one's.
    bool apply(Dialogs& dialogs, const std::optional<std::string>& wadName = std::nullopt,
               const ApplyDoors& doors = {});
    // Writes the user's own references. A write that failed is remembered: each apply tries it again.
    Problem writeRegister();
    bool isRegisterUnsaved() const { return m_registerUnsaved; }
    // Gives up what is not applied, and with it what it did to the register. Messages for what stays there.
    std::vector<Failure> discardChanges();
    // Writes the record of changed lines where an apply was cut short before it. True when it was missing.
    Result<bool> completeChangedLines(const std::optional<std::string>& wadName);
    // For a command that reads, changes and writes under the same locks.
    void holdLocks(std::unique_ptr<ChangeLocks> locks) { m_locks = std::move(locks); }

    // Recovery

    // From now on every step is kept on the disk until it is applied or given up.
    void keepRecoverable();
    // Why it cannot be kept just now; nothing while it is.
    const Problem& recoveryProblem() const { return m_recoveryProblem; }
    bool isOpenElsewhere() const;
    // The system ends the program; what the boxes hold is kept beside the steps.
    void keepValues(const UnacceptedValues& values);
    // Steps of an earlier run, done to the very file that is loaded. False when they do not fit its lines.
    bool adopt(const HistoryTrack& track);
    // What such steps did to the register is taken back, as discardChanges() does it.
    std::vector<Failure> discardReferencesOf(const HistoryTrack& track);
    // The session is over, with nothing left to be recovered, or with changes that the user has given up.
    void close();

private:
    // HistoryObserver
    void stepDone(const HistoryStep& step) override;
    void stepMoved(const HistoryStep& step) override;

    Result<std::vector<Failure>> loadFrom(Places places, ProgramSettings settings,
                                          std::vector<LineReadOtherwise> readOtherwise = {});
    void announce(const HistoryStep& step);
    void beginRecovery();
    bool keepsComments() const;
    void noteRecovery(Problem problem);
    RecoveryHeader recoveryHeader() const;
    template <typename... Arguments>
    void tell(void (SessionObserver::*event)(Arguments...), Arguments... arguments);

    ProgramSettings m_settings;
    Places m_places;
    Options m_options;
    SoundCatalogue m_catalogue;
    ReferenceRegister m_references;
    CurrentWad m_wad;
    ChangeHistory m_history;
    std::vector<SessionObserver*> m_observers;
    std::unique_ptr<ChangeLocks> m_locks;
    std::unique_ptr<RecoveryLog> m_recovery;
    Problem m_recoveryProblem;
    std::vector<Failure> m_registerNotices;
    bool m_loaded = false;
    bool m_loadedEditable = false;
    bool m_replaced = false;
    bool m_registerUnsaved = false;
};

} // namespace tavrel
