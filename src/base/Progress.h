// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>

namespace tavrel {

// How a long command tells where it is.
class Progress
{
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    // Before each step and once at the end (done == total). False when the user wants to stop; a command that
    // cannot stop between steps ignores it.
    virtual bool show(std::size_t done, std::size_t total) = 0;
    // What the step works on, for those who have a place for words.
    virtual void say(const BilingualText& /*text*/) {}
};

// Nobody watches, as in scripts.
class SilentProgress : public Progress
{
public:
    bool show(std::size_t /*done*/, std::size_t /*total*/) override { return true; }
};

} // namespace tavrel
