// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListPanel.h"

#include "app/SoundListDelegate.h"
#include "app/SoundListModel.h"
#include "base/Titles.h"
#include "catalogue/LineSearch.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavrel {

SoundListPanel::SoundListPanel(const PanelContext& context)
    : MainPanel(context), m_sounds(new SoundListModel(session().catalogue(), this)),
      m_wanted(named(new QLineEdit, "TxSearch")), m_search(makeIconButton("CdSearch", Glyph::Search)),
      m_down(named(new QRadioButton, "OpDown")), m_up(named(new QRadioButton, "OpUp")),
      m_matchCase(named(new QCheckBox, "CkCase")), m_list(named(new QListView, "LiSFX")),
      m_play(makeIconButton("CdPlay2", Glyph::Play)), m_stop(makeIconButton("CdStopS2", Glyph::Stop))
{
    layOut();
    connectControls();
}

void SoundListPanel::layOut()
{
    m_wanted->setClearButtonEnabled(true);
    auto* const options = new QButtonGroup(this);
    options->addButton(m_down);
    options->addButton(m_up);
    m_down->setChecked(true);
    m_list->setModel(m_sounds);
    m_list->setItemDelegate(new SoundListDelegate(this));
    m_list->setFont(fixedPitchFont());
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* const directions = rowOf({makeHeading("FrSearch"), m_down, m_up});
    directions->insertStretch(1, 1);
    auto* const head = rowOf({makeHeading("LbID"), m_play, m_stop});
    head->insertStretch(1, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    column->addLayout(directions);
    column->addLayout(rowOf({m_wanted, m_search}));
    column->addWidget(m_matchCase);
    column->addSpacing(controlGap);
    column->addLayout(head);
    column->addWidget(m_list, 1);
}

void SoundListPanel::connectControls()
{
    m_leaving.setSingleShot(true);
    m_refusing.setSingleShot(true);
    connect(&m_leaving, &QTimer::timeout, this, &SoundListPanel::leaveForCurrentRow);
    connect(&m_refusing, &QTimer::timeout, this, &SoundListPanel::sayWhatIsRefused);
    connect(m_search, &QPushButton::clicked, this, &SoundListPanel::search);
    connect(m_wanted, &QLineEdit::returnPressed, this, &SoundListPanel::search);
    connect(m_play, &QPushButton::clicked, this, &SoundListPanel::play);
    connect(m_stop, &QPushButton::clicked, this, &SoundListPanel::stop);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SoundListPanel::currentRowChanged);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        // Ctrl and a click would take the mark off the line that is still shown.
        QItemSelectionModel& marked = *m_list->selectionModel();
        if (!marked.hasSelection() && marked.currentIndex().isValid()) {
            marked.select(marked.currentIndex(), QItemSelectionModel::Select);
        }
    });
}

void SoundListPanel::showLanguage(Language language)
{
    const BilingualText stop("Stop sample", "Stopper le sample");
    const Caption captions[] = {
        {"FrSearch", {"Search", "Rechercher"}, {}},
        {"TxSearch",
         {},
         {"Text to look for in the lines (F3: next)", "Texte à chercher dans les lignes (F3 : suivant)"}},
        {"CdSearch", {}, {"Search", "Recherche"}},
        {"OpDown", {"Down", "Bas"}, {"Down", "Bas"}},
        {"OpUp", {"Up", "Haut"}, {"Up", "Haut"}},
        {"CkCase",
         {"Upper/Lower Case sensitive", "Respecter la casse"},
         {"Upper/Lower Case sensitive", "Respecter la casse"}},
        {"LbID", {"Sound ID", "ID sons"}, {}},
        {"LiSFX",
         {},
         {"Sounds of sounds.txt; modified ones are marked",
          "Sons de sounds.txt ; ceux qui sont modifiés sont marqués"}},
        {"CdPlay2", {}, {"Play sample", "Jouer le sample"}},
        {"CdStopS2", {}, stop},
    };
    showCaptions(*this, captions, language);
}

void SoundListPanel::paintWith(const ColourPair& pair)
{
    tavrel::paintWith(*m_list, pair);
}

void SoundListPanel::focusList()
{
    m_list->setFocus();
}

void SoundListPanel::focusSearch()
{
    m_wanted->setFocus(Qt::ShortcutFocusReason);
    m_wanted->selectAll();
}

// Going to a sound

void SoundListPanel::currentRowChanged()
{
    if (m_selecting) {
        return;
    }
    if (selection().edited()) {
        // The mouse button is still down in the list, or a key repeats: ask once, when that is done with.
        m_leaving.start();
        return;
    }
    pick(m_sounds->numberAt(m_list->currentIndex()));
}

void SoundListPanel::leaveForCurrentRow()
{
    const std::optional<std::size_t> left = selection().number();
    const auto wanted = [this] { return m_sounds->numberAt(m_list->currentIndex()); };
    if (m_asking || wanted() == left) {
        return;
    }
    const bool mayLeave = [this] {
        const Flagged asking(m_asking);
        return selection().mayLeave(dialogs());
    }();
    if (mayLeave) {
        pick(wanted());
    } else {
        lineShown();
    }
}

