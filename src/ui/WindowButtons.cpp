// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/WindowButtons.h"

#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "ui/TitledWindow.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>

namespace tavrel {

WindowButtons::WindowButtons(TitledWindow& window)
    : QWidget(&window), m_window(window), m_minimise(makeIconButton("CdMinimise", Glyph::Minimise)),
      m_maximise(makeIconButton("CdMaximise", Glyph::Maximise))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (QPushButton* const button : {m_minimise, m_maximise}) {
        button->setProperty("frameless", true);
        button->setFocusPolicy(Qt::NoFocus); // the system's own keys do the same
        row->addWidget(button);
    }
    connect(m_minimise, &QPushButton::clicked, &window, &QWidget::showMinimized);
    connect(m_maximise, &QPushButton::clicked, &window, &TitledWindow::toggleMaximised);
    window.installEventFilter(this);
    follow();
}

void WindowButtons::showLanguage(Language language)
{
    m_language = language;
    follow();
}

bool WindowButtons::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowStateChange) {
        follow();
    }
    return QWidget::eventFilter(watched, event);
}

void WindowButtons::follow()
{
    const bool maximised = m_window.isMaximized();
    m_maximise->setIcon(glyphIcon(maximised ? Glyph::RestoreWindow : Glyph::Maximise, theme::text));
    const Caption captions[] = {
        {"CdMinimise", {}, {"Minimise", "Réduire"}},
        {"CdMaximise",
         {},
         maximised ? BilingualText("Restore the window's size", "Rétablir la taille de la fenêtre")
                   : BilingualText("Maximise", "Agrandir")},
    };
    showCaptions(*this, captions, m_language);
}

} // namespace tavrel
