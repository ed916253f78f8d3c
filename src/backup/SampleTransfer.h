// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "catalogue/SoundLine.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Copying the samples that travel with an exchange file. Names of samples come from files of strangers: one
// that is not a plain file name is never copied.
namespace tavrel {

// The names that count, in order; the record's list may have empty entries.
std::vector<std::string> sampleNamesOf(const SoundLine& record);

// Whether a file of that name (without ".wav") stays in its folder on every system.
bool isSafeSampleName(std::string_view name);

// Says which names were not copied for that reason.
BilingualText unsafeSampleNames(std::span<const std::string> names);

enum class CopyEnd { Complete, Cancelled, Failed };

struct SampleCopies
{
    CopyEnd end = CopyEnd::Complete;
    std::optional<Failure> failure;
    std::vector<std::string> copied;  // file names, each once
    std::vector<std::string> refused; // names that are not safe
};

// Puts samples of one folder into the place of those of another, one after the other, each complete before
// the old one goes. Samples that the source does not hold are passed over. What was copied before a failure
// or a cancel stays.
SampleCopies replaceSamples(std::span<const std::string> names, const std::filesystem::path& source,
                            const std::filesystem::path& target, Progress& progress);

// A samples folder that is made new beside the old one and takes its place when it is complete. Files of the
// old folder that are no samples move over. A folder that is a link is never written.
class SamplesFolderSwap
{
public:
    // Brings the folder in order first when an earlier swap was cut short: what it lacks of the old one moves
    // back.
    explicit SamplesFolderSwap(const std::filesystem::path& folder);
    SamplesFolderSwap(const SamplesFolderSwap&) = delete;
    SamplesFolderSwap& operator=(const SamplesFolderSwap&) = delete;
    ~SamplesFolderSwap();

    // Samples that the source does not hold are passed over; a missing source holds none.
    SampleCopies copy(std::span<const std::string> names, const std::filesystem::path& source,
                      Progress& progress);
    // After a complete copy. On a failure the old folder is in its place. Without a source it stays there.
    [[nodiscard]] Problem putInPlace();

    // Old folders that could not go, of this swap and of earlier ones: the user has to look.
    std::vector<std::filesystem::path> leftovers() const;

private:
    void repair();

    std::filesystem::path m_folder;
    std::filesystem::path m_new;
    bool m_hasNew = false;
    bool m_hasSource = false;
};

// The folder, or the old one when a swap was cut short before the new one came. Changes nothing.
std::optional<std::filesystem::path> samplesFolderToRead(const std::filesystem::path& folder);

} // namespace tavrel
