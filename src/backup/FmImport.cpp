// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/FmImport.h"

#include "backup/ExportCommands.h"
#include "backup/SampleTransfer.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "samples/SamplesFolder.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/FoldingPanel.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t newLinesColourSlot = 4;
constexpr std::size_t samplesColourSlot = 0;

// The line of the file, the line of the catalogue, and what would become of it.
QTableWidget* makeComparisonTable()
{
    constexpr int lines = 3;
    auto* const table = named(new QTableWidget(lines, 0), "TbCompare");
    table->setFont(fixedPitchFont());
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    table->setTextElideMode(Qt::ElideRight);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + controlGap);
    constexpr int scrollBarHeight = 10;
    table->setFixedHeight((lines + 1) * table->verticalHeader()->defaultSectionSize() + scrollBarHeight);
    return table;
}

TickList::Mark markOf(const ImportRow& row)
{
    if (!row.applicable()) {
        return TickList::Mark::Refusal;
    }
    return row.remark.empty() ? TickList::Mark::None : TickList::Mark::Remark;
}

// An import gives the lines a letter; a restore takes them as they are.
BilingualText targetOf(const ImportFile& file, const CurrentWad& wad)
{
    if (file.kind != ExchangeKind::Exchange) {
        return {};
    }
    return wad.letter.empty() ? BilingualText("No WAD is chosen.", "Aucun WAD n'est choisi.")
                              : BilingualText("Letter: #", "Lettre : #") +
                                    utf8FromCodePage(wad.letter + " - " + wad.wadName);
}

const BilingualText& whyMarked(const ImportRow& row)
{
    return row.applicable() ? row.remark : row.refusal;
}

} // namespace

FmImport::FmImport(QWidget* parent, const ExchangeContext& context)
    : TitledWindow(parent), m_context(context), m_body(new QWidget),
      m_chooseFile(makeButton("CdFile", Glyph::ChooseFile)), m_path(makeElidedLabel("LbRep")),
      m_mode(makeHeading("Label5")), m_target(named(new QLabel, "LbTarget")),
      m_counts(named(new QLabel, "LbIndic")), m_lines(new TickList("LiLine")),
      m_buttons(*m_lines, m_context.player), m_titles(new ColumnTitles("Label4", *m_lines)),
      m_remark(makePaperLabel("LbRemark")), m_samples(new TickList("LiIncluS")),
      m_sampleCounts(named(new QLabel, "LbIncluS")), m_samplesPanel(makeSamplesPanel()),
      m_comparison(new FoldingPanel("ImPlus", nullptr)), m_table(makeComparisonTable()),
      m_withSamples(named(new QCheckBox, "CkSamp")), m_apply(makeButton("CdOpen", Glyph::ImportBackup)),
      m_close(makeButton("CdStop", Glyph::Close)), m_status(new CopyStatus)
{
    setObjectName("FmImport");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    m_lines->useMarks();
    m_samples->useMarks();
    layOut();
    paintWith(*m_lines, m_context.colours.slots[newLinesColourSlot]);
    paintWith(*m_table, m_context.colours.slots[newLinesColourSlot]);
    paintWith(*m_samples, m_context.colours.slots[samplesColourSlot]);
    m_titles->setLanguage(m_context.language);
    showCaptions();
    connectControls();
    showNothing();
    m_chooseFile->setFocus();
}

QString FmImport::inLanguage(const BilingualText& text) const
{
    return tavrel::inLanguage(text, m_context.language);
}

QWidget* FmImport::makeSamplesPanel()
{
    auto* const panel = named(new QWidget, "PnSamples");
    auto* const column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_sampleCounts);
    column->addWidget(m_samples, 1);
    panel->setFixedWidth(220);
    return panel;
}

