// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <string_view>

namespace tavrel {

// Fail the test when a title is not in the table of titles, which the help follows.
void expectListedTitle(const BilingualText& title);
// In either language; behind the fixed part of a title stands a name.
void expectListedWindowTitle(std::string_view title);

} // namespace tavrel
