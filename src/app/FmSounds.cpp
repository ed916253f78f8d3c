// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmSounds.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr QSize usualSize(900, 640);

} // namespace

FmSounds::FmSounds(QWidget* parent, SoundsText text, const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_text(std::move(text)), m_view(makeTextView("TxSound")),
      m_wanted(named(new QLineEdit, "TxSearch")), m_matchCase(named(new QCheckBox, "CkUL")),
      m_search(makeButton("CdLook", Glyph::Search)), m_start(makeButton("CdDebut", Glyph::ToStart)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmSounds");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut();
    showCaptions(language);
    paintWith(*m_view, colours.slots[ColourScheme::textSlot]);
    m_view->setPlainText(fromCodePage(m_text.text()));
    m_view->viewport()->installEventFilter(this);
    m_wanted->setValidator(new CodePageValidator(m_wanted));
    m_search->setEnabled(false);
    connect(m_wanted, &QLineEdit::textChanged, this,
            [this](const QString& wanted) { m_search->setEnabled(!wanted.isEmpty()); });
    connect(m_wanted, &QLineEdit::returnPressed, this, &FmSounds::search);
    connect(m_search, &QPushButton::clicked, this, &FmSounds::search);
    connect(m_start, &QPushButton::clicked, this, &FmSounds::goToStart);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_F3), QKeySequence(QKeySequence::Find)}) {
        auto* const shortcut = new QShortcut(keys, this);
        const bool again = keys == QKeySequence(Qt::Key_F3);
        connect(shortcut, &QShortcut::activated, this,
                [this, again] { again && m_search->isEnabled() ? search() : m_wanted->setFocus(); });
    }
    m_wanted->setFocus();
}

void FmSounds::layOut()
{
    auto* const info = named(new QLabel, "LbInfo");
    info->setWordWrap(true);
    info->setTextFormat(Qt::PlainText);
    m_wanted->setClearButtonEnabled(true);
    auto* const searching = rowOf({makeHeading("FrSearch"), named(new QLabel, "LbText"), m_wanted, m_search,
                                   m_matchCase, m_start, m_close});
    searching->setStretchFactor(m_wanted, 1);

    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(info);
    content().addWidget(m_view, 1);
    content().addLayout(searching);
    resize(usualSize);
}

void FmSounds::showCaptions(Language language)
{
    const Caption captions[] = {
        {"LbInfo",
         {"[sounds.txt] file is only for visualization as there are pending modifications on the main window. "
          "These modifications are not shown here. You're viewing the file as it is on your HDD.",
          "Le fichier [sounds.txt] est uniquement en visualisation car des modifications sont en cours dans la "
          "fenêtre principale. Ces modifications ne sont pas encore visibles ici. Vous voyez le fichier tel qu'il "
          "est sur le disque actuellement."},
         {}},
        {"TxSound",
         {},
         {"The file as it is on the disk. The search starts where you click.",
          "Le fichier tel qu'il est sur le disque. La recherche part de l'endroit où vous cliquez."}},
        {"FrSearch", {"Search", "Recherche"}, {}},
        {"LbText", {"Text", "Texte"}, {}},
        {"TxSearch",
         {},
         {"Text to look for (Enter or F3: next)", "Texte à chercher (Entrée ou F3 : suivant)"}},
        {"CdLook", {"Search", "Recherche"}, {"Find the next place (F3)", "Chercher plus loin (F3)"}},
        {"CkUL",
         {"Upper/Lower case sensitive", "Respecter la casse"},
         {"Upper and lower case must match", "Majuscules et minuscules doivent correspondre"}},
        {"CdDebut",
         {"Begining of File", "Début du Fichier"},
         {"Search from the beginning again", "Reprendre la recherche au début"}},
        {"CdClose", {"Close", "Fermer"}, {"Close", "Fermer"}},
    };
    tavrel::showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::soundsText, language));
}

// A mouse action moves the place from which the search goes on.
bool FmSounds::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        // Once the field has handled it: a click into a selection ends that selection only then.
        QTimer::singleShot(0, this, [this] {
            const int start = m_view->textCursor().selectionStart();
            m_text.setPosition(static_cast<std::size_t>(start));
        });
    }
    return TitledWindow::eventFilter(watched, event);
}

void FmSounds::search()
{
    const std::string wanted = toCodePage(m_wanted->text());
    const std::optional<std::size_t> found = m_text.findNext(wanted, m_matchCase->isChecked());
    if (!found) {
        return;
    }
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(static_cast<int>(*found));
    cursor.setPosition(static_cast<int>(*found + wanted.size()), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
    m_view->centerCursor();
}

void FmSounds::goToStart()
{
    m_view->moveCursor(QTextCursor::Start);
    m_text.setPosition(0);
    m_view->setFocus();
}

} // namespace tavrel
