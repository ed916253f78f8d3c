// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace tavrel {

using ByteTable = std::array<char, 256>;

// Built from the system code page, each system in its own way.
ByteTable upperCaseTable();
ByteTable lowerCaseTable();

} // namespace tavrel
