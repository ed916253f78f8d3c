// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/DifferenceView.h"

#include "base/Counted.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "versions/DifferenceModel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

constexpr int rowPadding = 5;
constexpr int cellMargin = 8;
constexpr int nameCharacters = 24;

// The button of a row.
class RowButtonDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index.siblingAtColumn(-1)); // the ground of the row
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
        painter->setPen(theme::mutedText);
        painter->setBrush(hovered ? theme::panel.lighter() : theme::panel);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(2.5, 1.5, -2.5, -1.5), 3, 3);
        painter->setPen(theme::text);
        painter->drawText(option.rect, Qt::AlignCenter, index.data().toString());
        painter->restore();
    }
};

QTableView* makeList(const ColourPair& colours)
{
    auto* const list = named(new QTableView, "LiDifferences");
    list->setFont(fixedPitchFont());
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setTabKeyNavigation(false);
    list->setShowGrid(false);
    list->setWordWrap(false);
    list->setMouseTracking(true); // for the buttons in it
    list->verticalHeader()->hide();
    list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + rowPadding);
    list->horizontalHeader()->setHighlightSections(false);
    list->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    paintWith(*list, colours);
    return list;
}

} // namespace

DifferenceView::DifferenceView(const DifferenceSides& sides, const ColourPair& colours, Language language)
    : m_language(language), m_colours(colours),
      m_model(new DifferenceModel(sides, language, mutedColour(colours), this)), m_list(makeList(colours)),
      m_counts(named(new QLabel, "LbDifferences")), m_lines(makeTextView("TxDifferingLines"))
{
    setObjectName("DifferenceView");
    m_list->setModel(m_model);
    paintWith(*m_lines, colours);
    const Caption captions[] = {
        {"LiDifferences",
         {},
         {"What differs; Enter shows the sound in the main window",
          "Ce qui diffère ; Entrée montre le son dans la fenêtre principale"}},
        {"TxDifferingLines",
         {},
         {"Both lines of the selected sound, with the words that differ marked",
          "Les deux lignes du son choisi, avec les mots qui diffèrent marqués"}},
    };
    makeFilters();
    layOut(sides);
    showCaptions(*this, captions, m_language);
    fitColumns();
    setFocusProxy(m_list);
    m_list->installEventFilter(this);
    connect(m_model, &DifferenceModel::ticksChanged, this, &DifferenceView::ticksChanged);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        showLines();
        Q_EMIT selectionChanged();
    });
    connect(m_list, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != DifferenceModel::ButtonColumn) {
            Q_EMIT chosen(m_model->rowOf(index));
        }
    });
    connect(m_list, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == DifferenceModel::ButtonColumn) {
            Q_EMIT buttonPressed(m_model->rowOf(index));
        }
    });
}

void DifferenceView::makeFilters()
{
    using enum LineField;
    const struct
    {
        const char* name = nullptr;
        BilingualText caption;
        LineFields fields;
    } kinds[] = {
        {"CkValues", {"Values", "Valeurs"}, {Vol, Pit, Rad, Ch}},
        {"CkFlags", {"Flags", "Flags"}, {Flags}},
        {"CkSamples", {"Samples", "Samples"}, {Samples}},
        {"CkLetters", {"Letters", "Lettres"}, {Letters}},
        {"CkNames", {"Names", "Noms"}, {Name}},
        {"CkText", {"Other text", "Autre texte"}, {Text}},
        {"CkMissing", {"Missing lines", "Lignes absentes"}, {}},
    };
    for (const auto& kind : kinds) {
        auto* const box = named(new QCheckBox(inLanguage(kind.caption, m_language)), kind.name);
        box->setChecked(true);
        box->setToolTip(inLanguage(
            {"Show sounds that differ in this", "Montrer les sons qui diffèrent par cela"}, m_language));
        connect(box, &QCheckBox::toggled, this, &DifferenceView::filter);
        m_filters.push_back({box, kind.fields});
    }
}

