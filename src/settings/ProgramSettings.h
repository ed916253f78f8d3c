// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Programs.h"
#include "base/Result.h"
#include "base/TextFile.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

// The main window's panels that can be shown and folded, in the order of the settings file.
enum class Panel {
    WadFunctions,
    ProgramFunctions,
    Modifications,
    EditFunctions,
    Wads,
    LettersObjects,
    Samples,
    Line
};
constexpr std::size_t panelCount = 8;

// What the user chose, kept in Tavrel.par. Texts are code page bytes. The initial values are the presets that
// hold where the file says nothing.
struct ProgramSettings
{
    std::string drive = "C:\\";    // the first two characters of the level editor's path, and a separator
    std::string LevelEditorFolder; // with a trailing separator
    std::string lastLetter;
    std::string lastWad;
    Language language = Language::English;
    bool protectedLinesEditable = false;
    WindowMode notepadMode = WindowMode::Normal;
    bool loadWadAfterChanges = true;
    std::array<bool, panelCount> panels = {true, false, true, true, true, true, true, false};
    ColourScheme colours;

    bool& panel(Panel which) { return panels[static_cast<std::size_t>(which)]; }
    bool panel(Panel which) const { return panels[static_cast<std::size_t>(which)]; }

    friend bool operator==(const ProgramSettings&, const ProgramSettings&) = default;
};

struct LoadedSettings
{
    ProgramSettings settings;
    // Which lines could not be read; their presets apply. The file is then worth a copy before it is
    // replaced.
    std::optional<Failure> damage;
};

// A file that cannot be opened or is no text is all damage, with every preset.
LoadedSettings LoadSettings(const std::filesystem::path& programFolder);
LoadedSettings parseSettings(const TextFile& file);

// All 28 fields.
[[nodiscard]] Problem SaveSettings(const std::filesystem::path& programFolder,
                                   const ProgramSettings& settings);
// The file of the first start: where the level editor is.
[[nodiscard]] Problem saveFirstSettings(const std::filesystem::path& programFolder,
                                        const ProgramSettings& settings);
// Writes all fields in the place of a damaged file, which is kept under another name first.
[[nodiscard]] Problem replaceDamagedSettings(const std::filesystem::path& programFolder,
                                             const ProgramSettings& settings);

// Folders are kept with the system's separators.
char folderSeparator();
std::string withTrailingSeparator(std::string folder);

} // namespace tavrel
