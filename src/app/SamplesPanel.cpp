// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SamplesPanel.h"

#include "base/Folder.h"
#include "base/Titles.h"
#include "checks/FindingMarks.h"
#include "checks/SeverityIcon.h"
#include "samples/SamplesFolder.h"
#include "samples/SoundFile.h"
#include "samples/WaveformView.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int waveformHeight = 44;

} // namespace

SamplesPanel::SamplesPanel(const PanelContext& context, std::shared_ptr<WaveformCache> waveforms,
                           Chooser choose)
    : FoldingPanel("ImPanelS", nullptr), MainPanel(context), m_choose(std::move(choose)),
      m_list(makeFixedPitchList("LiSamp")), m_name(named(new QLineEdit, "TxSamp")),
      m_play(makeIconButton("CdPlay", Glyph::Play)), m_stop(makeIconButton("CdStopS", Glyph::Stop)),
      m_add(makeIconButton("CdAddSmp", Glyph::AddItem)), m_rename(makeIconButton("CdRename", Glyph::Rename)),
      m_remove(makeIconButton("CdDelSmp", Glyph::RemoveItem)),
      m_chooser(makeIconButton("CdChSamp", Glyph::ChooseFile)),
      m_addFiles(makeIconButton("CdAddFile", Glyph::ImportBackup)),
      m_waveform(new WaveformView("PbWaveform", context.player, std::move(waveforms)))
{
    layOut();
    connectControls();
    enable();
}

void SamplesPanel::layOut()
{
    constexpr int markSize = 12; // no row grows by its mark
    m_list->setIconSize({markSize, markSize});
    m_waveform->setFixedHeight(waveformHeight);
    selectAllOnClick(*m_name);
    auto* const head = rowOf({makeHeading("LbNames"), m_addFiles, m_play, m_stop});
    head->insertStretch(1, 1);
    content().addLayout(head);
    content().addWidget(m_list, 1);
    content().addWidget(m_waveform);
    content().addLayout(rowOf({named(new QLabel, "LbName"), m_name, m_add, m_rename, m_remove, m_chooser}));
}

void SamplesPanel::connectControls()
{
    connect(m_list, &QListWidget::itemSelectionChanged, this, &SamplesPanel::entrySelected);
    connect(m_list, &QListWidget::itemClicked, this, &SamplesPanel::entrySelected);
    connect(m_add, &QPushButton::clicked, this, [this] { change(addSample); });
    connect(m_rename, &QPushButton::clicked, this, [this] { change(renameSample); });
    connect(m_remove, &QPushButton::clicked, this, [this] {
        if (m_list->count() > 1) {
            entrySelected(); // the question is about the selected one, whatever was typed since
        }
        change(removeSample);
    });
    connect(m_chooser, &QPushButton::clicked, this, &SamplesPanel::choose);
    connect(m_play, &QPushButton::clicked, this, &SamplesPanel::play);
    connect(m_stop, &QPushButton::clicked, this, &SamplesPanel::stop);
    connect(m_addFiles, &QPushButton::clicked, this, &SamplesPanel::chooseFiles);
    connect(m_waveform, &WaveformView::told, this, [this](const BilingualText& text) { say(text); });
    addListKey(*m_list, Qt::Key_Insert, [this] { chooseAndAdd(); });
    addListKey(*m_list, Qt::Key_Delete, [this] { m_remove->click(); });
}

void SamplesPanel::showLanguage(Language language)
{
    const Caption captions[] = {
        {"ImPanelS", {"Samples", "Samples"}, {"Fold or unfold this panel", "Replier ou déplier ce panneau"}},
        {"LbNames", {"Samples names", "Noms Samples"}, {}},
        {"LiSamp", {}, {"Samples of the line", "Samples de la ligne"}},
        {"LbName", {"Name", "Nom"}, {}},
        {"TxSamp", {}, {"Name of a sample, without .wav", "Nom d'un sample, sans .wav"}},
        {"CdPlay", {}, {"Play selected sample", "Jouer le sample"}},
        {"CdStopS", {}, {"Stop sample", "Stopper le sample"}},
        {"CdAddSmp", {}, {"Add sample", "Ajouter le sample"}},
        {"CdRename", {}, {"Rename selected sample", "Renommer le sample"}},
        {"CdDelSmp", {}, {"Remove sample", "Retirer le sample"}},
        {"CdChSamp", {}, {"Choose Sample", "Choisir Sample"}},
        {"CdAddFile",
         {},
         {"Add a sound file... (WAV, AIFF, FLAC, Ogg or MP3, also by dropping it on the window; it is converted)",
          "Ajouter un fichier son... (WAV, AIFF, FLAC, Ogg ou MP3, aussi en le déposant sur la fenêtre ; il est "
          "converti)"}},
        {"PbWaveform",
         {},
         {"The selected sample; a click or Space plays it and stops it",
          "Le sample choisi ; un clic ou Espace le joue et l'arrête"}},
    };
    showCaptions(*this, captions, language);
    m_waveform->setLanguage(language);
    markSamples();
}

