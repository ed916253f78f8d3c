// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavrel {

// An object of the level editor and the sounds that it plays.
struct SoundObject
{
    std::string type; // from the comment line above the object's group
    std::string name; // at most 25 characters
    std::vector<std::size_t> sounds;
};

constexpr std::size_t maximumObjects = 100;
constexpr std::size_t maximumSoundsOfObject = 20;

// Fixed columns: name 1 to 25, count 26 and 27, then sound numbers of three digits from column 30, four
// columns apart; a 0 ends them. A line that starts with "*" is a comment and names the type of what follows.
// A name that holds "(" or "LOOP" is left out. Fails on a 101st object.
Result<std::vector<SoundObject>> parseObjectTable(const TextFile& file);

} // namespace tavrel
