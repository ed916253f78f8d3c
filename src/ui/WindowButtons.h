// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <QWidget>

class QPushButton;

namespace tavrel {

class TitledWindow;

// Minimise, and maximise or restore, in the title row of a window that may do so.
class WindowButtons : public QWidget
{
    Q_OBJECT

public:
    explicit WindowButtons(TitledWindow& window);

    void showLanguage(Language language);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();

    TitledWindow& m_window;
    Language m_language = Language::English;
    QPushButton* m_minimise;
    QPushButton* m_maximise;
};

} // namespace tavrel
