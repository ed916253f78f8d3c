// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <QString>
#include <QValidator>

#include <string>
#include <string_view>

namespace tavrel {

// The edge between the core's bytes and the windows' text; nothing else converts.
QString fromCodePage(std::string_view bytes);
// A character without a place in the code page becomes "?".
std::string toCodePage(const QString& text);
bool fitsCodePage(const QString& text);

// Lets no character into a text box that the code page cannot hold.
class CodePageValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& text, int& position) const override;
};

// A tool tip that shows the text of a file as it stands, whatever markup it seems to hold.
QString plainToolTip(const QString& text);

QString inLanguage(const BilingualText& text, Language language);

} // namespace tavrel
