// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusProgress.h"

#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

namespace tavrel {

StatusProgress::StatusProgress(QWidget& window, StatusRow& row, Language language)
    : m_window(window), m_row(row), m_language(language), m_focus(window.focusWidget())
{}

StatusProgress::~StatusProgress()
{
    if (!m_begun) {
        return;
    }
    setPaperText(m_row.info(), {});
    m_row.bar().hide();
    m_row.setFolderVisible(true);
    if (!m_window.isEnabled()) {
        m_window.setEnabled(true);
        if (m_focus) {
            m_focus->setFocus();
        }
    }
}

// The text needs the room of the path.
void StatusProgress::begin()
{
    if (m_begun) {
        return;
    }
    m_begun = true;
    m_pointer.emplace();
    m_row.setFolderVisible(false);
    m_row.bar().setRange(0, 0);
    m_row.bar().show();
    setPaperText(m_row.info(), {});
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); // lays the row out
    m_painted.start();
}

bool StatusProgress::show(std::size_t done, std::size_t total)
{
    begin();
    m_row.bar().setRange(0, static_cast<int>(total));
    m_row.bar().setValue(static_cast<int>(done));
    constexpr qint64 paintingMilliseconds = 30;
    if (m_painted.elapsed() >= paintingMilliseconds) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        m_painted.restart();
    }
    return true;
}

void StatusProgress::say(const BilingualText& text)
{
    begin();
    setPaperText(m_row.info(), inLanguage(text, m_language));
    m_row.info().repaint();
}

void StatusProgress::alarm()
{
    m_pointer.reset();
    setPaperText(m_row.info(), m_row.info().text(), true);
}

void StatusProgress::wait(const BilingualText& what)
{
    begin();
    setPaperText(m_row.info(), inLanguage(what, m_language));
    m_row.bar().setRange(0, 0);
    m_window.setEnabled(false);
}

} // namespace tavrel
