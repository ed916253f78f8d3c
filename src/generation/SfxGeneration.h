// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BatchRunner.h"
#include "base/Dialogs.h"
#include "base/ProcessLock.h"
#include "base/Progress.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "settings/Places.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What the batch file of a generation says: the level editor's tool makes the .sam and .sfx files of a WAD in
// the tool's folder, and they are moved to the WADs. Code page bytes, CR LF.
std::string generationBatch(const CurrentWad& wad);

// Looks at every existing sample of the lines that belong to the WAD, in their order: those with the WAD's
// letter, or one that starts like it, and those of all levels. The name of the first in a wrong format.
std::optional<std::string> findWrongSample(const SoundCatalogue& catalogue, const CurrentWad& wad,
                                           const std::filesystem::path& samplesFolder, Progress& progress);
// What to say then. The check of the whole folder is what helps.
Message wrongSamplesMessage();

struct GenerationRequest
{
    const SoundCatalogue& catalogue;
    CurrentWad wad;
    bool hasUnappliedChanges; // pending ones, or values that were not accepted
    Places places;
    // Tells what else is wrong with the level's sounds, before the confirmation; false ends the command.
    std::function<bool()> acceptsErrors = [] { return true; };
};

// Makes the sound files of a WAD with the level editor's own tool, which runs beside this program.
class SfxGeneration
{
public:
    using Clock = std::chrono::steady_clock;
    // The first look for the end comes after this time, whatever the tool has done by then.
    static constexpr std::chrono::milliseconds firstLook{3000};
    static constexpr std::chrono::milliseconds nextLook{1000};
    // When .sfx files have not changed for so long, something is wrong; the shorter time holds once nothing
    // runs any more that could take them away.
    static constexpr std::chrono::seconds patience{30};
    static constexpr std::chrono::seconds patienceAfterTheEnd{3};

    SfxGeneration(BatchRunner& runner, Dialogs& dialogs) : m_runner(runner), m_dialogs(dialogs) {}
    SfxGeneration(const SfxGeneration&) = delete;
    SfxGeneration& operator=(const SfxGeneration&) = delete;
    // Takes the batch file away unless it is still needed.
    ~SfxGeneration();

    enum class Begun {
        NotStarted,  // refused or cancelled, and the user knows
        WrongSample, // nothing was said yet: wrongSamplesMessage()
        Started
    };
    // All that is to be asked, the check of the samples, the batch file and its start. The progress has
    // reached its end before anything is started.
    Begun begin(const GenerationRequest& request, Progress& progress, Clock::time_point now);

    enum class Phase {
        Idle,
        Waiting,    // the results are not yet in place: the program takes no input
        ConsoleOpen // only the interpreter has not ended yet: its user has to press a key
    };
    Phase phase() const { return m_phase; }
    // Called again and again until the phase is Idle; asks the user when the waiting seems to be in vain.
    Phase poll(Clock::time_point now);
    // What the user waits for, for a status line: empty when nothing runs.
    BilingualText waitText() const;
    // How it ended, for a status line.
    const BilingualText& summary() const { return m_summary; }
    // A message has told it already, with more words.
    bool summaryWasShown() const { return m_summaryWasShown; }
    // New files of the WAD are in place.
    bool hasResults() const;

private:
    struct FileState
    {
        std::filesystem::path file;
        std::uintmax_t size;
        std::filesystem::file_time_type modified;

        bool operator==(const FileState&) const = default;
    };
    using FileStates = std::vector<FileState>;

    bool mayBegin(const GenerationRequest& request);
    bool confirm(const GenerationRequest& request);
    bool confirmMovingOtherFiles(const GenerationRequest& request);
    [[nodiscard]] Problem takeLocks(const Places& places);
    bool start(const GenerationRequest& request, Clock::time_point now);
    bool wantsToStop(FileStates files, Clock::time_point now);
    void end();
    void removeBatchFile() const;
    void refuse(const BilingualText& text, MessageIcon icon = MessageIcon::Exclamation) const;

    // None when the folder cannot be listed.
    static Result<FileStates> filesOf(const std::filesystem::path& folder, std::string_view ending);
    static FileStates resultsOf(const std::filesystem::path& folder, const std::string& wadName);

    BatchRunner& m_runner;
    Dialogs& m_dialogs;
    Phase m_phase = Phase::Idle;
    std::array<ProcessLock, 2> m_locks;
    std::unique_ptr<RunningBatch> m_running;
    std::filesystem::path m_batchFile;
    std::filesystem::path m_output;
    std::filesystem::path m_wadsFolder;
    std::string m_wadName;
    FileStates m_resultsBefore;
    std::optional<FileStates> m_lastSeen;
    Clock::time_point m_lastChange;
    BilingualText m_summary;
    bool m_summaryWasShown = false;
};

} // namespace tavrel
