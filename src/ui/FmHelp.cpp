// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FmHelp.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr int columns = 78; // the help files keep to them
constexpr int rows = 40;
constexpr int lineRole = Qt::UserRole;
constexpr int margin = 2 * controlGap;

} // namespace

FmHelp::FmHelp(QWidget* parent, const std::string& text, const std::vector<Heading>& headings,
               const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_language(language), m_contents(named(new QTreeWidget, "LiContents")),
      m_view(makeTextView("TxHlp")), m_wanted(named(new QLineEdit, "TxSearch")),
      m_search(makeButton("CdLook", Glyph::Search)), m_said(named(new QLabel, "LbSaid")),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmHelp");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    m_view->setPlainText(fromCodePage(text));
    paintWith(*m_view, colours.slots[ColourScheme::textSlot]);
    fillContents(headings);
    layOut();
    showCaptions();
    connect(m_contents, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { showLine(item->data(0, lineRole).toInt()); });
    connect(m_contents, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { showLine(item->data(0, lineRole).toInt()); });
    connect(m_search, &QPushButton::clicked, this, &FmHelp::search);
    connect(m_wanted, &QLineEdit::returnPressed, this, &FmHelp::search);
    connect(m_wanted, &QLineEdit::textChanged, this, [this] { say({}); });
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        m_wanted->setFocus();
        m_wanted->selectAll();
    });
    auto* const next = new QShortcut(QKeySequence(Qt::Key_F3), this);
    connect(next, &QShortcut::activated, this, &FmHelp::search);
    m_view->setFocus();
}

void FmHelp::layOut()
{
    constexpr int contentsWidth = 250;
    m_contents->setHeaderHidden(true);
    m_contents->setRootIsDecorated(true);
    m_contents->setIndentation(12);
    m_wanted->setClearButtonEnabled(true);
    m_wanted->setMaximumWidth(contentsWidth);
    auto* const both = new QSplitter;
    both->addWidget(m_contents);
    both->addWidget(m_view);
    both->setStretchFactor(1, 1);
    both->setChildrenCollapsible(false);
    auto* const buttons = rowOf({m_wanted, m_search, m_said, m_close});
    buttons->setStretchFactor(m_said, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(both, 1);
    content().addLayout(buttons);
    // As large as the text needs it in whatever font the system has.
    const QFontMetrics text = m_view->fontMetrics();
    const int textWidth = text.horizontalAdvance(QString(columns, 'x')) + 3 * margin +
                          m_view->verticalScrollBar()->sizeHint().width();
    both->setSizes({contentsWidth, textWidth});
    resize(contentsWidth + textWidth + 3 * margin, rows * text.lineSpacing());
}

void FmHelp::fillContents(const std::vector<Heading>& headings)
{
    for (const Heading& heading : headings) {
        const bool isChapter = heading.depth == 0 || m_contents->topLevelItemCount() == 0;
        auto* const item =
            isChapter ? new QTreeWidgetItem(m_contents)
                      : new QTreeWidgetItem(m_contents->topLevelItem(m_contents->topLevelItemCount() - 1));
        item->setText(0, heading.title);
        item->setToolTip(0, plainToolTip(heading.title));
        item->setData(0, lineRole, heading.line);
    }
}

void FmHelp::showCaptions()
{
    const BilingualText search("Search", "Rechercher");
    const Caption captions[] = {
        {"TxHlp", {}, {"Help text", "Texte de l'aide"}},
        {"LiContents", {}, {"Contents; a click goes there", "Sommaire ; un clic y mène"}},
        {"TxSearch",
         {},
         {"Text to look for in the help (Ctrl+F; Enter or F3: next)",
          "Texte à chercher dans l'aide (Ctrl+F ; Entrée ou F3 : suivant)"}},
        {"CdLook", search, {"Find the next place (F3)", "Chercher plus loin (F3)"}},
        {"CdClose", {"Close", "Fermer"}, {"Close the help", "Fermer l'aide"}},
    };
    tavrel::showCaptions(*this, captions, m_language);
    m_wanted->setPlaceholderText(inLanguage(search, m_language));
    setWindowTitle(inLanguage(titles::help, m_language));
}

void FmHelp::say(const BilingualText& text)
{
    m_said->setText(inLanguage(text, m_language));
}

void FmHelp::search()
{
    const QString wanted = m_wanted->text();
    say({});
    if (wanted.isEmpty()) {
        m_wanted->setFocus();
        return;
    }
    if (m_view->find(wanted)) {
        m_view->centerCursor();
        return;
    }
    const QTextCursor before = m_view->textCursor();
    m_view->moveCursor(QTextCursor::Start);
    if (m_view->find(wanted)) {
        m_view->centerCursor();
        say({"The search continued from the beginning", "La recherche a repris au début"});
    } else {
        m_view->setTextCursor(before);
        say({"Not found", "Introuvable"});
    }
}

void FmHelp::showLine(int line)
{
    m_line = line;
    for (QTreeWidgetItemIterator item(m_contents); *item != nullptr; ++item) {
        if ((*item)->data(0, lineRole).toInt() == line) {
            m_contents->setCurrentItem(*item);
        }
    }
    const QTextBlock block = m_view->document()->findBlockByNumber(line);
    m_view->setTextCursor(QTextCursor(block));
    m_view->verticalScrollBar()->setValue(line);
}

// Before, the view does not know how far it can scroll.
void FmHelp::showEvent(QShowEvent* event)
{
    TitledWindow::showEvent(event);
    QTimer::singleShot(0, m_view, [this] { m_view->verticalScrollBar()->setValue(m_line); });
}

void FmHelp::mousePressEvent(QMouseEvent* event)
{
    if (event->position().y() >= content().geometry().top()) {
        reject();
    } else {
        TitledWindow::mousePressEvent(event);
    }
}

} // namespace tavrel
