// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <string_view>

namespace tavrel {

// A title of the built-in references or a type of objects, as the files beside the program have it, in both
// languages and UTF-8. Any other text, such as a title of the user's, stays as it is.
BilingualText shippedText(std::string_view text);

} // namespace tavrel
