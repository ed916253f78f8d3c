// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/FmExport.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "references/ShippedTexts.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t linesColourSlot = 2;
constexpr std::size_t objectsColourSlot = 3;
constexpr std::array<ExportMode, 3> allModes = {ExportMode::Modified, ExportMode::ModifiedAndAdded,
                                                ExportMode::All};

} // namespace

FmExport::FmExport(QWidget* parent, const ExchangeContext& context)
    : TitledWindow(parent), m_context(context),
      m_body(new QWidget), m_modes{named(new QRadioButton, "OpExport0"), named(new QRadioButton, "OpExport1"),
                                   named(new QRadioButton, "OpExport2")},
      m_description(named(new QLabel, "LbDescription")),
      m_showObjects(makeButton("CdOBJ", Glyph::ObjectSelection)), m_counts(named(new QLabel, "LbIndic")),
      m_lines(new TickList("LiLine")), m_buttons(*m_lines, m_context.player),
      m_titles(new ColumnTitles("Label4", *m_lines)), m_types(makeComboBox("CbType")),
      m_objectNames(makeFixedPitchList("LiOBJ")), m_objectPanel(makeObjectPanel()),
      m_withSamples(named(new QCheckBox, "CkSamp")), m_save(makeButton("CdSave", Glyph::ExportBackup)),
      m_close(makeButton("CdStop", Glyph::Close)), m_status(new CopyStatus)
{
    setObjectName("FmExport");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut();
    paintWith(*m_lines, m_context.colours.slots[linesColourSlot]);
    paintWith(*m_objectNames, m_context.colours.slots[objectsColourSlot]);
    m_titles->setLanguage(m_context.language);
    showCaptions();
    connectControls();
    fillTypes();
    m_modes.back()->setChecked(true);
    m_lines->setFocus();
}

QWidget* FmExport::makeModes()
{
    auto* const modes = new QWidget;
    auto* const row = new QHBoxLayout(modes);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4 * controlGap);
    for (QRadioButton* const mode : m_modes) {
        row->addWidget(mode);
    }
    row->addStretch(1);
    return modes;
}

QWidget* FmExport::makeObjectPanel()
{
    auto* const panel = named(new QWidget, "PnObjects");
    auto* const column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    column->addWidget(makeHeading("LbType"));
    column->addWidget(m_types);
    column->addWidget(makeHeading("LbOBJ"));
    column->addWidget(m_objectNames, 1);
    panel->setFixedWidth(230);
    panel->hide();
    return panel;
}

void FmExport::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_description->setTextFormat(Qt::PlainText);
    m_description->setWordWrap(true);
    m_description->setProperty("muted", true);
    m_description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_description->setMinimumHeight(2 * m_description->fontMetrics().lineSpacing());
    m_showObjects->setCheckable(true);
    auto* const ticks = rowOf({m_buttons.tickAll, m_buttons.untickAll, m_showObjects, m_counts});
    ticks->insertStretch(3, 1);
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(m_titles);
    lines->addWidget(m_lines, 1);
    auto* const lists = new QHBoxLayout;
    lists->setSpacing(margin);
    lists->addLayout(lines, 1);
    lists->addWidget(m_objectPanel);
    auto* const buttons = rowOf({m_buttons.play, m_buttons.stop, m_withSamples, m_save, m_close});
    buttons->insertSpacing(2, margin);
    buttons->insertStretch(4, 1);
    auto* const body = new QVBoxLayout(m_body);
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(controlGap);
    body->addWidget(makeHeading("FrChoice"));
    body->addWidget(makeModes());
    body->addWidget(m_description);
    body->addLayout(ticks);
    body->addLayout(lists, 1);
    body->addLayout(buttons);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_body, 1);
    content().addWidget(m_status);
    resize(1140, 660);
}

void FmExport::connectControls()
{
    for (std::size_t i = 0; i < allModes.size(); ++i) {
        connect(m_modes[i], &QRadioButton::toggled, this, [this, i](bool chosen) {
            if (chosen) {
                chooseMode(allModes[i]);
            }
        });
    }
    connect(m_showObjects, &QPushButton::toggled, m_objectPanel, &QWidget::setVisible);
    connect(m_lines, &TickList::ticksChanged, this, &FmExport::showCounts);
    connect(m_lines, &TickList::selectedRowChanged, this, &FmExport::selectionChanged);
    connect(m_types, &QComboBox::currentIndexChanged, this, &FmExport::fillObjects);
    connect(m_objectNames, &QListWidget::itemClicked, this, &FmExport::tickObject);
    connect(m_objectNames, &QListWidget::itemActivated, this, &FmExport::tickObject);
    connect(m_buttons.play, &QPushButton::clicked, this, &FmExport::play);
    connect(m_withSamples, &QCheckBox::toggled, this, &FmExport::showSamplesHint);
    connect(m_save, &QPushButton::clicked, this, &FmExport::save);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
}

