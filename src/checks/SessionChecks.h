// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "checks/Checks.h"
#include "checks/Levels.h"
#include "session/Session.h"

#include <vector>

// The project check and the levels, of a session as it stands.
namespace tavrel {

CheckReport checkSession(const Session& session, const CurrentWad& wad, Progress& progress);
// Those of the file itself.
CheckReport checkFileOf(const Session& session);
Result<std::vector<LevelSurvey>> surveySession(const Session& session);

} // namespace tavrel
