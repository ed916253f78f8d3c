// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/Places.h"

#include "base/CodePage.h"
#include "base/Folder.h"

namespace tavrel {

Places derivePlaces(const std::filesystem::path& programFolder, std::string_view levelEditorFolder)
{
    const std::filesystem::path editor = nativePath(levelEditorFolder);
    return {programFolder, editor, folderIn(editor, {"sound", "LevelSFX Creator"}),
            folderIn(editor, {"sound", "Samples"}), folderIn(editor, {"graphics", "wads"})};
}

} // namespace tavrel
