// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueLoading.h"
#include "references/ReferenceRegister.h"

#include <vector>

namespace tavrel {

// What the user works on.
struct LoadedSession
{
    ReferenceRegister references;
    SoundCatalogue catalogue;
    std::vector<Failure> notices; // what was passed over, for the user to know
};

Result<LoadedSession> loadSession(const CatalogueSources& sources);

} // namespace tavrel
