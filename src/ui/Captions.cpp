// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Captions.h"

#include "ui/Text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QWidget>

namespace tavrel {

namespace {

void setText(QWidget& control, const QString& text)
{
    if (auto* const button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text);
    } else if (auto* const label = qobject_cast<QLabel*>(&control)) {
        label->setText(text);
    }
}

} // namespace

void showCaptions(QWidget& window, std::span<const Caption> captions, Language language)
{
    for (const Caption& caption : captions) {
        auto* const control = window.findChild<QWidget*>(caption.control);
        Q_ASSERT_X(control != nullptr, "showCaptions", caption.control);
        const QString toolTip = inLanguage(caption.toolTip, language);
        control->setToolTip(toolTip);
        if (caption.text.empty()) {
            control->setAccessibleName(toolTip);
        } else {
            setText(*control, inLanguage(caption.text, language));
        }
    }
}

} // namespace tavrel
