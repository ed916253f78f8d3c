// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Message.h"
#include "base/Progress.h"
#include "base/Result.h"
#include "catalogue/SoundLine.h"

#include <cstddef>
#include <filesystem>
#include <functional>
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

// Puts the named samples of a folder where they go, each under the file name that it is to have; a name that
// is there twice is said twice and put once. Samples that the folder does not hold are passed over. It stops
// at a failure or a cancel. Each is one of the steps; that all are done is for the caller to show.
using PutSample = std::function<Problem(const std::filesystem::path& sample, const std::string& file)>;
SampleCopies copySamples(std::span<const std::string> names, const FolderIndex& source, const PutSample& put,
                         std::size_t steps, Progress& progress);
SampleCopies failedCopies(Failure failure);

// Puts samples of one folder into the place of those of another, one after the other, each complete before
// the old one goes. What was copied before a failure or a cancel stays. A sample that is a link to another
// file is replaced, the other file stays as it is.
SampleCopies replaceSamples(std::span<const std::string> names, const std::filesystem::path& source,
                            const std::filesystem::path& target, Progress& progress);

} // namespace tavrel
