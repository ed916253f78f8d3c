// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/FmImport.h"

#include "backup/ExchangeExport.h"
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

TickList::Mark markOf(const ImportFile& file, std::size_t row)
{
    if (!file.isApplicable(row)) {
        return TickList::Mark::Refusal;
    }
    return file.hasRemark(row) ? TickList::Mark::Remark : TickList::Mark::None;
}

// An import gives the lines a letter; a restore takes them as they are.
BilingualText targetOf(const ImportFile& file, const CurrentWad& wad)
{
    if (file.kind() != ExchangeKind::Exchange) {
        return {};
    }
    return wad.letter.empty() ? BilingualText("No WAD is chosen.", "Aucun WAD n'est choisi.")
                              : BilingualText("Letter: #", "Lettre : #") +
                                    utf8FromCodePage(wad.letter + " - " + wad.wadName);
}

BilingualText whyMarked(const ImportFile& file, std::size_t row)
{
    return file.isApplicable(row) ? file.remark(row) : file.whyRefused(row);
}

} // namespace

FmImport::FmImport(QWidget* parent, const ExchangeContext& context)
    : ExchangeWindow(
          parent, context,
          {"FmImport", newLinesColourSlot, makeButton("CdOpen", Glyph::ImportBackup), QSize(1140, 700)}),
      m_chooseFile(makeButton("CdFile", Glyph::ChooseFile)), m_path(makeElidedLabel("LbRep")),
      m_mode(makeHeading("Label5")), m_target(named(new QLabel, "LbTarget")),
      m_remark(makePaperLabel("LbRemark")), m_samples(new TickList("LiIncluS")),
      m_sampleCounts(named(new QLabel, "LbIncluS")), m_samplesPanel(makeSamplesPanel()),
      m_comparison(new FoldingPanel("ImPlus", nullptr)), m_table(makeComparisonTable())
{
    lines().useMarks();
    m_samples->useMarks();
    layOut();
    paintWith(*m_table, context.colours.slots[newLinesColourSlot]);
    paintWith(*m_samples, context.colours.slots[samplesColourSlot]);
    showCaptions();
    connectControls();
    showNothing();
    m_chooseFile->setFocus();
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
    auto* const warning = named(new QLabel, "LbWarning");
    warning->setTextFormat(Qt::PlainText);
    warning->setWordWrap(true);
    QSizePolicy remarkSize = m_remark->sizePolicy();
    remarkSize.setRetainSizeWhenHidden(true);
    m_remark->setSizePolicy(remarkSize);
    auto* const fileRow = rowOf({m_chooseFile, m_path, m_mode, m_target});
    fileRow->setStretch(1, 1);
    linesRow().addWidget(m_samplesPanel);
    m_comparison->content().addWidget(m_table);
    m_comparison->setOpen(false);
    body().addLayout(fileRow);
    body().addLayout(makeTicksRow({}));
    body().addLayout(&linesRow(), 1);
    body().addWidget(m_remark);
    body().addWidget(m_comparison);
    body().addWidget(warning);
    addButtons();
}

void FmImport::connectControls()
{
    connect(m_chooseFile, &QPushButton::clicked, this, &FmImport::chooseFile);
    connect(&lines(), &TickList::ticksChanged, this, &FmImport::linesTicked);
    connect(&lines(), &TickList::selectedRowChanged, this, &FmImport::selectionChanged);
    connect(m_samples, &TickList::ticksChanged, this, &FmImport::samplesTicked);
    connect(&withSamples(), &QCheckBox::toggled, this, &FmImport::fillSamples);
    connect(m_comparison, &FoldingPanel::openChanged, this, &FmImport::compare);
    connect(&action(), &QPushButton::clicked, this, &FmImport::apply);
}

void FmImport::showCaptions()
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    ExchangeWindow::showCaptions(
        {
            both("CdFile", {"Choose File to Import/Restore", "Choisir le fichier à Importer/Restaurer"}),
            {"Label4", {"      ID    Line", "      ID    Ligne"}, {}},
            {"LiLine",
             {},
             {"Lines of the file; Space ticks, Enter plays",
              "Lignes du fichier ; Espace coche, Entrée joue"}},
            {"LiIncluS",
             {},
             {"Samples to copy from the folder of the file",
              "Samples à copier depuis le répertoire du fichier"}},
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
            both("CkSamp",
                 {"Include and Replace Samples Files", "Inclure et Remplacer les Fichiers Samples"}),
        },
        titles::importWindow);
    m_table->setVerticalHeaderLabels({inLanguage({"File", "Fichier"}), inLanguage({"Catalogue", "Catalogue"}),
                                      inLanguage({"Result", "Résultat"})});
}

void FmImport::chooseFile()
{
    const std::optional<std::filesystem::path> file =
        chooseImportFile(context().places.program, context().dialogs);
    if (!file) {
        return;
    }
    showNothing();
    m_path->setText(QString::fromStdString(displayPath(*file)));
    Result<ImportFile> read = readImportFile(*file, context().catalogue, context().wad.letter);
    if (!read) {
        context().dialogs.show({MessageIcon::Exclamation, titles::importWindow, read.failure().text});
        return;
    }
    m_file = std::move(*read);
    showFile();
}

void FmImport::showNothing()
{
    lines().clear(); // before the file that its rows are read from
    m_file.reset();
    m_declined.clear();
    withSamples().setChecked(false);
    withSamples().hide();
    m_mode->clear();
    m_target->clear();
    m_path->clear();
    action().setText(inLanguage(actionOf(ExchangeKind::Exchange)));
    action().setToolTip(action().text());
    action().setEnabled(false);
    showCounts();
    fillSamples();
    selectionChanged();
}

