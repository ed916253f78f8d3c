// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "references/ReferenceRegister.h"

#include <string>

namespace tavrel {

// The WAD whose level the user works on, as the main window's boxes hold it. All empty when none is chosen.
struct CurrentWad
{
    std::string wadName;
    std::string letter;
    std::string title;

    friend bool operator==(const CurrentWad&, const CurrentWad&) = default;
};

inline CurrentWad currentWad(const WadReference* reference)
{
    return reference != nullptr ? CurrentWad{reference->wadName, reference->letter, reference->title}
                                : CurrentWad();
}

} // namespace tavrel