void FmImport::layOut()
{
    constexpr int margin = 2 * controlGap;
    auto* const warning = named(new QLabel, "LbWarning");
    warning->setTextFormat(Qt::PlainText);
    warning->setWordWrap(true);
    QSizePolicy remarkSize = m_remark->sizePolicy();
    remarkSize.setRetainSizeWhenHidden(true);
    m_remark->setSizePolicy(remarkSize);
    auto* const fileRow = rowOf({m_chooseFile, m_path, m_mode, m_target});
    fileRow->setStretch(1, 1);
    auto* const ticks = rowOf({m_buttons.tickAll, m_buttons.untickAll, m_counts});
    ticks->insertStretch(2, 1);
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(m_titles);
    lines->addWidget(m_lines, 1);
    auto* const lists = new QHBoxLayout;
    lists->setSpacing(margin);
    lists->addLayout(lines, 1);
    lists->addWidget(m_samplesPanel);
    auto* const buttons = rowOf({m_buttons.play, m_buttons.stop, m_withSamples, m_apply, m_close});
    buttons->insertSpacing(2, margin);
    buttons->insertStretch(4, 1);
    m_comparison->content().addWidget(m_table);
    m_comparison->setOpen(false);
    auto* const body = new QVBoxLayout(m_body);
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(controlGap);
    body->addLayout(fileRow);
    body->addLayout(ticks);
    body->addLayout(lists, 1);
    body->addWidget(m_remark);
    body->addWidget(m_comparison);
    body->addWidget(warning);
    body->addLayout(buttons);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_body, 1);
    content().addWidget(m_status);
    resize(1140, 700);
}

void FmImport::connectControls()
{
    connect(m_chooseFile, &QPushButton::clicked, this, &FmImport::chooseFile);
    connect(m_lines, &TickList::ticksChanged, this, &FmImport::linesTicked);
    connect(m_lines, &QListWidget::itemSelectionChanged, this, &FmImport::selectionChanged);
    connect(m_samples, &TickList::ticksChanged, this, &FmImport::samplesTicked);
    connect(m_withSamples, &QCheckBox::toggled, this, &FmImport::fillSamples);
    connect(m_comparison, &FoldingPanel::openChanged, this, &FmImport::compare);
    connect(m_buttons.play, &QPushButton::clicked, this, &FmImport::play);
    connect(m_apply, &QPushButton::clicked, this, &FmImport::apply);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
}

void FmImport::showCaptions()
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const Caption captions[] = {
        both("CdFile", {"Choose File to Import/Restore", "Choisir le fichier à Importer/Restaurer"}),
        both("CdSelect", {"Select all lines", "Selectionner toutes les lignes"}),
        both("CdEfface", {"Unselect all lines", "Décocher toutes les lignes"}),
        {"Label4", {"      ID    Line", "      ID    Ligne"}, {}},
        {"LiLine",
         {},
         {"Lines of the file; Space ticks, Enter plays", "Lignes du fichier ; Espace coche, Entrée joue"}},
        {"LiIncluS",
         {},
         {"Samples to copy from the folder of the file", "Samples à copier depuis le répertoire du fichier"}},
        {"ImPlus",
         {"The file's line and the catalogue's line", "La ligne du fichier et la ligne du catalogue"},
         {"Show or hide the comparison of the selected line",
          "Afficher ou cacher la comparaison de la ligne choisie"}},
        {"TbCompare",
         {},
         {"Fields that differ are marked with *", "Les champs qui diffèrent sont marqués d'un *"}},
        {"LbWarning",
         {"All selected lines above will replace lines in the current main window. All modifications on these "
          "lines will be lost.",
          "Toutes les lignes sélectionnées ci-dessus vont remplacer les lignes dans la fenêtre principale. Toutes "
          "les modifications déjà effectuées sur ces lignes seront perdues."},
         {}},
        both("CdPlay2", {"Play sample", "Jouer le sample"}),
        both("CdStopS2", {"Stop sample", "Stopper le sample"}),
        both("CkSamp", {"Include and Replace Samples Files", "Inclure et Remplacer les Fichiers Samples"}),
        both("CdStop", {"Close", "Fermer"}),
        {"CdCancelCopy", {"Cancel", "Annuler"}, {"Stop copying the samples", "Arrêter la copie des samples"}},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::importWindow));
    m_table->setVerticalHeaderLabels({inLanguage({"File", "Fichier"}), inLanguage({"Catalogue", "Catalogue"}),
                                      inLanguage({"Result", "Résultat"})});
}

