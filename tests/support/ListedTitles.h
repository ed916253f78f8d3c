// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace tavrel {

// Fails the test when no title, which the help follows, begins so in either language. Behind the fixed part
// of some stands a name.
void expectListedWindowTitle(std::string_view title);

} // namespace tavrel
