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
    : ExchangeWindow(
          parent, context,
          {"FmExport", linesColourSlot, makeButton("CdSave", Glyph::ExportBackup), QSize(1140, 660)}),
      m_modes{named(new QRadioButton, "OpExport0"), named(new QRadioButton, "OpExport1"),
              named(new QRadioButton, "OpExport2")},
      m_description(named(new QLabel, "LbDescription")),
      m_showObjects(makeButton("CdOBJ", Glyph::ObjectSelection)), m_types(makeComboBox("CbType")),
      m_objectNames(makeFixedPitchList("LiOBJ")), m_objectPanel(makeObjectPanel())
{
    layOut();
    paintWith(*m_objectNames, context.colours.slots[objectsColourSlot]);
    showCaptions();
    connectControls();
    fillTypes();
    m_modes.back()->setChecked(true);
    lines().setFocus();
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
    m_description->setTextFormat(Qt::PlainText);
    m_description->setWordWrap(true);
    m_description->setProperty("muted", true);
    m_description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_description->setMinimumHeight(2 * m_description->fontMetrics().lineSpacing());
    m_showObjects->setCheckable(true);
    linesRow().addWidget(m_objectPanel);
    body().addWidget(makeHeading("FrChoice"));
    body().addWidget(makeModes());
    body().addWidget(m_description);
    body().addLayout(makeTicksRow({m_showObjects}));
    body().addLayout(&linesRow(), 1);
    addButtons();
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
    connect(&lines(), &TickList::ticksChanged, this, [this] { showCounts(); });
    connect(m_types, &QComboBox::currentIndexChanged, this, &FmExport::fillObjects);
    connect(m_objectNames, &QListWidget::itemClicked, this, &FmExport::tickObject);
    connect(m_objectNames, &QListWidget::itemActivated, this, &FmExport::tickObject);
    connect(&withSamples(), &QCheckBox::toggled, this, &FmExport::showSamplesHint);
    connect(&action(), &QPushButton::clicked, this, &FmExport::save);
}

void FmExport::showCaptions()
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const BilingualText lines("Lines to save; Space ticks, Enter plays",
                              "Lignes à sauvegarder ; Espace coche, Entrée joue");
    ExchangeWindow::showCaptions(
        {
            {"FrChoice", {"Choose what to save", "Choisissez le type de sauvegarde"}, {}},
            both("OpExport0", captionOf(ExportMode::Modified)),
            both("OpExport1", captionOf(ExportMode::ModifiedAndAdded)),
            both("OpExport2", captionOf(ExportMode::All)),
            both("CdOBJ", {"Show/Hide object selection", "Afficher/Cacher la sélection d'objets"}),
            {"LiLine", {}, lines},
            {"LbType", {"Object type", "Type d'objet"}, {}},
            {"CbType", {}, {"Object type", "Type d'objet"}},
            {"LbOBJ", {"Object name", "Nom d'objet"}, {}},
            {"LiOBJ",
             {},
             {"A click or Enter ticks the lines of the object",
              "Un clic ou Entrée coche les lignes de l'objet"}},
            {"CkSamp",
             {"Include Samples Files", "Inclure les Fichiers Samples"},
             {"Copy the samples of the lines to a folder beside the file",
              "Copier les samples des lignes dans un répertoire à côté du fichier"}},
            both("CdSave", {"Save", "Sauvegarder"}),
        },
        titles::exportWindow);
}

void FmExport::chooseMode(ExportMode mode)
{
    m_mode = mode;
    m_rows = listForExport(context().catalogue, mode, context().wad.letter);
    m_description->setText(inLanguage(descriptionOf(mode)));
    columnTitles().setText(inLanguage(columnTitleOf(mode)));
    lines().setRows({m_rows.size(), [this](std::size_t row) { return fromCodePage(m_rows[row].text); }});
    lines().scrollToTop();
    showCounts();
    fillObjects();
    showSamplesHint();
}

// Before the user counts on it.
void FmExport::showSamplesHint()
{
    BilingualText hint;
    if (m_mode == ExportMode::All && withSamples().isChecked()) {
        hint = {
            "A restore does not copy the samples of a backup back: copy those that you need yourself.",
            "Une restauration ne recopie pas les samples d'une sauvegarde : copiez vous-même ceux qu'il vous "
            "faut."};
    }
    say(hint);
}

void FmExport::fillTypes()
{
    for (const ObjectGroup& group : objectGroups(context().catalogue.objects())) {
        m_types->addItem(inLanguage(shippedText(group.type)));
    }
}

// The objects of the type that have a line to tick.
void FmExport::fillObjects()
{
    m_objects.clear();
    m_objectNames->clear();
    const std::vector<ObjectGroup> groups = objectGroups(context().catalogue.objects());
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
    lines().tick(rows, true);
    lines().selectRow(rows.front());
    say(BilingualText::same(utf8FromCodePage(object.name)) + BilingualText(": ", " : ") +
        counted(rows.size(), {"line ticked", "ligne cochée"}, {"lines ticked", "lignes cochées"}));
}

void FmExport::play()
{
    const std::optional<std::size_t> row = lines().selectedRow();
    if (row && m_rows[*row].record.sampleCount() > 0) {
        playSample(context().places.samples, m_rows[*row].record.Samples.front());
    }
}

void FmExport::save()
{
    const std::optional<std::filesystem::path> file =
        chooseExportFile(m_mode, context().wad.wadName, context().places.program, context().dialogs);
    if (!file) {
        return;
    }
    ExportRequest request{m_mode,
                          {},
                          *file,
                          withSamples().isChecked(),
                          context().places.samples,
                          context().catalogue.file().path,
                          context().places.program};
    for (const std::size_t row : lines().tickedRows()) {
        request.rows.push_back(m_rows[row]);
    }
    if (!confirmExchangeExport(request, context().dialogs)) {
        return;
    }
    const ExportOutcome outcome = copying([&](Progress& progress) { return saveExport(request, progress); });
    if (outcome.report) {
        context().dialogs.show(*outcome.report);
    }
    if (outcome.saved) {
        m_savedLines = request.rows.size();
        accept();
    }
}

} // namespace tavrel