void DifferenceView::layOut(const DifferenceSides& sides)
{
    auto* const filters = new QHBoxLayout;
    filters->setSpacing(2 * controlGap);
    for (const Filter& filter : m_filters) {
        filters->addWidget(filter.box);
    }
    filters->addStretch(1);
    filters->addWidget(m_counts);

    // One text of two lines: they scroll together.
    auto* const captions =
        named(new QLabel(inLanguage(sides.before, m_language) + "\n" + inLanguage(sides.after, m_language)),
              "LbSides");
    captions->setFont(m_lines->font());
    captions->setTextFormat(Qt::PlainText);
    captions->setAlignment(Qt::AlignTop | Qt::AlignRight);
    const int above = m_lines->frameWidth() + static_cast<int>(m_lines->document()->documentMargin());
    captions->setContentsMargins(0, above, 0, 0);
    const QFontMetrics metrics(m_lines->font());
    m_lines->setFixedHeight(2 * (metrics.lineSpacing() + above) + controlGap +
                            m_lines->horizontalScrollBar()->sizeHint().height());
    m_lines->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const lines = rowOf({captions, m_lines});
    lines->setStretch(1, 1);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    column->addLayout(filters);
    column->addWidget(m_list, 1);
    column->addLayout(lines);
}

void DifferenceView::fitColumns()
{
    const QFontMetrics metrics(m_list->font());
    const auto widthOf = [&](const QString& text) {
        return metrics.horizontalAdvance(text) + 2 * cellMargin;
    };
    QHeaderView& header = *m_list->horizontalHeader();
    const bool hasOthers =
        std::ranges::any_of(rows(), [](const DifferenceRow& row) { return row.otherNumber.has_value(); });
    constexpr int tickRoom = 24;
    const int numberDigits = static_cast<int>(QString::number(rows().size()).size());
    header.resizeSection(
        DifferenceModel::NumberColumn,
        widthOf(QString(std::max(3, numberDigits) * (hasOthers ? 2 : 1) + (hasOthers ? 3 : 0), '0')) +
            tickRoom);
    header.resizeSection(DifferenceModel::NameColumn, widthOf(QString(nameCharacters, '0')));
    header.setSectionResizeMode(DifferenceModel::WordsColumn, QHeaderView::Stretch);
    if (m_model->columnCount() > DifferenceModel::ButtonColumn) {
        const QString caption = m_model->index(0, 0).isValid()
                                    ? m_model->index(0, DifferenceModel::ButtonColumn).data().toString()
                                    : QString(nameCharacters / 2, '0');
        header.resizeSection(DifferenceModel::ButtonColumn, widthOf(caption) + 2 * cellMargin);
    }
}

void DifferenceView::useTicks()
{
    m_model->useTicks();
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void DifferenceView::useRowButton(const BilingualText& caption)
{
    m_model->useButton(caption);
    m_list->setItemDelegateForColumn(DifferenceModel::ButtonColumn, new RowButtonDelegate(m_list));
    fitColumns();
}

void DifferenceView::setRows(std::vector<DifferenceRow> rows)
{
    const int place = m_list->currentIndex().row();
    m_model->setRows(std::move(rows));
    filter();
    fitColumns();
    const int last = m_model->rowCount() - 1;
    if (last >= 0) {
        m_list->selectRow(std::clamp(place, 0, last));
    }
}

const std::vector<DifferenceRow>& DifferenceView::rows() const
{
    return m_model->rows();
}

std::optional<std::size_t> DifferenceView::selectedRow() const
{
    const QModelIndex current = m_list->currentIndex();
    return current.isValid() ? std::optional(m_model->rowOf(current)) : std::nullopt;
}

void DifferenceView::select(std::size_t row)
{
    const auto found = std::ranges::find(m_model->shown(), row);
    if (found != m_model->shown().end()) {
        m_list->selectRow(static_cast<int>(found - m_model->shown().begin()));
    }
}

std::size_t DifferenceView::shownRows() const
{
    return m_model->shown().size();
}

void DifferenceView::tickShown(bool ticked)
{
    std::vector<int> all(shownRows());
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = static_cast<int>(i);
    }
    m_model->tick(all, ticked);
}

