// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Message.h"
#include "base/Progress.h"
#include "base/Result.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <vector>

// Putting samples of a folder into the right format. Each original is kept in a folder beside the samples
// folder before its place is taken, and can be put back.
namespace tavrel {

// "Samples_originals" for "Samples". Empty for a folder that has no name, a disk's own.
std::filesystem::path originalsFolder(const std::filesystem::path& samplesFolder);

// Copies a file to the originals, unless its bytes are there already, and returns once the copy is on the
// disk. Nothing that is there is replaced: a different original of the same name goes to a folder "2" in it,
// and so on.
Result<std::filesystem::path> keepOriginal(const std::filesystem::path& sample);
// The last one that was kept of a sample; nothing when there is none.
std::optional<std::filesystem::path> lastOriginal(const std::filesystem::path& sample);

struct SampleOutcome
{
    std::filesystem::path sample;
    bool done = false;
    BilingualText text; // what there is to say about it, or why it was not done

    // "foot01.wav: WAV, PCM, 44100 Hz, stereo, 16 bits, 1.25 s"
    BilingualText line() const;
};

// One sample: at every moment it is the old file or the new one, and its original is never lost.
SampleOutcome repairSample(const std::filesystem::path& sample);
// The original takes the sample's place again. A sample that is not what a repair makes of the original has
// been changed since; it is kept in the folder "changed" of the originals.
SampleOutcome putOriginalBack(const std::filesystem::path& sample);

enum class SampleTask { Repair, PutBack };

// What happened to many samples, for a window or a file.
struct SampleReport
{
    SampleTask task = SampleTask::Repair;
    std::filesystem::path originals;
    std::size_t asked = 0;
    std::vector<SampleOutcome> outcomes; // in the order of the samples; those that were not begun are missing
    bool cancelled = false;

    std::size_t failures() const;
    // "12 samples repaired, 1 not", where the originals are, and a line for each sample.
    BilingualText text() const;
};

// Many samples, on all processors. Whoever started it looks from time to time how far it is.
class SampleRun
{
public:
    SampleRun(SampleTask task, std::vector<std::filesystem::path> samples);
    SampleRun(const SampleRun&) = delete;
    SampleRun& operator=(const SampleRun&) = delete;
    // Ends what is under way, whole samples each.
    ~SampleRun();

    std::size_t count() const { return m_samples.size(); }
    std::size_t done() const;
    bool finished() const;
    // No further sample is begun.
    void cancel() { m_cancelled = true; }
    // Waits a moment, or until it is finished.
    void wait(std::chrono::milliseconds moment);
    // Once it is finished.
    SampleReport takeReport();

private:
    void work();

    SampleTask m_task;
    std::vector<std::filesystem::path> m_samples;
    std::vector<std::optional<SampleOutcome>> m_outcomes;
    mutable std::mutex m_mutex;
    std::condition_variable m_finishedOne;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_cancelled = false;
    std::size_t m_done = 0;
    std::size_t m_working = 0;
    std::vector<std::thread> m_threads;
};

// Does it and waits for the end.
SampleReport runOnSamples(SampleTask task, std::vector<std::filesystem::path> samples, Progress& progress);

// The questions before it name the count.
Question repairQuestion(std::span<const std::filesystem::path> samples); // of one folder
Question putBackQuestion(std::span<const std::filesystem::path> samples);

} // namespace tavrel
