// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeControls.h"

#include "ui/Controls.h"
#include "ui/Text.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace tavrel {

LineButtons::LineButtons(TickList& lines, SamplePlayer& player)
    : tickAll(makeButton("CdSelect", Glyph::Accept)), untickAll(makeButton("CdEfface", Glyph::RemoveItem)),
      play(makeButton("CdPlay2", Glyph::Play)), stop(makeButton("CdStopS2", Glyph::Stop))
{
    QObject::connect(tickAll, &QPushButton::clicked, &lines, [&lines] { lines.tickAll(true); });
    QObject::connect(untickAll, &QPushButton::clicked, &lines, [&lines] { lines.tickAll(false); });
    QObject::connect(stop, &QPushButton::clicked, &lines, [&player] { StopSample(player); });
    QObject::connect(&lines, &TickList::enterPressed, play, &QPushButton::click);
}

CopyStatus::CopyStatus()
    : info(makePaperLabel("LbInfo")), bar(named(new QProgressBar, "PbCopy")),
      cancel(makeButton("CdCancelCopy", Glyph::Close))
{
    bar->setTextVisible(false);
    bar->setFixedSize(180, 14);
    QHBoxLayout* const row = rowOf({info, bar, cancel});
    row->setContentsMargins(0, 0, 0, 0);
    row->setStretch(0, 1);
    row->setAlignment(Qt::AlignRight);
    setLayout(row);
    setFixedHeight(cancel->sizeHint().height()); // the window does not move when something is to be said
    info->hide();
    bar->hide();
    cancel->hide();
}

void CopyStatus::showText(const BilingualText& text, Language language) const
{
    setPaperText(*info, inLanguage(text, language));
    info->setVisible(!text.empty());
}

CopyProgress::CopyProgress(CopyStatus& status, QWidget& rest, Language language)
    : m_status(status), m_rest(rest), m_focusBefore(rest.window()->focusWidget()), m_language(language),
      m_connection(
          QObject::connect(status.cancel, &QPushButton::clicked, &status, [this] { m_cancelled = true; }))
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

CopyProgress::~CopyProgress()
{
    QObject::disconnect(m_connection);
    m_status.bar->hide();
    m_status.cancel->hide();
    m_status.showText({}, m_language);
    m_rest.setEnabled(true);
    if (m_focusBefore != nullptr) {
        m_focusBefore->setFocus();
    }
    QApplication::restoreOverrideCursor();
}

bool CopyProgress::show(std::size_t done, std::size_t total)
{
    m_status.bar->setRange(0, static_cast<int>(total));
    m_status.bar->setValue(static_cast<int>(done));
    if (m_rest.isEnabled()) {
        m_rest.setEnabled(false);
        m_status.bar->show();
        m_status.cancel->show();
        m_status.cancel->setFocus();
        QApplication::changeOverrideCursor(Qt::BusyCursor); // the button can be pressed
    }
    QCoreApplication::processEvents();
    return !m_cancelled;
}

void CopyProgress::say(const BilingualText& text)
{
    m_status.showText(text, m_language);
    m_status.info->repaint();
}

} // namespace tavrel
