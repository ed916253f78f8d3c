// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/LineEditor.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Changing the samples of the selected line. Each command composes the working record, the values in the
// boxes included, into the current line at once.
namespace tavrel {

// What the user has in front of him: the name in the box and the entry selected in the list.
struct SampleInput
{
    std::filesystem::path samplesFolder;
    std::string typedName; // code page bytes, without ".wav"
    std::optional<std::size_t> selected;
};

struct SampleResult
{
    bool changed = false;
    // On a change: the entry to select.
    std::size_t selected = 0;
    // What the box has to show instead of what was typed.
    std::optional<std::string> typedName;
};

// Puts the typed name behind the others.
SampleResult addSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs);
// Puts the typed name in the place of the selected one. With nothing typed, the selected name comes back.
SampleResult renameSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs);
// Takes the selected name off the line, after a question. One sample has to stay.
SampleResult removeSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs);

// Puts these names in the place of all samples. The ones that the line had already are not judged again.
// False when it was refused.
bool setSamples(LineEditor& editor, const std::vector<std::string>& names,
                const std::filesystem::path& samplesFolder, Dialogs& dialogs);

// How samples get their names that come from sound files.
enum class SampleNames { Asked, AsProposed };

// Converts sound files of any kind into the samples folder and puts them behind the other samples, all in one
// change of the line. Every name is tested against the line before a file is written; a sample that is there
// already is replaced only after a question, and is kept. A file that lies in the samples folder stays under
// its name.
SampleResult addSoundFiles(LineEditor& editor, const std::vector<std::filesystem::path>& files,
                           const std::filesystem::path& samplesFolder, SampleNames naming, Dialogs& dialogs);

// A name for the sample of a sound file, at most `room` long, without accents and blanks, that neither the
// folder nor the line has.
std::string proposedSampleName(const std::filesystem::path& file, const std::filesystem::path& folder,
                               const std::vector<std::string>& names, std::size_t room);

enum class SampleChange { Add, Rename };

// The rules for a name in a list of samples: no blank, room in the sample field, a file of the right format.
// The first rule that is broken shows its message; the one about the format offers to convert the file. For
// Rename an entry must be selected and a name typed.
bool ValidateSampleName(SampleChange change, const std::vector<std::string>& names, const SampleInput& input,
                        Dialogs& dialogs);

} // namespace tavrel
