// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Menu.h"

namespace tavrel {

// Filters over sound lines: standard input to standard output, no other files.
void addLineCommands(const Menu& menu);
// The sounds of the catalogue: list, show, set.
void addCatalogueCommands(const Menu& menu);
void addLetterCommands(const Menu& menu);
// The register, and the imports of a WAD's lists.
void addReferenceCommands(const Menu& menu);
void addSampleCommands(const Menu& menu);
// The level editor's tool, its original files, its script.
void addGenerationCommands(const Menu& menu);
// What is wrong with the project, and its levels in numbers.
void addCheckCommands(const Menu& menu);
// Exchange files and backups.
void addExchangeCommands(const Menu& menu);
// Comparing, merging, and what was kept of earlier states.
void addVersionCommands(const Menu& menu);

} // namespace tavrel
