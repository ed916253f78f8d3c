// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstdint>

namespace tavrel {

// "840 bytes", "12.3 KB", "1.4 MB".
BilingualText shownSize(std::uintmax_t bytes);

} // namespace tavrel
