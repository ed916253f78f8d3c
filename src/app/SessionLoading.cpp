// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SessionLoading.h"

#include "references/LetterReplacementNote.h"

namespace tavrel {

Result<LoadedSession> loadSession(const CatalogueSources& sources)
{
    Result<LoadedRegister> references = loadRegister(sources.programFolder);
    if (!references) {
        return references.failure();
    }
    Result<LoadedCatalogue> catalogue = loadCatalogue(sources);
    if (!catalogue) {
        return catalogue.failure();
    }
    LoadedSession loaded{std::move(references->references), std::move(catalogue->catalogue),
                         std::move(references->notices)};
    loaded.notices.insert(loaded.notices.end(), catalogue->notices.begin(), catalogue->notices.end());
    const std::vector<Failure> halves =
        halfReplacedLetters(sources.programFolder, loaded.catalogue, loaded.references);
    loaded.notices.insert(loaded.notices.end(), halves.begin(), halves.end());
    return loaded;
}

} // namespace tavrel
