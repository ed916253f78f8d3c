// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

namespace tavrel {

// "2026-11-21 15:30:05", in the user's time zone: later times sort behind earlier ones.
std::string localTimeText(std::chrono::system_clock::time_point time);

} // namespace tavrel
