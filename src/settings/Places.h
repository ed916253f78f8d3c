// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace tavrel {

// Where everything is, as it stands on the disk.
struct Places
{
    std::filesystem::path program; // settings and working files
    std::filesystem::path levelEditor;
    std::filesystem::path creator; // sound\LevelSFX Creator: sounds.txt and the generation tool
    std::filesystem::path samples; // sound\Samples
    std::filesystem::path wads;    // graphics\wads
};
// The level editor's folder in code page bytes, as the settings have it.
Places derivePlaces(const std::filesystem::path& programFolder, std::string_view levelEditorFolder);

} // namespace tavrel
