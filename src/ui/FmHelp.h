// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "ui/TitledWindow.h"

#include <string>

class QPlainTextEdit;

namespace tavrel {

// The help of the display language.
class FmHelp : public TitledWindow
{
    Q_OBJECT

public:
    FmHelp(QWidget* parent, const std::string& text, const ColourScheme& colours, Language language);

    // Opens there.
    void showHeading(const QString& heading);

protected:
    // A click beside the text closes the window, too.
    void mousePressEvent(QMouseEvent* event) override;
    void showHelp() override {}
    void showEvent(QShowEvent* event) override;

private:
    QPlainTextEdit* m_view;
    int m_line = 0; // on top when the window opens
};

} // namespace tavrel