void FmImport::showFile()
{
    const QString caption = inLanguage(actionOf(m_file->kind()));
    m_mode->setText(caption.toUpper());
    m_target->setText(inLanguage(targetOf(*m_file, context().wad)));
    action().setText(caption);
    action().setToolTip(caption);
    action().setEnabled(true);
    withSamples().setVisible(m_file->samplesFolder().has_value());
    lines().setRows({m_file->rows(),
                     [this](std::size_t row) { return fromCodePage(listedText(*m_file, row)); },
                     [this](std::size_t row) { return markOf(*m_file, row); },
                     [this](std::size_t row) { return inLanguage(whyMarked(*m_file, row)); }});
    if (const std::vector<Failure> notices = m_file->notices(); !notices.empty()) {
        context().dialogs.show({MessageIcon::Information, actionOf(m_file->kind()), listOf(notices)});
    }
    lines().scrollToTop();
    showCounts();
    selectionChanged();
    lines().setFocus();
}

void FmImport::linesTicked()
{
    if (!m_file) {
        return;
    }
    m_file->tick(lines().tickedRows());
    showMarks();
    showCounts();
    fillSamples();
}

void FmImport::showMarks()
{
    lines().showMarks();
    showRemarks();
    compare();
}

// About the selected line; without one, about all of them.
void FmImport::showRemarks()
{
    m_remark->hide();
    if (!m_file) {
        return;
    }
    const auto sayAbout = [this](const BilingualText& text, bool alarming) {
        setPaperText(*m_remark, inLanguage(text), alarming);
        m_remark->setVisible(!text.empty());
    };
    if (const std::optional<std::size_t> row = lines().selectedRow()) {
        sayAbout(whyMarked(*m_file, *row), !m_file->isApplicable(*row));
        return;
    }
    std::size_t refused = 0;
    std::size_t remarked = 0;
    for (std::size_t i = 0; i < m_file->rows(); ++i) {
        refused += m_file->isApplicable(i) ? 0U : 1U;
        remarked += m_file->hasRemark(i) ? 1U : 0U;
    }
    BilingualText text;
    if (refused > 0) {
        text += counted(refused, {"line cannot be applied. ", "ligne inapplicable. "},
                        {"lines cannot be applied. ", "lignes inapplicables. "});
    }
    if (remarked > 0) {
        text += counted(remarked, {"line should be checked.", "ligne à vérifier."},
                        {"lines should be checked.", "lignes à vérifier."});
    }
    sayAbout(text, refused > 0);
}

// What the user unticked stays unticked.
void FmImport::fillSamples()
{
    m_samplesPanel->setVisible(withSamples().isChecked());
    m_samples->clear();
    m_offered.clear();
    if (!withSamples().isChecked()) {
        return;
    }
    for (const std::size_t row : lines().tickedRows()) {
        const std::size_t names = offeredSamples(*m_file, row).size();
        for (std::size_t i = 0; i < names; ++i) {
            m_offered.emplace_back(row, i);
        }
    }
    const auto why = [this](std::size_t sample) {
        const std::string name = offeredName(sample);
        return isSafeSampleName(name) ? QString() : inLanguage(unsafeSampleNames({&name, 1}));
    };
    const auto mark = [this](std::size_t sample) {
        return isSafeSampleName(offeredName(sample)) ? TickList::Mark::None : TickList::Mark::Refusal;
    };
    m_samples->setRows({m_offered.size(),
                        [this](std::size_t sample) { return fromCodePage(offeredName(sample)); }, mark, why,
                        [this](std::size_t sample) { return !m_declined.contains(m_offered[sample]); }});
    m_samples->scrollToTop();
    showSampleCounts();
}

std::string FmImport::offeredName(std::size_t sample) const
{
    const auto& [row, place] = m_offered.at(sample);
    return offeredSamples(*m_file, row).at(place);
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
    m_sampleCounts->setText(QString("%1 / %2 samples").arg(m_samples->tickedCount()).arg(m_samples->rows()));
}

void FmImport::selectionChanged()
{
    showRemarks();
    compare();
}

void FmImport::compare()
{
    if (!m_comparison->isOpen()) {
        return;
    }
    const std::optional<std::size_t> row = lines().selectedRow();
    const std::vector<FieldComparison> fields = compareWithCatalogue(m_file ? &*m_file : nullptr, row);
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
    const std::optional<std::size_t> row = lines().selectedRow();
    if (!row) {
        return;
    }
    const std::optional<SoundLine> record = m_file->record(*row);
    if (!record || record->sampleCount() == 0) {
        return;
    }
    const std::string& name = record->Samples.front();
    const std::filesystem::path folder = m_file->samplesFolder() && findSample(*m_file->samplesFolder(), name)
                                             ? *m_file->samplesFolder()
                                             : context().places.samples;
    playSample(folder, name);
}

void FmImport::apply()
{
    ImportRequest request{*m_file, context().wad, withSamples().isChecked(), {}, context().places.samples};
    for (const std::size_t sample : m_samples->tickedRows()) {
        request.samples.push_back(offeredName(sample));
    }
    if (!confirmExchangeImport(request, context().dialogs)) {
        return;
    }
    const ImportOutcome outcome =
        copying([&](Progress& progress) { return applyImport(context().catalogue, request, progress); });
    m_importDone = m_importDone || outcome.linesApplied;
    if (outcome.linesApplied) {
        m_importedLines += m_file->tickedRows();
        m_file->markApplied();
    }
    if (outcome.report) {
        context().dialogs.show(*outcome.report);
    }
    if (outcome.complete) {
        accept();
        return;
    }
    showMarks();
}

} // namespace tavrel
