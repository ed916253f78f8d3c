// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Title.h"

namespace tavrel {

namespace {

std::vector<BilingualText>& declared()
{
    static std::vector<BilingualText> titles;
    return titles;
}

} // namespace

Title::Title(std::string english, std::string french) : BilingualText(std::move(english), std::move(french))
{
    declared().push_back(*this);
}

const std::vector<BilingualText>& Title::all()
{
    return declared();
}

} // namespace tavrel
