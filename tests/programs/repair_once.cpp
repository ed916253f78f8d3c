// SPDX-License-Identifier: GPL-3.0-or-later
// Repairs a sample, or puts its original back. The tests watch what its system calls leave behind when they
// fail.
#include "samples/SampleRepair.h"

#include <cstdio>
#include <string_view>

// 0 when it was done, 1 when not.
int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::puts("Usage: repair_once repair|back SAMPLE");
        return 2;
    }
    const tavrel::SampleOutcome outcome = std::string_view(argv[1]) == "repair"
                                              ? tavrel::repairSample(argv[2])
                                              : tavrel::putOriginalBack(argv[2]);
    std::puts(outcome.text.english.c_str());
    return outcome.done ? 0 : 1;
}
