// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Titles.h"
#include "ui/ColourDialog.h"
#include "ui/Colours.h"
#include "ui/Text.h"

#include <QColorDialog>

namespace tavrel {

std::optional<ColourValue> askForColour(QWidget* parent, ColourValue current, KeptColours& kept,
                                        Language language)
{
    for (std::size_t i = 0; i < kept.size(); ++i) {
        QColorDialog::setCustomColor(static_cast<int>(i), colourFrom(kept[i]));
    }
    QColorDialog dialog(colourFrom(current), parent);
    dialog.setObjectName("ColourDialog");
    dialog.setWindowTitle(inLanguage(titles::colours, language));
    const bool accepted = dialog.exec() == QDialog::Accepted;
    for (std::size_t i = 0; i < kept.size(); ++i) {
        kept[i] = colourValue(QColorDialog::customColor(static_cast<int>(i)));
    }
    return accepted ? std::optional(colourValue(dialog.selectedColor())) : std::nullopt;
}

} // namespace tavrel
