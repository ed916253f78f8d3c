// SPDX-License-Identifier: GPL-3.0-or-later
// Changes the samples of sound 0 and applies, as a user does who says Yes to everything. The tests watch what
// its system calls leave behind when they fail.
#include "YesToAll.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"

#include <cstdio>

// 0 when sounds.txt was written, 1 when not, 2 when there was nothing to write.
int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::puts("Usage: apply_once PROGRAM_FOLDER CREATOR_FOLDER LINE");
        return 2;
    }
    tavrel::Result<tavrel::LoadedCatalogue> loaded = tavrel::loadCatalogue({argv[1], argv[2], false});
    if (!loaded || loaded->catalogue.empty() || loaded->catalogue.setCurrentLine(0, argv[3])) {
        return 2;
    }
    YesToAll dialogs;
    return tavrel::applyChanges(loaded->catalogue, {argv[1], "oasis"}, dialogs) ? 0 : 1;
}
