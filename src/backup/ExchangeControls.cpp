// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeControls.h"

#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

namespace tavrel {

namespace {

constexpr int markSize = 14;

} // namespace

TickList::TickList(const char* name)
{
    setObjectName(name);
    setFont(fixedPitchFont());
    setUniformItemSizes(true);
    setIconSize({markSize, markSize});
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(this, &QListWidget::itemChanged, this, [this] {
        if (!m_changing) {
            Q_EMIT ticksChanged();
        }
    });
}

void TickList::useMarks()
{
    QPixmap room(markSize, markSize);
    room.fill(Qt::transparent);
    m_markIcons = {room, glyphIcon(Glyph::Exclamation, theme::accent),
                   glyphIcon(Glyph::Critical, theme::alarm)};
}

void TickList::addRow(const QString& text, Mark mark, const QString& why, bool ticked)
{
    auto* const item = new QListWidgetItem(text);
    const bool tickable = mark != Mark::Refusal;
    item->setFlags(item->flags().setFlag(Qt::ItemIsUserCheckable, tickable));
    item->setCheckState(tickable && ticked ? Qt::Checked : Qt::Unchecked);
    if (!tickable) {
        item->setForeground(mutedColour(paintedWith(palette())));
    }
    addItem(item);
    this->mark(rows() - 1, mark, why);
}

void TickList::mark(std::size_t row, Mark mark, const QString& why)
{
    const QSignalBlocker blocker(this); // no tick changes
    QListWidgetItem& marked = *item(static_cast<int>(row));
    if (hasMarks()) {
        marked.setIcon(m_markIcons.at(static_cast<std::size_t>(mark)));
    }
    marked.setToolTip(plainToolTip(why));
    marked.setData(Qt::AccessibleDescriptionRole, why);
}

void TickList::setTicked(QListWidgetItem& item, bool ticked)
{
    if (item.flags().testFlag(Qt::ItemIsUserCheckable)) {
        item.setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    }
}

void TickList::tick(const std::vector<std::size_t>& rows, bool ticked)
{
    m_changing = true;
    for (const std::size_t row : rows) {
        setTicked(*item(static_cast<int>(row)), ticked);
    }
    m_changing = false;
    Q_EMIT ticksChanged();
}

void TickList::tickAll(bool ticked)
{
    m_changing = true;
    for (int row = 0; row < count(); ++row) {
        setTicked(*item(row), ticked);
    }
    m_changing = false;
    Q_EMIT ticksChanged();
}

bool TickList::isTicked(std::size_t row) const
{
    return item(static_cast<int>(row))->checkState() == Qt::Checked;
}

std::vector<std::size_t> TickList::tickedRows() const
{
    std::vector<std::size_t> result;
    for (std::size_t row = 0; row < rows(); ++row) {
        if (isTicked(row)) {
            result.push_back(row);
        }
    }
    return result;
}

std::optional<std::size_t> TickList::selectedRow() const
{
    const QListWidgetItem* const current = currentItem();
    return current != nullptr && current->isSelected() ? std::optional(static_cast<std::size_t>(currentRow()))
                                                       : std::nullopt;
}

void TickList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT enterPressed();
        return;
    }
    if (event->key() != Qt::Key_Space || currentItem() == nullptr) {
        QListWidget::keyPressEvent(event);
        return;
    }
    std::vector<std::size_t> selected;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        selected.push_back(static_cast<std::size_t>(index.row()));
    }
    if (selected.empty()) { // show first what the key is about
        setCurrentRow(currentRow());
        return;
    }
    tick(selected, currentItem()->checkState() != Qt::Checked);
}

int TickList::textStart() const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    if (hasMarks()) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.decorationSize = iconSize();
        option.icon = m_markIcons[0];
    }
    option.text = "0";
    option.rect = QRect(0, 0, width(), fontMetrics().height());
    const int textMargin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    return frameWidth() + style()->subElementRect(QStyle::SE_ItemViewItemText, &option, this).left() +
           textMargin;
}

LineButtons::LineButtons(TickList& lines, SamplePlayer& player)
    : tickAll(makeButton("CdSelect", Glyph::Accept)), untickAll(makeButton("CdEfface", Glyph::RemoveItem)),
      play(makeButton("CdPlay2", Glyph::Play)), stop(makeButton("CdStopS2", Glyph::Stop))
{
    QObject::connect(tickAll, &QPushButton::clicked, &lines, [&lines] { lines.tickAll(true); });
    QObject::connect(untickAll, &QPushButton::clicked, &lines, [&lines] { lines.tickAll(false); });
    QObject::connect(stop, &QPushButton::clicked, &lines, [&player] { StopSample(player); });
    QObject::connect(&lines, &TickList::enterPressed, play, &QPushButton::click);
}

ColumnTitles::ColumnTitles(const char* name, const TickList& list) : m_list(list)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setFont(fixedPitchFont());
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(list.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void ColumnTitles::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int blanksBeforeId = 6; // of the title, which has its own room for the tick
    const std::pair<qreal, BilingualText> columns[] = {{29, {"Samples", "Samples"}},
                                                       {61, {"VOL", "VOL"}},
                                                       {69, {"P", "P"}},
                                                       {71, {"V", "V"}},
                                                       {72.5, {"RN", "RN"}}, // clear of its neighbours
                                                       {75, {"L", "L"}},
                                                       {77, {"CH", "CH"}},
                                                       {85, {"PIT", "PIT"}},
                                                       {93, {"RAD", "RAD"}},
                                                       {101, {"Letters", "Lettres"}}};
    QPainter painter(this);
    const int start = m_list.textStart() - m_list.horizontalScrollBar()->value();
    const qreal characterWidth = QFontMetricsF(font()).horizontalAdvance('0');
    const int baseline = (height() + fontMetrics().ascent() - fontMetrics().descent()) / 2;
    const auto drawAt = [&](qreal column, const QString& title) {
        painter.drawText(QPointF(start + column * characterWidth, baseline), title);
    };
    painter.setPen(palette().color(QPalette::WindowText));
    drawAt(-blanksBeforeId, text());
    painter.setPen(theme::mutedText);
    for (const auto& [column, title] : columns) {
        drawAt(column, inLanguage(title, m_language));
    }
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
