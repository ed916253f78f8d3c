// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Mnemonics.h"

#include <QAbstractButton>

namespace tavrel {

namespace {

struct Mnemonic
{
    const char* button = nullptr;
    char english = 0;
    char french = 0;
};

constexpr Mnemonic mnemonics[] = {
    {"CdCopy", 'G', 'N'},     {"CdLoadSAM", 'I', 'I'},  {"CdLoadWAS", 'W', 'W'},  {"CdViewWAD", 'V', 'V'},
    {"CdRefW", 'M', 'G'},     {"CdStats", 'J', 'S'},    {"CdSmpCheck", 'D', 'C'}, {"CdImport", 'B', 'U'},
    {"CdExport", 'E', 'X'},   {"CdValidW", 'A', 'L'},   {"CdRestore", 'R', 'R'},  {"CdApply", 'C', 'M'},
    {"CdCopyLine", 'L', 'D'}, {"CdEdit", 'O', 'O'},     {"CdShowG", 'S', 'H'},    {"CdTools", 'T', 'T'},
    {"OpLangE", 'N', 'E'},    {"OpLangF", 'F', 'F'},    {"CdHlp", 'H', 'A'},      {"CdParam", 'P', 'P'},
    {"CdQuit", 'Q', 'Q'},     {"CdFirstUse", 'K', 'B'},
};

} // namespace

void showMnemonics(QWidget& window, Language language)
{
    for (const Mnemonic& mnemonic : mnemonics) {
        auto* const button = window.findChild<QAbstractButton*>(mnemonic.button);
        Q_ASSERT_X(button != nullptr, "showMnemonics", mnemonic.button);
        const char letter = language == Language::French ? mnemonic.french : mnemonic.english;
        QString text = button->text().remove('&');
        text.insert(text.indexOf(QLatin1Char(letter), 0, Qt::CaseInsensitive), '&');
        button->setText(text);
    }
}

} // namespace tavrel
