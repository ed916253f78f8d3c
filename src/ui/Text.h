// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <QString>

#include <string>
#include <string_view>

namespace tavrel {

// The edge between the core's bytes and the windows' text; nothing else converts.
QString fromCodePage(std::string_view bytes);
// A character without a place in the code page becomes "?".
std::string toCodePage(const QString& text);
bool fitsCodePage(const QString& text);

QString inLanguage(const BilingualText& text, Language language);

} // namespace tavrel
