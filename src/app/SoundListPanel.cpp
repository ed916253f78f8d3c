// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListPanel.h"

#include "app/ColumnButton.h"
#include "app/FilterBox.h"
#include "app/SoundListDelegate.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "catalogue/LineSearch.h"
#include "samples/SampleUsers.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/ColumnTitles.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

namespace tavrel {

namespace {

constexpr int usualWidth = 250;

} // namespace

SoundListPanel::SoundListPanel(const PanelContext& context)
    : MainPanel(context), m_sounds(new SoundListModel(session().catalogue(), this)),
      m_wanted(named(new QLineEdit, "TxSearch")), m_search(makeIconButton("CdSearch", Glyph::Search)),
      m_down(named(new QRadioButton, "OpDown")), m_up(named(new QRadioButton, "OpUp")),
      m_matchCase(named(new QCheckBox, "CkCase")), m_count(makeElidedLabel("LbCount")),
      m_number(named(new QLineEdit, "TxNumber")), m_filter(new FilterBox),
      m_columns(new ColumnButton(session().options())), m_list(named(new QListView, "LiSFX")),
      m_titles(new ColumnTitles("LbColumns", *m_list, [this] { return titlesOfColumns(); })),
      m_play(makeIconButton("CdPlay2", Glyph::Play)), m_stop(makeIconButton("CdStopS2", Glyph::Stop))
{
    layOut();
    connectControls();
    connectList();
}

void SoundListPanel::layOut()
{
    m_wanted->setClearButtonEnabled(true);
    selectAllOnClick(*m_wanted);
    auto* const options = new QButtonGroup(this);
    options->addButton(m_down);
    options->addButton(m_up);
    m_down->setChecked(true);
    m_count->setProperty("heading", true);
    m_number->setFixedWidth(64);
    m_number->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,9}"), m_number));
    m_number->hide();

