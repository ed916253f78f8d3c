// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

// A level editor folder and a program folder as a user has them, for trying the program and for its tests.
// Throws std::runtime_error when something cannot be written.
namespace tavrel {

enum class DemoSamples {
    All, // a valid file for every stock sample, and a handful of wrong ones
    None
};

// winroomedit.exe, Sounds.txt with comments between the stock lines, samples, four WADs, a script. `data`
// holds the working files.
void makeLevelEditorFolder(const std::filesystem::path& folder, const std::filesystem::path& data,
                           DemoSamples samples);

// The working files, two references for the user's own WADs, and settings with every panel shown.
void makeProgramFolder(const std::filesystem::path& folder, const std::filesystem::path& data,
                       const std::filesystem::path& levelEditor);

} // namespace tavrel
