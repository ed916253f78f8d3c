// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Text.h"

#include "base/CodePage.h"

#include <QTextDocument>

namespace tavrel {

QString fromCodePage(std::string_view bytes)
{
    return QString::fromStdString(utf8FromCodePage(bytes));
}

std::string toCodePage(const QString& text)
{
    return codePageFromUtf8(text.toStdString()).bytes;
}

bool fitsCodePage(const QString& text)
{
    return codePageFromUtf8(text.toStdString()).exact;
}

QValidator::State CodePageValidator::validate(QString& text, int& /*position*/) const
{
    return fitsCodePage(text) ? Acceptable : Invalid;
}

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QString inLanguage(const BilingualText& text, Language language)
{
    return QString::fromStdString(text.in(language));
}

} // namespace tavrel
