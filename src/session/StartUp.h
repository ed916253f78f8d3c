// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Programs.h"
#include "settings/Places.h"
#include "settings/ProgramSettings.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

struct LevelEditorChoice
{
    std::string drive;
    std::string folder; // with a trailing separator
};

// The folder of the level editor's program. The name is cut off by its length, which only fits the two
// programs that the file dialog lets through. Nothing when the path is too short for either.
std::optional<LevelEditorChoice> levelEditorFromProgram(std::string_view programPath);

// Asks for the level editor's program until the choice is usable. Nothing when the user cancels.
std::optional<LevelEditorChoice> chooseLevelEditor(Dialogs& dialogs,
                                                   const std::filesystem::path& startFolder);

struct StartContext
{
    std::filesystem::path programFolder;
    Dialogs& dialogs;
    Programs& programs;
    // The language window of the first start; nothing when the user quits there.
    std::function<std::optional<Language>()> chooseLanguage;
    // Called as soon as the language is known, before anything is shown in it.
    std::function<void(Language)> languageChosen;
};

struct StartedSession
{
    ProgramSettings settings;
    // Closing keeps a copy of the settings file before it writes a new one.
    bool settingsDamaged = false;
};

// Everything up to the main window: working files, settings, the choice of the level editor. Nothing when the
// program is to end.
std::optional<StartedSession> startSession(const StartContext& context);

// What the user must know about the folders, once at the start; empty when all is well.
std::optional<Message> writabilityWarning(const Places& places);

} // namespace tavrel
