// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusProgress.h"

#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

namespace tavrel {

StatusProgress::StatusProgress(QWidget& window, const FmSFXControls& controls, Language language)
    : m_window(window), m_controls(controls), m_language(language), m_focus(window.focusWidget())
{}

StatusProgress::~StatusProgress()
{
    if (!m_begun) {
        return;
    }
    setPaper(*m_controls.LbInfo, false);
    m_controls.LbInfo->clear();
    m_controls.PbBusy->hide();
    m_controls.LbPath->show();
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
    m_controls.LbPath->hide();
    m_controls.PbBusy->setRange(0, 0);
    m_controls.PbBusy->show();
    setPaper(*m_controls.LbInfo, true);
    setPaperText(*m_controls.LbInfo, {});
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); // lays the row out
    m_painted.start();
}

bool StatusProgress::show(std::size_t done, std::size_t total)
{
    begin();
    m_controls.PbBusy->setRange(0, static_cast<int>(total));
    m_controls.PbBusy->setValue(static_cast<int>(done));
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
    setPaperText(*m_controls.LbInfo, inLanguage(text, m_language));
    m_controls.LbInfo->repaint();
}

void StatusProgress::alarm()
{
    m_pointer.reset();
    setPaperText(*m_controls.LbInfo, m_controls.LbInfo->text(), true);
}

void StatusProgress::wait()
{
    begin();
    setPaper(*m_controls.LbInfo, false);
    m_controls.LbInfo->clear();
    m_controls.PbBusy->setRange(0, 0);
    m_window.setEnabled(false);
}

} // namespace tavrel