    auto* const directions = rowOf({makeHeading("FrSearch"), m_down, m_up});
    directions->insertStretch(1, 1);
    auto* const head = rowOf({makeHeading("LbID"), m_count, m_number, m_columns, m_play, m_stop});
    head->insertStretch(3, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    column->addLayout(directions);
    column->addLayout(rowOf({m_wanted, m_search}));
    column->addWidget(m_matchCase);
    column->addSpacing(controlGap);
    column->addLayout(head);
    column->addWidget(m_filter);
    column->addWidget(makeList(), 1);
    setFixedWidth(usualWidth);
}

QWidget* SoundListPanel::makeList()
{
    m_list->setModel(m_sounds);
    m_list->setItemDelegate(new SoundListDelegate(this));
    m_list->setFont(fixedPitchFont());
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const box = new QWidget;
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    constexpr int padding = 6;
    m_titles->setFixedHeight(m_titles->fontMetrics().height() + padding);
    m_titles->setContextMenuPolicy(Qt::CustomContextMenu);
    column->addWidget(m_titles);
    column->addWidget(m_list, 1);
    m_titles->hide();
    return box;
}

void SoundListPanel::connectControls()
{
    m_leaving.setSingleShot(true);
    m_refusing.setSingleShot(true);
    connect(&m_leaving, &QTimer::timeout, this, &SoundListPanel::leaveForMarked);
    connect(&m_refusing, &QTimer::timeout, this, &SoundListPanel::sayWhatIsRefused);
    connect(m_search, &QPushButton::clicked, this, &SoundListPanel::search);
    connect(m_wanted, &QLineEdit::returnPressed, this, &SoundListPanel::search);
    connect(m_play, &QPushButton::clicked, this, &SoundListPanel::play);
    connect(m_stop, &QPushButton::clicked, this, &SoundListPanel::stop);
    connect(m_filter, &FilterBox::changed, this, &SoundListPanel::filterChanged);
    connect(m_filter, &FilterBox::done, this, &SoundListPanel::focusList);
    connect(m_columns, &ColumnButton::changed, this, &SoundListPanel::showColumns);
    connect(m_number, &QLineEdit::returnPressed, this, &SoundListPanel::numberTyped);
    connect(m_number, &QLineEdit::editingFinished, this, [this] { showNumberBox(false); });
    m_number->installEventFilter(this);
}

void SoundListPanel::connectList()
{
    const std::pair<QKeySequence, void (SoundListPanel::*)()> keys[] = {
        {QKeySequence::Copy, &SoundListPanel::copyWanted},
        {QKeySequence::Paste, &SoundListPanel::pasteWanted}};
    for (const auto& [key, signal] : keys) {
        auto* const shortcut = new QShortcut(key, m_list);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, signal);
    }
    connect(m_titles, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { m_columns->menu()->popup(m_titles->mapToGlobal(place)); });
    // The current row is told before its mark or after it, depending on the key; the second of the two
    // counts.
    const QItemSelectionModel* const rows = m_list->selectionModel();
    connect(rows, &QItemSelectionModel::currentChanged, this, [this, rows](const QModelIndex& current) {
        if (!current.isValid() || rows->isSelected(current)) {
            selectionMoved();
        }
    });
    connect(rows, &QItemSelectionModel::selectionChanged, this, [this, rows](const QItemSelection& added) {
        const QModelIndex current = rows->currentIndex();
        if (!rows->hasSelection() && current.isValid()) {
            // Ctrl and a click would take the mark off the only line that is shown.
            m_list->selectionModel()->select(current, QItemSelectionModel::Select);
        } else if (added.empty() || !current.isValid() || rows->isSelected(current)) {
            selectionMoved();
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
        {"TxNumber", {}, {"Number of the sound to go to", "Numéro du son où aller"}},
        {"LiSFX",
         {},
         {"Sounds of sounds.txt; modified ones are marked",
          "Sons de sounds.txt ; ceux qui sont modifiés sont marqués"}},
        {"CdPlay2", {}, {"Play sample", "Jouer le sample"}},
        {"CdStopS2", {}, stop},
    };
    showCaptions(*this, captions, language);
    m_number->setPlaceholderText(inLanguage({"Number", "Numéro"}, language));
    m_filter->showLanguage(language);
    m_columns->showLanguage(language);
    m_sounds->setLanguage(language);
    showColumns();
    showCounts();
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

void SoundListPanel::focusFilter()
{
    m_filter->focusWords();
}

bool SoundListPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_number && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        focusList(); // leaving the box closes it
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Going to sounds

SoundListPanel::Picked SoundListPanel::marked() const
{
    Picked picked;
    for (const QItemSelectionRange& range : m_list->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            picked.numbers.push_back(*m_sounds->numberAt(m_sounds->index(row)));
        }
    }
    std::ranges::sort(picked.numbers);
    picked.current = m_sounds->numberAt(m_list->currentIndex());
    if (!picked.current || !std::ranges::binary_search(picked.numbers, *picked.current)) {
        picked.current = picked.numbers.empty() ? std::nullopt : std::optional(picked.numbers.front());
    }
    return picked;
}

void SoundListPanel::selectionMoved()
{
    if (m_selecting) {
        return;
    }
    Picked picked = marked();
    if (picked.numbers == selection().numbers()) {
        selection().makeCurrent(picked.current);
    } else if (selection().edited()) {
        // The mouse button is still down in the list, or a key repeats: ask once, when that is done with.
        m_leaving.start();
    } else {
        pick(std::move(picked));
    }
}

void SoundListPanel::leaveForMarked()
{
    if (m_asking || marked().numbers == selection().numbers()) {
        return;
    }
    const bool mayLeave = [this] {
        const Flagged asking(m_asking);
        return selection().mayLeave(dialogs());
    }();
    if (mayLeave) {
        pick(marked());
    } else {
        lineShown();
    }
}

void SoundListPanel::pick(Picked picked)
{
    const std::size_t count = picked.numbers.size();
    selection().select(std::move(picked.numbers), picked.current);
    say(count > 1 ? countedSounds(count) + BilingualText(" selected", " sélectionnés") : BilingualText());
    m_refusing.start();
}

// What the user may not do with the line that is selected by now. Of several there is nothing to be said.
void SoundListPanel::sayWhatIsRefused()
{
    const std::optional<std::size_t> number = selection().number();
    if (m_asking || !number || selection().isSeveral()) {
        return;
    }
    const Flagged asking(m_asking);
    if (session().catalogue().isProtected(*number)) {
        dialogs().show(protectedLineRefusal());
    } else if (!selection().objects().empty()) {
        const BilingualText refusal("An object is selected. Modification not authorized",
                                    "Un objet est sélectionné. Modification non autorisée");
        if (m_warned.insert(*number).second) {
            dialogs().show({MessageIcon::Information, titles::addLetterToObject, refusal});
        } else {
            say(refusal);
        }
    }
}

// Searching

void SoundListPanel::search()
{
    const QString text = m_wanted->text();
    LineSearch wanted{toCodePage(text), m_up->isChecked() ? SearchDirection::Up : SearchDirection::Down,
                      m_matchCase->isChecked()};
    if (wanted.text.empty()) {
        m_wanted->setFocus();
        return;
    }
    const auto find = [&](std::optional<std::size_t> from) {
        return fitsCodePage(text) ? findNextLine(session().catalogue(), m_sounds->numbers(), from, wanted)
                                  : std::nullopt;
    };
    std::optional<std::size_t> found = find(selection().number());
    const bool wraps = !found;
    if (wraps) {
        found = find(std::nullopt);
    }
    if (!found || found == selection().number()) {
        searchElsewhere(text);
        return;
    }
    m_list->setCurrentIndex(m_sounds->indexOf(*found));
    m_list->scrollTo(m_list->currentIndex(), QAbstractItemView::PositionAtCenter);
    say(!wraps              ? BilingualText()
        : m_up->isChecked() ? BilingualText("The search continued from the last line",
                                            "La recherche a repris à la dernière ligne")
                            : BilingualText("The search continued from the first line",
                                            "La recherche a repris à la première ligne"));
}

// It is in none of the listed lines but the selected one.
void SoundListPanel::searchElsewhere(const QString& text)
{
    std::vector<std::size_t> all(session().catalogue().size());
    std::iota(all.begin(), all.end(), 0U);
    std::erase_if(all, [this](std::size_t number) { return m_sounds->indexOf(number).isValid(); });
    const LineSearch wanted{toCodePage(text), SearchDirection::Down, m_matchCase->isChecked()};
    const bool isHidden =
        fitsCodePage(text) && findNextLine(session().catalogue(), all, std::nullopt, wanted).has_value();
    const std::string shown = "[" + text.toStdString() + "]";
    say(isHidden ? BilingualText(shown + " is only in lines that are hidden now",
                                 shown + " n'est que dans des lignes actuellement cachées")
                 : BilingualText("No other line contains ", "Aucune autre ligne ne contient ") + shown);
}

void SoundListPanel::goTo(std::size_t number)
{
    showRow(m_sounds->indexOf(number));
    pick({{number}, number});
}

void SoundListPanel::goToNext()
{
    const auto listed = m_sounds->numbers();
    const std::vector<std::size_t>& numbers = selection().numbers();
    const auto next = numbers.empty() ? listed.begin() : std::ranges::upper_bound(listed, numbers.back());
    if (next != listed.end() && selection().mayLeave(dialogs())) {
        goTo(*next);
    }
}

void SoundListPanel::goToModified(bool down)
{
    const auto listed = m_sounds->numbers();
    const std::size_t from = selection().number().value_or(0);
    std::optional<std::size_t> found;
    for (const std::size_t number : listed) {
        const bool isBeyond = down ? number > from : number < from;
        if (isBeyond && session().catalogue().isModified(number)) {
            found = number;
            if (down) {
                break;
            }
        }
    }
    if (!found) {
        say(down ? BilingualText("No modified sound below", "Pas de son modifié plus bas")
                 : BilingualText("No modified sound above", "Pas de son modifié plus haut"));
    } else if (selection().mayLeave(dialogs())) {
        goTo(*found);
    }
}

void SoundListPanel::askForNumber()
{
    m_number->clear();
    showNumberBox(true);
    m_number->setFocus(Qt::ShortcutFocusReason);
}

// In the place of the count.
void SoundListPanel::showNumberBox(bool shown)
{
    m_number->setVisible(shown);
    m_count->setVisible(!shown);
}

void SoundListPanel::numberTyped()
{
    const QString typed = m_number->text();
    if (typed.isEmpty()) {
        return;
    }
    const std::size_t number = typed.toULong();
    if (number >= session().catalogue().size()) {
        say(BilingualText("There is no sound ", "Il n'y a pas de son ") + typed.toStdString());
    } else if (selection().mayLeave(dialogs())) {
        selection().reveal(number);
        m_refusing.start();
    }
    focusList();
}

// The filter

ListCriteria SoundListPanel::criteria() const
{
    const ReadyFilter ready = m_filter->ready();
    return {m_filter->words(),
            ready,
            session().wad().letter,
            m_showGlobals,
            ready == ReadyFilter::MissingSamples ? &m_missing : &m_marked,
            m_kept};
}

void SoundListPanel::filterChanged()
{
    // Values that were not accepted stay in sight.
    m_kept = selection().edited()
                 ? std::set<std::size_t>(selection().numbers().begin(), selection().numbers().end())
                 : std::set<std::size_t>();
    if (std::exchange(m_lastReady, m_filter->ready()) != m_filter->ready()) {
        findMissingSamples();
    }
    rebuild();
}

bool SoundListPanel::clearFilter()
{
    return m_filter->clear();
}

void SoundListPanel::showOrHideGlobals()
{
    if (selection().mayLeave(dialogs())) {
        m_showGlobals = !m_showGlobals;
        filterChanged();
        Q_EMIT globalsShown(m_showGlobals);
    }
}

void SoundListPanel::findMissingSamples()
{
    m_missing.clear();
    if (m_filter->ready() != ReadyFilter::MissingSamples) {
        return;
    }
    Result<std::set<std::size_t>> missing =
        soundsWithMissingSamples(session().catalogue(), session().places().samples);
    if (missing) {
        m_missing = std::move(*missing);
    } else {
        say(missing.failure().text);
    }
}

void SoundListPanel::showCounts()
{
    const std::size_t listed = m_sounds->numbers().size();
    const std::string count = std::to_string(listed);
    const std::string total = std::to_string(m_sounds->total());
    m_count->setText(listed == m_sounds->total()
                         ? QString()
                         : inLanguage({count + " of " + total, count + " sur " + total}, language()));
}

// Lines may have come into the list or left it; those that are selected stay so while they are there.
void SoundListPanel::rebuild()
{
    const std::vector<std::size_t> before = selection().numbers();
    {
        const Flagged selecting(m_selecting);
        m_sounds->list(criteria());
    }
    showCounts();
    Picked left{before, selection().number()};
    std::erase_if(left.numbers, [this](std::size_t number) { return !m_sounds->indexOf(number).isValid(); });
    if (left.numbers.empty() && !m_sounds->numbers().empty()) {
        left.numbers = {m_sounds->numbers().front()};
    }
    if (left.numbers != before) {
        if (!left.current || !std::ranges::binary_search(left.numbers, *left.current)) {
            left.current = left.numbers.empty() ? std::nullopt : std::optional(left.numbers.front());
        }
        selection().select(left.numbers, left.current); // without a word: nobody went there
    }
    showSelection();
}

void SoundListPanel::showLevel()
{
    m_filter->choose(ReadyFilter::OfWad);
    focusList();
}

void SoundListPanel::showMarks(const FindingMarks& marks)
{
    m_marked.clear();
    for (const auto& [number, mark] : marks.sounds) {
        m_marked.insert(number);
    }
    m_sounds->setMarks(marks.sounds);
    if (m_filter->ready() == ReadyFilter::WithFindings) {
        filterChanged();
    }
}

// Columns

void SoundListPanel::showColumns()
{
    const std::set<SoundColumn> columns = m_columns->columns();
    m_titles->setVisible(!columns.empty());
    m_titles->update();
    m_list->setHorizontalScrollBarPolicy(columns.empty() ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    if (columns != m_sounds->columns()) {
        m_sounds->setColumns(columns);
        // As wide as the window has room for; the rest is scrolled to.
        const int bar = m_list->verticalScrollBar()->sizeHint().width();
        const int frame = 2 * m_list->frameWidth();
        const int wanted = columnsWidth(m_list->fontMetrics(), columns) + bar + frame;
        setMinimumWidth(usualWidth);
        setMaximumWidth(columns.empty() ? usualWidth : std::max(wanted, usualWidth));
    }
}

std::vector<ColumnTitle> SoundListPanel::titlesOfColumns() const
{
    const std::set<SoundColumn> columns = m_columns->columns();
    std::vector<ColumnTitle> titles;
    const auto add = [&](SoundColumn column) {
        titles.push_back({static_cast<double>(columnLeft(m_titles->fontMetrics(), columns, column)),
                          inLanguage(columnTitle(column), language())});
    };
    add(SoundColumn::Sound);
    std::ranges::for_each(columns, add);
    return titles;
}

// Following

void SoundListPanel::reloaded()
{
    m_warned.clear();
    m_kept.clear();
    findMissingSamples();
    const Flagged selecting(m_selecting);
    m_sounds->read();
    m_sounds->list(criteria());
    showCounts();
    firstWanted();
}

void SoundListPanel::linesChanged(const std::vector<std::size_t>& numbers)
{
    // What the user is at work on stays in the list, even if it is no longer what he looked for.
    for (const std::size_t number : numbers) {
        if (std::ranges::binary_search(selection().numbers(), number) &&
            (m_showGlobals || !session().catalogue().isGlobal(number))) {
            m_kept.insert(number);
        }
    }
    findMissingSamples();
    m_sounds->refresh(numbers);
    if (m_sounds->comeOrGo(numbers, criteria())) {
        rebuild();
    }
}

void SoundListPanel::linesMoved()
{
    m_kept.clear();
    m_sounds->read();
    rebuild();
}

void SoundListPanel::wadChanged()
{
    if (m_filter->ready() == ReadyFilter::OfWad) {
        filterChanged();
    }
}

void SoundListPanel::firstWanted()
{
    const Flagged selecting(m_selecting);
    const std::optional<std::size_t> first = m_sounds->numberAt(m_sounds->index(0));
    m_list->scrollToTop();
    pick({first ? std::vector{*first} : std::vector<std::size_t>(), first});
    showSelection();
}

void SoundListPanel::lineShown()
{
    enableButtons();
    if (!m_asking && !m_selecting) { // else the user is on the way to another row
        showSelection();
    }
}

void SoundListPanel::showSelection()
{
    const Flagged selecting(m_selecting);
    QItemSelectionModel& rows = *m_list->selectionModel();
    const std::optional<std::size_t> number = selection().number();
    if (!number) {
        rows.clearCurrentIndex();
        m_list->clearSelection();
        return;
    }
    if (marked().numbers != selection().numbers()) {
        QItemSelection selected;
        for (const std::size_t each : selection().numbers()) {
            if (const QModelIndex index = m_sounds->indexOf(each); index.isValid()) {
                if (!selected.empty() && selected.back().bottom() + 1 == index.row()) {
                    selected.back() = QItemSelectionRange(selected.back().topLeft(), index);
                } else {
                    selected.append(QItemSelectionRange(index));
                }
            }
        }
        rows.select(selected, QItemSelectionModel::ClearAndSelect);
    }
    if (number != m_sounds->numberAt(m_list->currentIndex())) {
        rows.setCurrentIndex(m_sounds->indexOf(*number), QItemSelectionModel::NoUpdate);
        m_list->scrollTo(m_list->currentIndex());
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

// The sound is to be seen, whatever hides it.
void SoundListPanel::revealed()
{
    const std::optional<std::size_t> number = selection().number();
    if (!number) {
        return;
    }
    const auto isHidden = [this](std::size_t each) { return !m_sounds->indexOf(each).isValid(); };
    if (std::ranges::any_of(selection().numbers(), isHidden)) {
        if (!std::exchange(m_showGlobals, true)) {
            Q_EMIT globalsShown(true);
        }
        if (!m_filter->clear()) {
            filterChanged();
        }
    }
    showSelection();
    m_list->scrollTo(m_list->currentIndex());
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