void SamplesPanel::paintWith(const ColourPair& pair)
{
    tavrel::paintWith(*m_list, pair);
    tavrel::paintWith(*m_waveform, pair);
}

void SamplesPanel::showMarks(const FindingMarks& marks)
{
    m_marks = &marks;
    markSamples();
}

void SamplesPanel::markSamples()
{
    for (int row = 0; m_marks != nullptr && row < m_list->count(); ++row) {
        QListWidgetItem& item = *m_list->item(row);
        const FindingMark* const mark = m_marks->ofSample(toCodePage(item.text()));
        item.setIcon(mark == nullptr ? QIcon()
                                     : severityIcon(mark->severity, paintedWith(m_list->palette())));
        item.setToolTip(mark == nullptr ? QString() : plainToolTip(inLanguage(mark->text, language())));
    }
}

// What was typed belongs to what was loaded before.
void SamplesPanel::reloaded()
{
    m_shown = {};
    lineShown();
}

void SamplesPanel::lineShown()
{
    const SoundLine& record = selection().editor().record();
    QStringList names;
    for (std::size_t i = 0; i < record.sampleCount(); ++i) {
        names += fromCodePage(record.Samples[i]);
    }
    const auto shown = std::exchange(m_shown, {selection().number(), names});
    if (shown != m_shown) { // else what the user selected and typed there stays
        // The list is never seen empty, or its buttons would lose the focus.
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        m_list->addItems(names);
        m_list->setCurrentRow(0);
        entrySelected();
        markSamples();
    }
    enable();
}

void SamplesPanel::enable()
{
    const bool editable = selection().canEditLine();
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_name, m_add, m_remove, m_chooser, m_addFiles}) {
        control->setEnabled(editable);
    }
    const bool selected = !m_list->selectedItems().empty();
    m_rename->setEnabled(editable && selected);
    for (QPushButton* const button : {m_play, m_stop}) {
        button->setEnabled(selection().editor().canEdit() && selected);
    }
}

// The selected entry is the current sample; a click on it brings its name back into the box.
void SamplesPanel::entrySelected()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    m_name->setText(selected.empty() ? QString() : selected.front()->text());
    selection().chooseSample(input().selected);
    showWaveform();
}

void SamplesPanel::showWaveform()
{
    const std::string name = selection().sampleName();
    const std::optional<std::filesystem::path> file =
        name.empty() ? std::nullopt : findFile(session().places().samples, sampleFileName(name));
    m_waveform->showFile(file.value_or(std::filesystem::path()));
}

SampleInput SamplesPanel::input() const
{
    const int row = m_list->selectedItems().empty() ? -1 : m_list->currentRow();
    return {session().places().samples, toCodePage(m_name->text()),
            row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row))};
}

void SamplesPanel::change(SampleResult (*command)(LineEditor&, const SampleInput&, Dialogs&))
{
    if (!selection().canEditLine()) {
        return;
    }
    take(command(selection().editor(), input(), dialogs()));
}

void SamplesPanel::take(const SampleResult& result)
{
    if (result.changed) {
        m_list->setCurrentRow(static_cast<int>(result.selected));
        return;
    }
    if (result.typedName) {
        m_name->setText(fromCodePage(*result.typedName));
    }
    m_name->setFocus();
}

void SamplesPanel::chooseFiles()
{
    addFiles(dialogs().chooseFiles({titles::addSoundFile,
                                    {"Sound files", "Fichiers son"},
                                    soundFilePatterns(),
                                    m_lastFolder.empty() ? session().places().samples : m_lastFolder}));
}

void SamplesPanel::addFiles(const std::vector<std::filesystem::path>& files)
{
    if (files.empty() || !selection().canEditLine()) {
        return;
    }
    m_lastFolder = files.front().parent_path();
    const SampleResult result =
        addSoundFiles(selection().editor(), files, session().places().samples, SampleNames::Asked, dialogs());
    if (result.changed) {
        take(result);
    }
}

// The chosen name waits in the box until it is added or takes the place of another.
void SamplesPanel::choose()
{
    if (const std::optional<std::string> name = m_choose()) {
        m_name->setText(fromCodePage(*name));
        m_name->setFocus();
    }
}

void SamplesPanel::chooseAndAdd()
{
    const std::optional<std::string> name = m_chooser->isEnabled() ? m_choose() : std::nullopt;
    if (name) {
        m_name->setText(fromCodePage(*name));
        change(addSample);
        m_list->setFocus();
    }
}

void SamplesPanel::play()
{
    const Problem problem =
        PlaySample(context().player, session().places().samples, selection().sampleName(), dialogs());
    say(problem ? problem->text : BilingualText());
    m_list->setFocus();
}

void SamplesPanel::stop()
{
    StopSample(context().player);
    m_list->setFocus();
}

} // namespace tavrel
