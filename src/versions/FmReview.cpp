// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/FmReview.h"

#include "base/Titles.h"
#include "catalogue/LineEditor.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "versions/DifferenceView.h"
#include "versions/VersionsContext.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int droppedHeight = 110;

const DifferenceSides reviewSides{{"In the file", "Dans le fichier"},
                                  {"Now", "Maintenant"},
                                  {"new line", "nouvelle ligne"},
                                  {"taken out", "retirée"}};

} // namespace

FmReview::FmReview(QWidget* parent, Session& session, Dialogs& dialogs, ReviewDoors doors)
    : TitledWindow(parent), m_session(session), m_dialogs(dialogs), m_doors(std::move(doors)),
      m_view(new DifferenceView(reviewSides, session.settings().colours.slots[versionsColourSlot],
                                session.settings().language)),
      m_droppedTitle(makeHeading("LbDropped")), m_dropped(makeFixedPitchList("LiDropped")),
      m_apply(makeButton("CdApply", Glyph::Apply)), m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmReview");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    paintWith(*m_dropped, session.settings().colours.slots[versionsColourSlot]);
    m_view->useRowButton({"Put back", "Remettre"});
    layOut();
    showCaptions();
    connect(m_view, &DifferenceView::buttonPressed, this, &FmReview::putBack);
    connect(m_view, &DifferenceView::chosen, this, &FmReview::showSound);
    connect(m_apply, &QPushButton::clicked, this, &FmReview::apply);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    m_session.addObserver(*this);
    fill();
    fillDropped();
    m_view->setFocus();
}

FmReview::~FmReview()
{
    m_session.removeObserver(*this);
}

QString FmReview::inLanguage(const BilingualText& text) const
{
    return tavrel::inLanguage(text, m_session.settings().language);
}

void FmReview::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_dropped->setFixedHeight(droppedHeight);
    m_apply->setVisible(static_cast<bool>(m_doors.apply));
    auto* const buttons = rowOf({m_apply, m_close});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_view, 1);
    content().addWidget(m_droppedTitle);
    content().addWidget(m_dropped);
    content().addLayout(buttons);
    resize(900, 600);
}

void FmReview::showCaptions()
{
    const BilingualText apply("Apply changes to sounds.txt", "Appliquer les modifications à sounds.txt");
    const Caption captions[] = {
        {"LbDropped",
         {"Lines of the file that are not sounds and will not be written back",
          "Lignes du fichier qui ne sont pas des sons et ne seront pas réécrites"},
         {}},
        {"LiDropped",
         {},
         {"Comments and blank lines as they stand in the file; a mark shows those that look like a sound",
          "Commentaires et lignes vides tels qu'ils sont dans le fichier ; une marque signale ceux qui "
          "ressemblent à un son"}},
        {"CdApply", apply, apply},
        {"CdClose", {"Close", "Fermer"}, {"Close", "Fermer"}},
    };
    tavrel::showCaptions(*this, captions, m_session.settings().language);
    setWindowTitle(inLanguage(titles::reviewChanges));
}

void FmReview::fill()
{
    m_changes = pendingChanges(m_session.catalogue());
    std::vector<DifferenceRow> rows;
    for (const PendingChange& change : m_changes) {
        rows.push_back({change.number, std::nullopt, change.before, change.after});
    }
    m_view->setRows(std::move(rows));
    m_apply->setEnabled(m_session.pending());
}

void FmReview::fillDropped()
{
    const Result<std::vector<DroppedLine>> dropped = droppedLines(m_session.catalogue());
    const bool kept = m_session.options().flag(options::keepComments);
    const bool shown = dropped && !dropped->empty() && !kept;
    m_droppedTitle->setVisible(shown);
    m_dropped->setVisible(shown);
    if (!shown) {
        return;
    }
    const QString mark = inLanguage({"  (looks like a sound)", "  (ressemble à un son)"});
    for (const DroppedLine& line : *dropped) {
        auto* const item =
            new QListWidgetItem(QString("%1: ").arg(line.lineInFile, 4) + fromCodePage(line.text) +
                                (line.looksLikeSound ? mark : QString()));
        if (line.looksLikeSound) {
            item->setForeground(markColour(m_session.settings().colours.slots[versionsColourSlot]));
        }
        m_dropped->addItem(item);
    }
}

void FmReview::putBack(std::size_t row)
{
    const PendingChange change = m_changes.at(row);
    if (change.number && change.before) {
        backToFileLine(m_session.catalogue(), *change.number, m_dialogs);
    } else if (change.number) {
        const Step step(m_session.catalogue(), stepLabel({"Take out the line", "Retirer la ligne"},
                                                         m_session.catalogue(), *change.number));
        m_session.catalogue().takeLineOut(*change.number);
    } else {
        m_dialogs.show({MessageIcon::Information,
                        titles::reviewChanges,
                        {"A line that was taken out comes back by undoing the step that took it out.",
                         "Une ligne retirée revient en annulant l'étape qui l'a retirée."}});
    }
}

void FmReview::showSound(std::size_t row)
{
    if (const std::optional<std::size_t> number = m_changes.at(row).number) {
        m_doors.showSound(*number);
        reject();
    }
}

void FmReview::apply()
{
    if (m_doors.apply()) {
        accept();
    }
}

} // namespace tavrel
