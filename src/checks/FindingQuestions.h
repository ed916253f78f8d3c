// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Message.h"
#include "checks/Finding.h"

#include <span>

// What is told without being asked for. Answer::Other shows the findings in their window.
namespace tavrel {

// After a load: what is wrong with the file itself. Enter goes on.
Question fileErrorsNotice(std::span<const Finding* const> errors);
// Before a generation: what would go into the level. Answer::Ok generates all the same.
Question carriedErrorsQuestion(std::span<const Finding* const> errors, const SoundCatalogue& catalogue);

} // namespace tavrel