void FmImport::chooseFile()
{
    const std::optional<std::filesystem::path> file =
        chooseImportFile(m_context.places.program, m_context.dialogs);
    if (!file) {
        return;
    }
    showNothing();
    m_path->setText(QString::fromStdString(displayPath(*file)));
    Result<ImportFile> read = readImportFile(*file, m_context.catalogue, m_context.wad.letter);
    if (!read) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::importWindow, read.failure().text});
        return;
    }
    m_file = std::move(*read);
    showFile();
}

void FmImport::showNothing()
{
    m_file.reset();
    m_declined.clear();
    m_withSamples->setChecked(false);
    m_withSamples->hide();
    m_mode->clear();
    m_target->clear();
    m_path->clear();
    m_lines->clear();
    m_apply->setText(inLanguage(actionOf(ExchangeKind::Exchange)));
    m_apply->setToolTip(m_apply->text());
    m_apply->setEnabled(false);
    showCounts();
    fillSamples();
    selectionChanged();
}

void FmImport::showFile()
{
    const QString action = inLanguage(actionOf(m_file->kind));
    m_mode->setText(action.toUpper());
    m_target->setText(inLanguage(targetOf(*m_file, m_context.wad)));
    m_apply->setText(action);
    m_apply->setToolTip(action);
    m_apply->setEnabled(true);
    m_withSamples->setVisible(m_file->samplesFolder.has_value());
    for (const ImportRow& row : m_file->rows) {
        m_lines->addRow(fromCodePage(listedText(row)), markOf(row), inLanguage(whyMarked(row)));
    }
    if (!m_file->notices.empty()) {
        m_context.dialogs.show({MessageIcon::Information, actionOf(m_file->kind), listOf(m_file->notices)});
    }
    m_lines->scrollToTop();
    showCounts();
    selectionChanged();
    m_lines->setFocus();
}

void FmImport::linesTicked()
{
    if (!m_file) {
        return;
    }
    foresee(*m_file, m_lines->tickedRows(), m_context.catalogue, m_context.wad.letter);
    showMarks();
    showCounts();
    fillSamples();
}

void FmImport::showMarks()
{
    for (std::size_t i = 0; i < m_file->rows.size(); ++i) {
        const ImportRow& row = m_file->rows[i];
        m_lines->mark(i, markOf(row), inLanguage(whyMarked(row)));
    }
    showRemarks();
    compare();
}

void FmImport::showCounts()
{
    m_counts->setText(inLanguage(countOfLines(m_lines->rows(), m_lines->tickedRows().size())));
}

// About the selected line; without one, about all of them.
void FmImport::showRemarks()
{
    m_remark->hide();
    if (!m_file) {
        return;
    }
    const auto say = [this](const BilingualText& text, bool alarming) {
        setPaperText(*m_remark, inLanguage(text), alarming);
        m_remark->setVisible(!text.empty());
    };
    if (const std::optional<std::size_t> row = m_lines->selectedRow()) {
        const ImportRow& selected = m_file->rows[*row];
        say(whyMarked(selected), !selected.applicable());
        return;
    }
    const auto refused =
        std::ranges::count_if(m_file->rows, [](const ImportRow& row) { return !row.applicable(); });
    const auto remarked =
        std::ranges::count_if(m_file->rows, [](const ImportRow& row) { return !row.remark.empty(); });
    BilingualText text;
    if (refused > 0) {
        text +=
            counted(static_cast<std::size_t>(refused), {"line cannot be applied. ", "ligne inapplicable. "},
                    {"lines cannot be applied. ", "lignes inapplicables. "});
    }
    if (remarked > 0) {
        text += counted(static_cast<std::size_t>(remarked), {"line should be checked.", "ligne à vérifier."},
                        {"lines should be checked.", "lignes à vérifier."});
    }
    say(text, refused > 0);
}

// What the user unticked stays unticked.
void FmImport::fillSamples()
{
    m_samplesPanel->setVisible(m_withSamples->isChecked());
    m_samples->clear();
    m_offered.clear();
    if (!m_withSamples->isChecked()) {
        return;
    }
    for (const std::size_t row : m_lines->tickedRows()) {
        const std::vector<std::string> names = offeredSamples(m_file->rows[row]);
        for (std::size_t i = 0; i < names.size(); ++i) {
            const bool safe = isSafeSampleName(names[i]);
            m_offered.emplace_back(row, i);
            m_samples->addRow(fromCodePage(names[i]), safe ? TickList::Mark::None : TickList::Mark::Refusal,
                              safe ? QString() : inLanguage(unsafeSampleNames({&names[i], 1})),
                              !m_declined.contains({row, i}));
        }
    }
    m_samples->scrollToTop();
    showSampleCounts();
}

