// SPDX-License-Identifier: GPL-3.0-or-later
// The inputs that once broke something, and one of each kind, without the fuzzer.
#include "fuzz/Targets.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(Fuzz, TheCorpusBreaksNothing)
{
    for (const fuzz::Target& target : fuzz::targets()) {
        const std::filesystem::path folder = std::filesystem::path(TAVREL_FUZZ_CORPUS) / target.name;
        const std::vector<std::string> names = namesIn(folder);
        EXPECT_FALSE(names.empty()) << folder;
        for (const std::string& name : names) {
            SCOPED_TRACE(folder / name);
            const std::string bytes = readBytes(folder / name);
            // Cut at any place, as a torn file is.
            for (std::size_t length = 0; length < bytes.size(); length += 1 + bytes.size() / 64) {
                target.feed(std::string_view(bytes).substr(0, length));
            }
            target.feed(bytes);
        }
    }
}
