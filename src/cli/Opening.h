// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ProcessLock.h"
#include "cli/Console.h"
#include "references/CurrentWad.h"
#include "session/Session.h"
#include "settings/ProgramSettings.h"

#include <memory>
#include <optional>
#include <string>

namespace tavrel {

// The settings, once they say where the level editor is. Nothing, and a message, when they cannot be used.
std::optional<ProgramSettings> openSettings(Console& console);

// Waits while another window or command changes the files. Nothing, and a message, when that lasts too long.
enum class SamplesToo { No, Yes };
std::unique_ptr<ChangeLocks> lockForChanges(Console& console, const Places& places, SamplesToo samples);

// The session of the program folder. Shows a message, and returns none, when a file cannot be used.
std::unique_ptr<Session> openSession(Console& console);
// For a command that writes what it has read: others wait for it. Nothing also when no reference has the name
// of the WAD whose record is to be written.
std::unique_ptr<Session> openSessionToChange(Console& console,
                                             const std::optional<std::string>& wadName = std::nullopt,
                                             SamplesToo samples = SamplesToo::No);

// For a command that reads the level editor's samples or WADs: whether a restore of them was cut short.
void tellCutRestores(const Places& places, Console& console);

// Takes the place of what was loaded, with these lines of sounds.txt read otherwise. False, and a message,
// when a file cannot be used.
bool loadAgain(Session& session, std::vector<LineReadOtherwise> readOtherwise, Console& console);

// True when there is such a sound; else a message.
bool hasSound(const Session& session, std::size_t number, Console& console);

// The reference with the name as it is, else without regard to letter case; or null.
const WadReference* referenceNamed(const ReferenceRegister& references, std::string_view wadName);
// Such a reference among the user's own; or null.
const WadReference* userReferenceNamed(const ReferenceRegister& references, std::string_view wadName);

// One of the user's own WADs, by its letter (without "#") or its name; else a message.
std::optional<CurrentWad> wadWithLetter(const Session& session, const std::string& letter, Console& console);
std::optional<CurrentWad> wadNamed(const Session& session, const std::string& name, Console& console);
void refuseWadName(const std::string& name, Console& console);

// Writes the lines that changed to sounds.txt; the record of changed lines is the named WAD's, usually that
// of the settings.
ExitStatus apply(Session& session, const std::optional<std::string>& wadName, Console& console);

// Writes the user's own references.
ExitStatus writeRegister(Session& session, Console& console);

} // namespace tavrel
