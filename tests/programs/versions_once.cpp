// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a version of a sounds.txt, or brings a set of samples back. The tests watch what its system calls
// leave behind when they fail.
#include "base/TextFile.h"
#include "versions/KeptVersions.h"

#include <cstdio>
#include <string_view>

namespace {

int say(const tavrel::Problem& problem)
{
    if (problem) {
        std::puts(problem->text.english.c_str());
    }
    return problem ? 1 : 0;
}

} // namespace

// 0 when it was done, 1 when not.
int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::puts("Usage: versions_once keep SOUNDS_FILE | bring_back SAMPLES_FOLDER");
        return 2;
    }
    const std::filesystem::path path = argv[2];
    if (argv[1] == std::string_view("keep")) {
        const auto content = tavrel::readFile(path);
        const auto kept = content ? tavrel::keepVersion(path, content->bytes, "oasis")
                                  : tavrel::Result<std::filesystem::path>(content.failure());
        return say(kept ? tavrel::Problem() : tavrel::Problem(kept.failure()));
    }
    std::filesystem::path set = path;
    set += "_replaced";
    tavrel::SilentProgress progress;
    return say(
        tavrel::bringBackSet({tavrel::KeptKind::SamplesSet, set, {}, {}, {}, 0}, {{}, path, {}}, progress));
}
