// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace tavrel {

// Where a program folder may be.
struct ProgramPlaces
{
    std::filesystem::path ownFolder; // of the running program
    std::filesystem::path
        installed;               // the files that an installation for all users keeps for every user's folder
    std::filesystem::path users; // the user's own; empty where the system has no such place
};
ProgramPlaces programPlaces();

// The folder of settings and working files when the user named none: the program's own one, unless the
// program is installed for all users or may not write there. Then it is the user's own folder, made and
// filled with the installed files that it lacks, and with the installed help.
std::filesystem::path usualProgramFolder(const ProgramPlaces& places);

} // namespace tavrel