void SoundListPanel::pick(std::optional<std::size_t> number)
{
    selection().select(number);
    say({});
    m_refusing.start();
}

// What the user may not do with the line that is selected by now.
void SoundListPanel::sayWhatIsRefused()
{
    const std::optional<std::size_t> number = selection().number();
    if (m_asking || !number) {
        return;
    }
    const Flagged asking(m_asking);
    if (session().catalogue().isProtected(*number)) {
        dialogs().show(protectedLineRefusal());
    } else if (!selection().object().empty() && m_warned.insert(*number).second) {
        dialogs().show({MessageIcon::Information,
                        titles::addLetterToObject,
                        {"An object is selected. Modification not authorized",
                         "Un objet est sélectionné. Modification non autorisée"}});
    }
}

void SoundListPanel::search()
{
    const LineSearch wanted{toCodePage(m_wanted->text()),
                            m_up->isChecked() ? SearchDirection::Up : SearchDirection::Down,
                            m_matchCase->isChecked()};
    if (wanted.text.empty()) {
        m_wanted->setFocus();
        return;
    }
    const std::optional<std::size_t> found =
        fitsCodePage(m_wanted->text())
            ? findNextLine(session().catalogue(), m_sounds->numbers(), selection().number(), wanted)
            : std::nullopt;
    if (!found) {
        say(BilingualText("No more line with [", "Plus de ligne avec [") + m_wanted->text().toStdString() +
            "]");
        return;
    }
    say({});
    m_list->setCurrentIndex(m_sounds->indexOf(*found));
    m_list->scrollTo(m_list->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void SoundListPanel::showOrHideGlobals()
{
    if (selection().mayLeave(dialogs())) {
        m_showGlobals = !m_showGlobals;
        rebuild();
    }
}

// Following

void SoundListPanel::reloaded()
{
    m_warned.clear();
    m_sounds->rebuild(m_showGlobals);
    firstWanted();
}

void SoundListPanel::linesChanged(const std::vector<std::size_t>& numbers)
{
    const bool comeOrGo = !m_showGlobals && std::ranges::any_of(numbers, [this](std::size_t number) {
        return session().catalogue().isGlobal(number) == m_sounds->indexOf(number).isValid();
    });
    if (comeOrGo) {
        rebuild();
    } else {
        m_sounds->refresh(numbers);
    }
}

void SoundListPanel::linesMoved()
{
    rebuild();
}

// Lines may have come into the list or left it; the selected one stays selected while it is there.
void SoundListPanel::rebuild()
{
    const Flagged selecting(m_selecting);
    m_sounds->rebuild(m_showGlobals);
    const std::optional<std::size_t> number = selection().number();
    const QModelIndex index = number ? m_sounds->indexOf(*number) : QModelIndex();
    if (index.isValid()) {
        showRow(index);
    } else {
        firstWanted();
    }
}

void SoundListPanel::firstWanted()
{
    const Flagged selecting(m_selecting);
    const QModelIndex first = m_sounds->index(0);
    m_list->setCurrentIndex(first);
    m_list->scrollToTop();
    pick(m_sounds->numberAt(first));
}

void SoundListPanel::lineShown()
{
    enableButtons();
    if (m_asking) { // the user is on the way to another row
        return;
    }
    const std::optional<std::size_t> number = selection().number();
    if (number != m_sounds->numberAt(m_list->currentIndex())) {
        const Flagged selecting(m_selecting);
        if (number) {
            showRow(m_sounds->indexOf(*number));
        } else {
            m_list->selectionModel()->clearCurrentIndex();
            m_list->clearSelection();
        }
    }
}

void SoundListPanel::objectChosen()
{
    m_warned.clear();
    if (const std::optional<std::size_t> number = selection().number()) {
        m_warned.insert(*number);
    }
    enableButtons();
}

void SoundListPanel::revealed()
{
    const std::optional<std::size_t> number = selection().number();
    if (number && !m_sounds->indexOf(*number).isValid()) {
        m_showGlobals = true;
        rebuild();
    }
    if (number) {
        showRow(m_sounds->indexOf(*number));
    }
}

void SoundListPanel::showRow(const QModelIndex& index)
{
    const Flagged selecting(m_selecting);
    m_list->setCurrentIndex(index);
    m_list->scrollTo(index);
}

// Playing

void SoundListPanel::enableButtons()
{
    const bool playable = selection().editor().canEdit() && selection().sample().has_value();
    m_play->setEnabled(playable);
    m_stop->setEnabled(playable);
}

void SoundListPanel::play()
{
    const Problem problem =
        PlaySample(context().player, session().places().samples, selection().sampleName(), dialogs());
    say(problem ? problem->text : BilingualText());
    m_list->setFocus();
}

void SoundListPanel::stop()
{
    StopSample(context().player);
    m_list->setFocus();
}

} // namespace tavrel
