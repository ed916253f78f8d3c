// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tavrel {

// False for users who asked their system for less motion.
bool systemLikesMotion();

} // namespace tavrel
