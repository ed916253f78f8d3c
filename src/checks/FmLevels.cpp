// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/FmLevels.h"

#include "base/Titles.h"
#include "checks/FindingTexts.h"
#include "checks/ListSaving.h"
#include "checks/Sizes.h"
#include "references/ShippedTexts.h"
#include "ui/BusyPointer.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t levelsColourSlot = 1;
constexpr int sortRole = Qt::UserRole;      // a number behind the text
constexpr int barRole = Qt::UserRole + 1;   // from 0 to 1
constexpr int indexRole = Qt::UserRole + 2; // of the level

enum Column { Wad, Letter, LevelTitle, Own, Global, Samples, Bytes, Missing, Findings, Made, ColumnCount };

// Sorts numbers as numbers.
class Row : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem& other) const override
    {
        const int column = treeWidget()->sortColumn();
        const QVariant left = data(column, sortRole);
        const QVariant right = other.data(column, sortRole);
        if (left.isValid() && right.isValid() && left != right) {
            return left.toDouble() < right.toDouble();
        }
        // Names go from A to Z, whichever way equal numbers are sorted.
        const int nameColumn = left.isValid() ? 0 : column;
        const bool isReversed =
            left.isValid() && treeWidget()->header()->sortIndicatorOrder() == Qt::DescendingOrder;
        const int order = text(nameColumn).compare(other.text(nameColumn), Qt::CaseInsensitive);
        return isReversed ? order > 0 : order < 0;
    }
};

// A bar behind the text of a cell.
class BarDelegate : public QStyledItemDelegate
{
public:
    BarDelegate(QObject* parent, const ColourPair& colours)
        : QStyledItemDelegate(parent), m_colour(markColour(colours))
    {
        constexpr int faint = 110;
        m_colour.setAlpha(faint);
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        if (isSelected) { // its ground would cover the bar
            QStyledItemDelegate::paint(painter, option, index);
        }
        const double share = index.data(barRole).toDouble();
        if (share > 0) {
            QRectF bar = QRectF(option.rect).adjusted(2, 3, -2, -3);
            bar.setWidth(std::max(2.0, bar.width() * share));
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(isSelected ? QColor(0, 0, 0, 40) : m_colour);
            painter->drawRoundedRect(bar, 2, 2);
            painter->restore();
        }
        if (!isSelected) {
            QStyledItemDelegate::paint(painter, option, index);
        }
    }

private:
    QColor m_colour;
};

void setNumber(QTreeWidgetItem& row, int column, std::uintmax_t number)
{
    row.setText(column, QString::number(number));
    row.setData(column, sortRole, static_cast<double>(number));
    row.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

QTreeWidget* makeTable(const char* name, const ColourPair& colours)
{
    auto* const table = named(new QTreeWidget, name);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAllColumnsShowFocus(true);
    table->setSortingEnabled(true);
    table->header()->setSectionsMovable(false);
    paintWith(*table, colours);
    return table;
}

} // namespace

FmLevels::FmLevels(QWidget* parent, LevelsContext context)
    : WatchingWindow(parent, context.language, std::chrono::milliseconds(200)), m_context(std::move(context)),
      m_heading(makeHeading("LbLevels")),
      m_list(makeTable("LiLevels", m_context.colours.slots[levelsColourSlot])),
      m_samplesHeading(makeHeading("LbLevelSamples")),
      m_samples(makeTable("LiLevelSamples", m_context.colours.slots[levelsColourSlot])),
      m_show(makeButton("CdShow", Glyph::ToStart)), m_save(makeButton("CdSave", Glyph::ExportBackup)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmLevels");
    layOut();
    connectControls();
    FmLevels::showCaptions(); // no window derives from this one
}

