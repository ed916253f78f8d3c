// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <vector>

namespace tavrel {

// The title of a window, a file dialog, a question or a message. Users look it up in the help, so all of them
// are constants in Titles.h, and tests hold each against the help.
class Title : public BilingualText
{
public:
    Title() = default;
    explicit Title(std::string english, std::string french);
    static Title same(const std::string& text) { return Title(text, text); }

    // As they were declared, in no order.
    static const std::vector<BilingualText>& all();
};

} // namespace tavrel
