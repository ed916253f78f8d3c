// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/SampleTransfer.h"
#include "base/Progress.h"
#include "base/Result.h"
#include "base/StagedFolder.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace tavrel {

// A samples folder that is made new beside the old one and takes its place when it is complete. Files of the
// old folder that are no samples move over, and so do the samples that were asked for and that the source
// does not hold. A folder that is a link is never written.
class SamplesFolderSwap
{
public:
    // Brings the folder in order first when an earlier swap was cut short: what it lacks of the old one moves
    // back.
    explicit SamplesFolderSwap(const std::filesystem::path& folder);

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
    StagedFolder m_new;
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
