// SPDX-License-Identifier: GPL-3.0-or-later
// One of the targets for the fuzzer: the one whose name TAVREL_FUZZ_TARGET is.
#include "fuzz/Targets.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto target = std::ranges::find(tavrel::fuzz::targets(), TAVREL_FUZZ_TARGET,
                                                 [](const tavrel::fuzz::Target& each) { return each.name; });
    target->feed({reinterpret_cast<const char*>(data), size});
    return 0;
}
