// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusRow.h"

#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSizeGrip>

namespace tavrel {

StatusRow::StatusRow(QWidget& window)
    : m_folder(makeElidedLabel("LbPath")), m_info(makeElidedLabel("LbInfo")),
      m_bar(named(new QProgressBar, "PbBusy")), m_pending(makeHeading("LbPending"))
{
    m_folder->setProperty("muted", true);
    m_bar->setTextVisible(false);
    m_bar->setFixedSize(140, 14);
    m_bar->hide();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(controlGap);
    row->addWidget(m_folder, 1);
    row->addWidget(m_info, 1);
    row->addWidget(m_bar);
    row->addWidget(m_pending);
    row->addWidget(new QSizeGrip(&window), 0, Qt::AlignBottom);
}

void StatusRow::say(const BilingualText& text)
{
    m_said = text;
    m_info->setText(inLanguage(text, m_language));
}

void StatusRow::showLanguage(Language language)
{
    m_language = language;
    const Caption captions[] = {
        {"LbPath", {}, {"Level editor folder", "Répertoire de l'éditeur de niveaux"}},
    };
    showCaptions(*this, captions, language);
    say(m_said);
    showPending(m_isPending, m_isUnrecoverable);
}

void StatusRow::showFolder(const QString& folder)
{
    m_folder->setText(folder);
}

void StatusRow::setFolderVisible(bool visible)
{
    m_folder->setVisible(visible);
}

void StatusRow::showPending(bool pending, bool unrecoverable)
{
    m_isPending = pending;
    m_isUnrecoverable = unrecoverable;
    BilingualText text;
    if (pending) {
        text = {"Modifications not yet applied", "Modifications non encore appliquées"};
    }
    if (unrecoverable) {
        text += BilingualText(pending ? " - no recovery" : "No recovery",
                              pending ? " - sans récupération" : "Sans récupération");
    }
    m_pending->setText(inLanguage(text, m_language));
}

} // namespace tavrel
