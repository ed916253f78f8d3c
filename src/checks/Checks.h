// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "checks/CheckSubject.h"
#include "checks/Finding.h"

#include <span>
#include <string_view>
#include <vector>

namespace tavrel {

class CheckRun;

// When a check looks. A word of a line belongs to the first check that names it.
enum class CheckTurn {
    First, // says which lines are no sounds
    Usual,
    Last // tells the rest
};

struct Check
{
    std::string_view name; // what scripts call it
    BilingualText title;   // what its findings have in common
    bool mendable;         // by a fix that needs nobody to go on
    CheckTurn turn;
    void (*run)(CheckRun& run);
};

// In the order in which findings are listed.
std::span<const Check> allChecks();
// None of that name is null.
const Check* findCheck(std::string_view name);

struct CheckReport
{
    std::vector<Finding> findings; // the grave ones first, then in the order of the checks and sounds
    std::vector<Failure> notices;  // what could not be looked at
    bool cancelled = false;
};
CheckReport runChecks(const CheckSubject& subject, Progress& progress);

// Errors of a WAD that its generation would carry into the level. Those of samples in a wrong format are not
// among them: the generation looks for these itself.
std::vector<const Finding*> errorsBeforeGeneration(const CheckReport& report, const SoundCatalogue& catalogue,
                                                   const CurrentWad& wad);
// The checks of the file itself, whose errors are told when it has been loaded: shifted sounds, and colons
// that are wrong or missing.
CheckReport runFileChecks(const CheckSubject& subject, Progress& progress);

} // namespace tavrel