void FmLevels::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_list->setColumnCount(ColumnCount);
    m_list->setItemDelegateForColumn(Bytes,
                                     new BarDelegate(m_list, m_context.colours.slots[levelsColourSlot]));
    m_list->header()->setStretchLastSection(false);
    m_list->sortByColumn(Bytes, Qt::DescendingOrder);
    m_samples->setColumnCount(2);
    m_samples->setItemDelegateForColumn(
        1, new BarDelegate(m_samples, m_context.colours.slots[levelsColourSlot]));
    m_samples->sortByColumn(1, Qt::DescendingOrder);
    constexpr int nameWidth = 240;
    m_samples->setColumnWidth(0, nameWidth);
    auto* const buttons = rowOf({m_show, m_save, m_close});
    buttons->insertStretch(1, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_heading);
    content().addWidget(m_list, 3);
    content().addSpacing(controlGap);
    content().addWidget(m_samplesHeading);
    content().addWidget(m_samples, 4);
    content().addLayout(buttons);
    resize(1120, 600);
}

void FmLevels::connectControls()
{
    connect(m_list, &QTreeWidget::currentItemChanged, this, &FmLevels::showSamples);
    activateFrom(*m_list);
    connect(m_show, &QPushButton::clicked, this, &FmLevels::activate);
    connect(m_save, &QPushButton::clicked, this, [this] {
        saveList(
            in({"levels.csv", "niveaux.csv"}).toStdString(), true,
            [this](bool) { return csvOf(m_levels, language()); }, m_context.dialogs);
    });
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
}

void FmLevels::showCaptions()
{
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbLevels", {"Your levels", "Vos niveaux"}, {}},
        {"LiLevels",
         {},
         {"Your levels; Enter shows the sounds of one in the main list",
          "Vos niveaux ; Entrée montre les sons de l'un d'eux dans la liste principale"}},
        {"LiLevelSamples", {}, {"The samples of the selected level", "Les samples du niveau choisi"}},
        {"CdShow",
         {"Show its sounds", "Montrer ses sons"},
         {"Only the sounds of this level in the main list (Enter)",
          "Seulement les sons de ce niveau dans la liste principale (Entrée)"}},
        {"CdSave",
         {"Save the list...", "Enregistrer la liste..."},
         {"Save the levels as a table", "Enregistrer les niveaux comme tableau"}},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, language());
    setWindowTitle(in(titles::levels));
    m_list->setHeaderLabels({"WAD", in({"Letter", "Lettre"}), in({"Title", "Titre"}), in({"Own", "Propres"}),
                             "#g", "Samples", in({"Size", "Taille"}), in({"Missing", "Manquants"}),
                             in({"Findings", "Constats"}), in({"Made", "Générés"})});
    const std::pair<Column, BilingualText> toolTips[] = {
        {Own, {"Sounds with the level's letter", "Sons avec la lettre du niveau"}},
        {Global, {"Sounds of every level", "Sons de chaque niveau"}},
        {Samples, {"Different samples of all these sounds", "Samples différents de tous ces sons"}},
        {Bytes, {"Of all these samples on the disk", "De tous ces samples sur le disque"}},
        {Missing, {"Samples whose file is not there", "Samples dont le fichier n'est pas là"}},
        {Findings, {"What the check of the project has found", "Ce qu'a trouvé le contrôle du projet"}},
        {Made, {"When its sound files were made", "Quand ses fichiers de sons ont été générés"}},
    };
    for (const auto& [column, text] : toolTips) {
        m_list->headerItem()->setToolTip(column, in(text));
    }
    m_samples->setHeaderLabels({"Sample", in({"Size", "Taille"})});
}

void FmLevels::run()
{
    Result<std::vector<LevelSurvey>> levels = [this] {
        const BusyPointer busy;
        return m_context.survey();
    }();
    markCurrent();
    if (!levels) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::levels, levels.failure().text});
        return;
    }
    m_levels = std::move(*levels);
    fill();
}

