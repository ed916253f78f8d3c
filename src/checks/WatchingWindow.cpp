// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/WatchingWindow.h"

#include "ui/Text.h"

#include <QShortcut>
#include <QTreeWidget>

namespace tavrel {

WatchingWindow::WatchingWindow(QWidget* parent, Language language, std::chrono::milliseconds moment)
    : TitledWindow(parent), m_language(language)
{
    setSizeGripEnabled(true);
    m_soon.setSingleShot(true);
    m_soon.setInterval(moment);
    connect(&m_soon, &QTimer::timeout, this, [this] { run(); });
}

void WatchingWindow::activateFrom(QTreeWidget& list)
{
    connect(&list, &QTreeWidget::itemDoubleClicked, this, [this] { activate(); });
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const enter = new QShortcut(QKeySequence(key), &list);
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [this] { activate(); });
    }
}

void WatchingWindow::showEvent(QShowEvent* event)
{
    TitledWindow::showEvent(event);
    if (!m_isCurrent) {
        m_soon.start(0);
    }
}

void WatchingWindow::refresh()
{
    m_isCurrent = m_isCurrent && isVisible();
    if (isVisible()) {
        m_soon.start();
    }
}

void WatchingWindow::setLanguage(Language language)
{
    m_language = language;
    showCaptions();
    fill();
}

QString WatchingWindow::in(const BilingualText& text) const
{
    return inLanguage(text, m_language);
}

} // namespace tavrel
