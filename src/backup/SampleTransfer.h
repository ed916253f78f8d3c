// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Message.h"
#include "base/Progress.h"
#include "base/Result.h"
#include "catalogue/SoundLine.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
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

// The first of them, each on a line of its own, behind a line break.
BilingualText listOfFiles(std::span<const std::string> files);
// A sentence and the files it is about: in the text, or to fold out where they are many.
void addListedFiles(const BilingualText& one, const BilingualText& several,
                    std::span<const std::string> files, Message& message);
// Says which old samples stayed for want of new ones.
BilingualText keptSamples(std::span<const std::string> files);

enum class CopyEnd { Complete, Cancelled, Failed };

struct SampleCopies
{
    CopyEnd end = CopyEnd::Complete;
    std::optional<Failure> failure;
    std::vector<std::string> copied;  // file names, each once
    std::vector<std::string> refused; // names that are not safe
    std::vector<std::string> missing; // files that the source does not hold, each once
    std::vector<std::string> kept;    // of a swap: those of them that the old folder holds
};

// Puts samples of one folder into the place of those of another, one after the other, each complete before
// the old one goes. Samples that the source does not hold are passed over. What was copied before a failure
// or a cancel stays. A sample that is a link to another file is replaced, the other file stays as it is.
SampleCopies replaceSamples(std::span<const std::string> names, const std::filesystem::path& source,
                            const std::filesystem::path& target, Progress& progress);

// A samples folder that is made new beside the old one and takes its place when it is complete. Files of the
// old folder that are no samples move over, and so do the samples that were asked for and that the source
// does not hold. A folder that is a link is never written.
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

    // Files of an earlier swap were moved back: the folder is no more as it was before this one began.
    bool repaired() const { return m_repaired; }

    // Old folders that could not go, of this swap and of earlier ones: the user has to look.
    std::vector<std::filesystem::path> leftovers() const;

private:
    void repair();
    [[nodiscard]] Problem keepWhatIsLacking(std::span<const std::string> names, SampleCopies& copies);

    std::filesystem::path m_folder;
    std::filesystem::path m_new;
    bool m_hasNew = false;
    bool m_hasSource = false;
    bool m_repaired = false;
    std::unordered_set<std::string> m_kept; // files to keep of the old folder, in capitals
};

// The samples that a swap would delete, because they are none of the names. Changes nothing.
std::vector<std::filesystem::path> samplesLostToSwap(std::span<const std::string> names,
                                                     const std::filesystem::path& source,
                                                     const std::filesystem::path& folder);

// The folder, or the old one when a swap was cut short before the new one came. Changes nothing.
std::optional<std::filesystem::path> samplesFolderToRead(const std::filesystem::path& folder);

} // namespace tavrel