void FmLevels::fill()
{
    const LevelSurvey* const before = selected();
    const std::string wanted = before == nullptr ? m_context.wad().wadName : before->reference.wadName;
    std::uintmax_t largest = 1;
    for (const LevelSurvey& level : m_levels) {
        largest = std::max(largest, level.bytes);
    }
    m_list->clear();
    QTreeWidgetItem* current = nullptr;
    for (std::size_t i = 0; i < m_levels.size(); ++i) {
        const LevelSurvey& level = m_levels[i];
        auto* const row = new Row(m_list);
        row->setText(Wad, fromCodePage(level.reference.wadName));
        row->setText(Letter, "#" + fromCodePage(level.reference.letter));
        const QString title = in(shippedText(level.reference.title));
        row->setText(LevelTitle, title);
        row->setToolTip(LevelTitle, plainToolTip(title));
        setNumber(*row, Own, level.ownSounds);
        setNumber(*row, Global, level.globalSounds);
        setNumber(*row, Samples, level.samples.size());
        setNumber(*row, Bytes, level.bytes);
        row->setText(Bytes, in(shownSize(level.bytes)));
        row->setData(Bytes, barRole, static_cast<double>(level.bytes) / static_cast<double>(largest));
        setNumber(*row, Missing, level.missingSamples);
        setNumber(*row, Findings, level.errors + level.warnings + level.notes);
        row->setToolTip(Findings, in(counted(level.errors, Severity::Error) + ", " +
                                     counted(level.warnings, Severity::Warning) + ", " +
                                     counted(level.notes, Severity::Note)));
        row->setText(Made,
                     level.made ? QString::fromStdString(shownTime(*level.made)) : in({"none", "aucun"}));
        row->setData(Wad, indexRole, static_cast<qulonglong>(i));
        if (level.reference.wadName == wanted || current == nullptr) {
            current = row;
        }
    }
    m_list->setCurrentItem(current);
    for (int column = 0; column < ColumnCount; ++column) {
        constexpr int air = 6;
        constexpr int widestTitle = 200;
        m_list->resizeColumnToContents(column);
        const int width = m_list->columnWidth(column) + air;
        m_list->setColumnWidth(column, column == Bytes ? std::max(width, 130) : std::min(width, widestTitle));
    }
    m_heading->setText(m_levels.empty()
                           ? in({"No levels yet: add a reference of your WAD first",
                                 "Pas encore de niveaux : ajoutez d'abord une référence de votre WAD"})
                           : in({"Your levels", "Vos niveaux"}) + QString(" (%1)").arg(m_levels.size()));
    m_save->setEnabled(!m_levels.empty());
    showSamples();
}

const LevelSurvey* FmLevels::selected() const
{
    const QTreeWidgetItem* const row = m_list->currentItem();
    const auto index =
        row == nullptr ? m_levels.size() : static_cast<std::size_t>(row->data(Wad, indexRole).toULongLong());
    return index < m_levels.size() ? &m_levels[index] : nullptr;
}

void FmLevels::showSamples()
{
    m_samples->clear();
    const LevelSurvey* const level = selected();
    m_show->setEnabled(level != nullptr);
    m_samplesHeading->setText(level == nullptr ? QString()
                                               : in({"Samples of ", "Samples de "}) +
                                                     fromCodePage(level->reference.wadName) +
                                                     QString(" (%1)").arg(level->samples.size()));
    if (level == nullptr) {
        return;
    }
    std::uintmax_t largest = 1;
    for (const LevelSample& sample : level->samples) {
        largest = std::max(largest, sample.bytes.value_or(0));
    }
    QList<QTreeWidgetItem*> rows;
    for (const LevelSample& sample : level->samples) {
        auto* const row = new Row;
        row->setText(0, fromCodePage(sample.name));
        row->setData(1, sortRole, sample.bytes ? static_cast<double>(*sample.bytes) : -1.0);
        row->setText(1, sample.bytes ? in(shownSize(*sample.bytes)) : in({"missing", "manquant"}));
        row->setData(1, barRole,
                     static_cast<double>(sample.bytes.value_or(0)) / static_cast<double>(largest));
        if (!sample.bytes) {
            row->setForeground(1, markColour(m_context.colours.slots[levelsColourSlot]));
        }
        rows += row;
    }
    m_samples->addTopLevelItems(rows);
}

void FmLevels::activate()
{
    if (const LevelSurvey* const level = selected()) {
        m_context.showLevel(level->wad());
    }
}

} // namespace tavrel