void FmExport::showCaptions()
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const BilingualText lines("Lines to save; Space ticks, Enter plays",
                              "Lignes à sauvegarder ; Espace coche, Entrée joue");
    const Caption captions[] = {
        {"FrChoice", {"Choose what to save", "Choisissez le type de sauvegarde"}, {}},
        both("OpExport0", captionOf(ExportMode::Modified)),
        both("OpExport1", captionOf(ExportMode::ModifiedAndAdded)),
        both("OpExport2", captionOf(ExportMode::All)),
        both("CdSelect", {"Select all lines", "Selectionner toutes les lignes"}),
        both("CdEfface", {"Unselect all lines", "Décocher toutes les lignes"}),
        both("CdOBJ", {"Show/Hide object selection", "Afficher/Cacher la sélection d'objets"}),
        {"LiLine", {}, lines},
        {"LbType", {"Object type", "Type d'objet"}, {}},
        {"CbType", {}, {"Object type", "Type d'objet"}},
        {"LbOBJ", {"Object name", "Nom d'objet"}, {}},
        {"LiOBJ",
         {},
         {"A click or Enter ticks the lines of the object", "Un clic ou Entrée coche les lignes de l'objet"}},
        both("CdPlay2", {"Play sample", "Jouer le sample"}),
        both("CdStopS2", {"Stop sample", "Stopper le sample"}),
        {"CkSamp",
         {"Include Samples Files", "Inclure les Fichiers Samples"},
         {"Copy the samples of the lines to a folder beside the file",
          "Copier les samples des lignes dans un répertoire à côté du fichier"}},
        both("CdSave", {"Save", "Sauvegarder"}),
        both("CdStop", {"Close", "Fermer"}),
        {"CdCancelCopy", {"Cancel", "Annuler"}, {"Stop copying the samples", "Arrêter la copie des samples"}},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::exportWindow, m_context.language));
}

void FmExport::chooseMode(ExportMode mode)
{
    m_mode = mode;
    m_rows = listForExport(m_context.catalogue, mode, m_context.wad.letter);
    m_description->setText(inLanguage(descriptionOf(mode), m_context.language));
    m_titles->setText(inLanguage(columnTitleOf(mode), m_context.language));
    m_lines->setRows({m_rows.size(), [this](std::size_t row) { return fromCodePage(m_rows[row].text); }});
    m_lines->scrollToTop();
    showCounts();
    selectionChanged();
    fillObjects();
    showSamplesHint();
}

// Before the user counts on it.
void FmExport::showSamplesHint()
{
    BilingualText hint;
    if (m_mode == ExportMode::All && m_withSamples->isChecked()) {
        hint = {
            "A restore does not copy the samples of a backup back: copy those that you need yourself.",
            "Une restauration ne recopie pas les samples d'une sauvegarde : copiez vous-même ceux qu'il vous "
            "faut."};
    }
    m_status->showText(hint, m_context.language);
}

void FmExport::showCounts()
{
    m_counts->setText(inLanguage(countOfLines(m_lines->rows(), m_lines->tickedCount()), m_context.language));
}

void FmExport::fillTypes()
{
    for (const ObjectGroup& group : objectGroups(m_context.catalogue.objects())) {
        m_types->addItem(inLanguage(shippedText(group.type), m_context.language));
    }
}

// The objects of the type that have a line to tick.
void FmExport::fillObjects()
{
    m_objects.clear();
    m_objectNames->clear();
    const std::vector<ObjectGroup> groups = objectGroups(m_context.catalogue.objects());
    const auto chosen = static_cast<std::size_t>(m_types->currentIndex());
    if (chosen >= groups.size()) {
        return;
    }
    const auto isListed = [this](std::size_t sound) {
        return std::ranges::find(m_rows, sound, &ExportRow::number) != m_rows.end();
    };
    for (const SoundObject* const object : groups[chosen].objects) {
        if (std::ranges::any_of(object->sounds, isListed)) {
            m_objects.push_back(object);
            m_objectNames->addItem(fromCodePage(object->name));
        }
    }
}

void FmExport::tickObject()
{
    if (m_objectNames->currentRow() < 0) {
        return;
    }
    const SoundObject& object = *m_objects.at(static_cast<std::size_t>(m_objectNames->currentRow()));
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (std::ranges::find(object.sounds, m_rows[row].number) != object.sounds.end()) {
            rows.push_back(row);
        }
    }
    m_lines->tick(rows, true);
    m_lines->selectRow(rows.front());
    m_status->showText(
        BilingualText::same(utf8FromCodePage(object.name)) + BilingualText(": ", " : ") +
            counted(rows.size(), {"line ticked", "ligne cochée"}, {"lines ticked", "lignes cochées"}),
        m_context.language);
}

void FmExport::selectionChanged()
{
    // To stop stays possible: a sample may be playing.
    m_buttons.play->setEnabled(m_lines->selectedRow().has_value());
}

void FmExport::play()
{
    const std::optional<std::size_t> row = m_lines->selectedRow();
    if (!row || m_rows[*row].record.sampleCount() == 0) {
        return;
    }
    const Problem problem = PlaySample(m_context.player, m_context.places.samples,
                                       m_rows[*row].record.Samples.front(), m_context.dialogs);
    m_status->showText(problem ? problem->text : BilingualText(), m_context.language);
}

void FmExport::save()
{
    const std::optional<std::filesystem::path> file =
        chooseExportFile(m_mode, m_context.wad.wadName, m_context.places.program, m_context.dialogs);
    if (!file) {
        return;
    }
    ExportRequest request{m_mode,
                          {},
                          *file,
                          m_withSamples->isChecked(),
                          m_context.places.samples,
                          m_context.catalogue.file().path,
                          m_context.places.program};
    for (const std::size_t row : m_lines->tickedRows()) {
        request.rows.push_back(m_rows[row]);
    }
    if (!confirmExport(request, m_context.dialogs)) {
        return;
    }
    const ExportOutcome outcome = [&] {
        CopyProgress progress(*m_status, *m_body, m_context.language);
        return saveExport(request, progress);
    }();
    if (outcome.report) {
        m_context.dialogs.show(*outcome.report);
    }
    if (outcome.saved) {
        m_savedLines = request.rows.size();
        accept();
    }
}

void FmExport::reject()
{
    if (m_body->isEnabled()) {
        TitledWindow::reject();
    } else {
        m_status->cancel->click();
    }
}

} // namespace tavrel
