// SPDX-License-Identifier: GPL-3.0-or-later
// Puts copies of all files of one folder in the place of another's. The tests watch what its system calls
// leave behind when they fail.
#include "generation/FolderFiles.h"
#include "generation/FolderReplacement.h"

#include <cstdio>

// 0 when the files were replaced, 1 when not.
int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::puts("Usage: replace_once SOURCE TARGET");
        return 2;
    }
    const auto files = tavrel::filesIn(argv[1]);
    const auto oldFiles = tavrel::filesIn(argv[2]);
    if (!files || !oldFiles) {
        return 1;
    }
    tavrel::SilentProgress progress;
    const tavrel::Problem problem = tavrel::replaceFiles(*files, argv[2], *oldFiles, progress);
    if (problem) {
        std::puts(problem->text.english.c_str());
    }
    return problem ? 1 : 0;
}
