// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace tavrel {

// What takes a place in a message: a name that is the same in both languages, or words of each.
struct TextPart
{
    TextPart(const std::string& name) : text(BilingualText::same(name)) {}
    TextPart(BilingualText words) : text(std::move(words)) {}

    BilingualText text;
};

// A message as a whole sentence in each language, with a part for each "{}", in their order.
BilingualText filled(BilingualText pattern, std::initializer_list<TextPart> parts);

} // namespace tavrel
