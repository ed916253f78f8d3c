// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

// The readers of everything that comes from outside, fed with any bytes. They work in memory, so that a
// fuzzer can try thousands in a second; the ordinary tests feed them with the files of the corpus.
namespace tavrel::fuzz {

struct Target
{
    std::string_view name;
    // Ends the program when a promise is broken.
    void (*feed)(std::string_view bytes);
};

std::span<const Target> targets();

} // namespace tavrel::fuzz