std::vector<std::size_t> DifferenceView::tickedRows() const
{
    std::vector<std::size_t> ticked;
    for (std::size_t row = 0; row < rows().size(); ++row) {
        if (rows()[row].ticked) {
            ticked.push_back(row);
        }
    }
    return ticked;
}

void DifferenceView::filter()
{
    const std::optional<std::size_t> selected = selectedRow();
    LineFields wanted;
    bool missing = false;
    for (const Filter& filter : m_filters) {
        missing = missing || (filter.fields.none() && filter.box->isChecked());
        for (const LineField field : everyLineField) {
            wanted.add(field, filter.box->isChecked() && filter.fields.has(field));
        }
    }
    m_model->show([&](std::size_t row) {
        const LineFields fields = m_model->fields(row);
        return fields.none() ? missing : fields.hasAny(wanted);
    });
    const std::string shown = std::to_string(shownRows());
    m_counts->setText(inLanguage(BilingualText(shown + " of ", shown + " sur ") +
                                     counted(rows().size(), {"differing sound", "son différent"},
                                             {"differing sounds", "sons différents"}),
                                 m_language));
    if (selected && *selected < rows().size()) {
        select(*selected);
    }
    if (!selectedRow() && shownRows() > 0) {
        m_list->selectRow(0);
    }
    showLines();
    Q_EMIT selectionChanged(); // also to none
}

void DifferenceView::showLines()
{
    m_lines->clear();
    m_lines->setExtraSelections({});
    const std::optional<std::size_t> selected = selectedRow();
    if (!selected) {
        return;
    }
    const DifferenceRow& row = rows()[*selected];
    const std::array<std::string, 2> lines = {row.before.value_or(std::string()),
                                              row.after.value_or(std::string())};
    m_lines->setPlainText(fromCodePage(lines[0]) + "\n" + fromCodePage(lines[1]));
    const DifferingWords words = differingWords(lines[0], lines[1]);
    const std::array<const std::vector<ByteRange>*, 2> ranges = {&words.before, &words.after};
    QTextCharFormat mark;
    mark.setBackground(markColour(m_colours));
    mark.setForeground(colourFrom(m_colours.back));
    QList<QTextEdit::ExtraSelection> marks;
    for (std::size_t side = 0; side < lines.size(); ++side) {
        const int start = m_lines->document()->findBlockByNumber(static_cast<int>(side)).position();
        const auto place = [&](std::size_t bytes) {
            return start + static_cast<int>(fromCodePage(lines[side].substr(0, bytes)).size());
        };
        for (const ByteRange& range : *ranges[side]) {
            QTextCursor cursor(m_lines->document());
            cursor.setPosition(place(range.start));
            cursor.setPosition(place(range.start + range.length), QTextCursor::KeepAnchor);
            marks.push_back({cursor, mark});
        }
    }
    m_lines->setExtraSelections(marks);
}

bool DifferenceView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress &&
        takeKey(static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool DifferenceView::takeKey(int key)
{
    const std::optional<std::size_t> row = selectedRow();
    if (!row) {
        return false;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Q_EMIT chosen(*row);
        return true;
    }
    if (key == Qt::Key_Delete && m_model->columnCount() > DifferenceModel::ButtonColumn) {
        Q_EMIT buttonPressed(*row);
        return true;
    }
    if (key == Qt::Key_Home || key == Qt::Key_End) { // the list's own keys go from cell to cell
        m_list->selectRow(key == Qt::Key_Home ? 0 : m_model->rowCount() - 1);
        return true;
    }
    if (key == Qt::Key_Space && m_list->selectionMode() == QAbstractItemView::ExtendedSelection) {
        std::vector<int> selected;
        for (const QModelIndex& index : m_list->selectionModel()->selectedRows()) {
            selected.push_back(index.row());
        }
        m_model->tick(selected, !rows()[*row].ticked);
        return true;
    }
    return false;
}

} // namespace tavrel
