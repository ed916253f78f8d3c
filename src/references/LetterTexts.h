// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Titles.h"

// Messages that the register and the commands on letters share.
namespace tavrel::letterTexts {

inline const Title& letterTitle = titles::letter;
inline const BilingualText twoCharacters("The letter must be 2 characters long",
                                         "La lettre doit faire 2 caractères");
inline const BilingualText startsWithG("Letter starting by [#g] not authorized",
                                       "Lettre commençant par [#g] non autorisée");
// The misspelling is what users know.
inline const BilingualText ofAllLevelsStays("Letter [#g] shoudn't be removed",
                                            "La Lettre [#g] ne peut pas être retirée");
inline const BilingualText forbiddenCharacter("The letter holds a blank, a # or a quote",
                                              "La lettre contient un blanc, un # ou un guillemet");

} // namespace tavrel::letterTexts
