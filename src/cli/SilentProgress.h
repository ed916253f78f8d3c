// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

namespace tavrel {

// Scripts do not watch.
class SilentProgress : public Progress
{
public:
    bool show(std::size_t /*done*/, std::size_t /*total*/) override { return true; }
};

} // namespace tavrel
