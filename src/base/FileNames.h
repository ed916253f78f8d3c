// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

// The names of all files and folders that the program and the level editor know each other's data by. They
// are looked up without regard to letter case and written as they stand here.
namespace tavrel {

// In the level editor's folder of sounds.txt.
constexpr std::string_view soundsFileName = "Sounds.txt";
constexpr std::string_view firstBackupName = "Orig_Sounds.txt";
// Where the last catalogue that a restore replaced is kept; older ones have a number.
constexpr std::string_view replacedCatalogueName = "Sounds_replaced.txt";
// Here, because one program folder may serve several level editors.
constexpr std::string_view versionsFolderName = "Sounds_versions";
constexpr std::string_view batchFileName = "CreateSFX.bat";

// In the program folder: what the program reads.
constexpr std::string_view originalLinesFileName = "Tavrel.tos";
constexpr std::string_view doublesFileName = "Tavrel.tod";
constexpr std::string_view objectsFileName = "Tavrel.too";
constexpr std::string_view builtInReferencesFileName = "Tavrel.tow";
// What it writes.
constexpr std::string_view userReferencesFileName = "Tavrel.paw";
constexpr std::string_view letterReplacementsFileName = "Tavrel.tol";
constexpr std::string_view settingsFileName = "Tavrel.par";
constexpr std::string_view optionsFileName = "Tavrel.opt";
constexpr std::string_view generationOutputFileName = "CreateSFX.log";
constexpr std::string_view changedLinesFolderName = "sounds";
constexpr std::string_view backupsFolderName = "Backups";
constexpr std::string_view recoveryFolderName = "Recovery";

// Locks. Whoever writes what lies in the program folder.
constexpr std::string_view changesLock = "Tavrel.lock";
// Whoever generates, beside the batch file, which programs in several folders would share, and in the program
// folder, where the tool's words are kept.
constexpr std::string_view generationLock = "CreateSFX.bat.tavrel-lock";
// Behind the name of the file itself, beside it: programs in several folders may write one sounds.txt.
constexpr std::string_view fileLockEnding = ".tavrel-lock";
// Beside sounds.txt, for the samples folder of the level editor.
constexpr std::string_view samplesLock = "Samples.tavrel-lock";

} // namespace tavrel