void FmImport::samplesTicked()
{
    for (std::size_t i = 0; i < m_offered.size(); ++i) {
        if (m_samples->isTicked(i)) {
            m_declined.erase(m_offered[i]);
        } else {
            m_declined.insert(m_offered[i]);
        }
    }
    showSampleCounts();
}

void FmImport::showSampleCounts()
{
    m_sampleCounts->setText(
        QString("%1 / %2 samples").arg(m_samples->tickedRows().size()).arg(m_samples->rows()));
}

void FmImport::selectionChanged()
{
    const bool selected = m_lines->selectedRow().has_value();
    m_buttons.play->setEnabled(selected); // to stop stays possible: a sample may be playing
    showRemarks();
    compare();
}

void FmImport::compare()
{
    if (!m_comparison->isOpen()) {
        return;
    }
    const std::optional<std::size_t> row = m_lines->selectedRow();
    const std::vector<FieldComparison> fields =
        compareWithCatalogue(row ? m_file->rows[*row] : ImportRow(), m_context.catalogue);
    m_table->setColumnCount(static_cast<int>(fields.size()));
    for (int column = 0; column < m_table->columnCount(); ++column) {
        const FieldComparison& field = fields[static_cast<std::size_t>(column)];
        m_table->setHorizontalHeaderItem(
            column, new QTableWidgetItem(inLanguage(field.field) + (field.differs ? " *" : "")));
        for (std::size_t line = 0; line < field.values.size(); ++line) {
            auto* const item = new QTableWidgetItem(fromCodePage(field.values[line]));
            item->setToolTip(plainToolTip(item->text()));
            if (line == FieldComparison::result ? field.changes() : field.differs) {
                item->setForeground(markColour(paintedWith(m_table->palette())));
            }
            m_table->setItem(static_cast<int>(line), column, item);
        }
    }
}

// As the user would hear it after the import.
void FmImport::play()
{
    const std::optional<std::size_t> row = m_lines->selectedRow();
    if (!row) {
        return;
    }
    const ImportRow& selected = m_file->rows[*row];
    const std::optional<SoundLine> record = recordOf(selected);
    if (!record || record->sampleCount() == 0) {
        return;
    }
    const std::string& name = record->Samples.front();
    const std::filesystem::path folder = m_file->samplesFolder && findSample(*m_file->samplesFolder, name)
                                             ? *m_file->samplesFolder
                                             : m_context.places.samples;
    const Problem problem = PlaySample(m_context.player, folder, name, m_context.dialogs);
    m_status->showText(problem ? problem->text : BilingualText(), m_context.language);
}

void FmImport::apply()
{
    ImportRequest request{*m_file, m_lines->tickedRows(),   m_context.wad, m_withSamples->isChecked(),
                          {},      m_context.places.samples};
    for (const std::size_t i : m_samples->tickedRows()) {
        const auto& [row, name] = m_offered[i];
        request.samples.push_back(offeredSamples(m_file->rows[row])[name]);
    }
    if (!confirmImport(request, m_context.dialogs)) {
        return;
    }
    const ImportOutcome outcome = [&] {
        CopyProgress progress(*m_status, *m_body, m_context.language);
        return applyImport(m_context.catalogue, request, progress);
    }();
    m_importDone = m_importDone || outcome.linesApplied;
    if (outcome.linesApplied) {
        m_importedLines += request.rows.size();
        markApplied(*m_file, request.rows, m_context.catalogue, m_context.wad.letter);
    }
    if (outcome.report) {
        m_context.dialogs.show(*outcome.report);
    }
    if (outcome.complete) {
        accept();
        return;
    }
    showMarks();
}

void FmImport::reject()
{
    if (m_body->isEnabled()) {
        TitledWindow::reject();
    } else {
        m_status->cancel->click();
    }
}

} // namespace tavrel
