// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmSamp.h"

#include "base/CodePage.h"
#include "base/Titles.h"
#include "samples/SampleList.h"
#include "samples/SamplesFolder.h"
#include "samples/WaveformView.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

FmSamp::FmSamp(QWidget* parent, const SamplesContext& context)
    : TitledWindow(parent), m_context(context), m_list(makeFixedPitchList("LiSamp")),
      m_waveform(new WaveformView("PbWave", context.player, waveformsOf(context))),
      m_facts(makeElidedLabel("LbFacts")), m_info(makePaperLabel("LbInfo")),
      m_play(makeButton("CdPlay", Glyph::Play)), m_stop(makeButton("CdStopS", Glyph::Stop)),
      m_copy(makeButton("CdCopyList", Glyph::CopyLine)),
      m_openFolder(makeButton("CdOpenFolder", Glyph::OpenFile)), m_ok(makeButton("CdOK", Glyph::Accept)),
      m_cancel(makeButton("CdCancel", Glyph::Close))
{
    setObjectName("FmSamp");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    paintWith(*m_list, m_context.colours.slots[ColourScheme::mainWindowSlot]);
    paintWith(*m_waveform, m_context.colours.slots[ColourScheme::mainWindowSlot]);
    showCaptions();
    fillList();
    connect(m_list, &QListWidget::itemSelectionChanged, this, &FmSamp::selectionChanged);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &FmSamp::choose);
    connect(m_play, &QPushButton::clicked, this, &FmSamp::play);
    connect(m_stop, &QPushButton::clicked, m_waveform, &WaveformView::stop);
    connect(m_waveform, &WaveformView::loaded, this,
            [this] { m_facts->setText(inLanguage(m_waveform->facts(), m_context.language)); });
    connect(m_waveform, &WaveformView::told, this, &FmSamp::tell);
    connect(m_copy, &QPushButton::clicked, this, [this] { copyAllRows(*m_list); });
    connect(m_openFolder, &QPushButton::clicked, this, [this] { openFolder(m_context.samplesFolder); });
    onSpace(*m_list, [this] { playOrStop(); });
    copySelectionByKey(*m_list);
    connect(m_ok, &QPushButton::clicked, this, &FmSamp::choose);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ok->setDefault(true);
    m_list->setCurrentRow(0);
    selectionChanged();
}

void FmSamp::layOut()
{
    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_list, 1);
    content().addWidget(m_waveform);
    content().addWidget(m_facts);
    content().addWidget(m_info);
    m_info->hide();
    content().addLayout(rowOf({m_play, m_stop}));
    content().addLayout(rowOf({m_copy, m_openFolder}));
    content().addLayout(rowOf({m_ok, m_cancel}));
    resize(400, 620);
}

void FmSamp::showCaptions()
{
    const Caption captions[] = {
        {"LiSamp",
         {},
         {"Samples of the folder; Space plays and stops", "Samples du répertoire ; Espace joue et arrête"}},
        {"CdCopyList",
         {"Copy the list", "Copier la liste"},
         {"Copy the list to clipboard", "Copier la liste dans le presse-papiers"}},
        {"CdOpenFolder",
         {"Open the folder", "Ouvrir le répertoire"},
         {"Show the folder in the file manager", "Montrer le répertoire dans le gestionnaire de fichiers"}},
        {"CdPlay", {"Play Sample", "Jouer le Sample"}, {"Play Sample", "Jouer le Sample"}},
        {"CdStopS", {"Stop Sample", "Stopper le Sample"}, {"Stop Sample", "Stopper le Sample"}},
        {"CdOK", {"Select", "Selectionner"}, {"Take this sample", "Prendre ce sample"}},
        {"CdCancel", {"Cancel", "Annuler"}, {"Close without a choice", "Fermer sans choisir"}},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    m_waveform->setLanguage(m_context.language);
    setWindowTitle(inLanguage(titles::chooseSample, m_context.language));
}

void FmSamp::fillList()
{
    Result<std::vector<SampleFile>> samples = listSamples(m_context.samplesFolder);
    if (!samples) {
        setPaperText(*m_info, inLanguage(samples.failure().text, m_context.language), true);
        m_info->show();
        return;
    }
    // By name: some systems list in no order at all.
    std::ranges::sort(*samples, {}, [](const SampleFile& file) { return upperCase(file.name); });
    for (const SampleFile& file : *samples) {
        if (file.exactName) {
            m_list->addItem(fromCodePage(file.name));
            m_files.push_back(file.path);
        }
    }
}

void FmSamp::selectionChanged()
{
    const bool selected = !m_list->selectedItems().empty();
    for (QPushButton* const button : {m_play, m_stop, m_ok}) {
        button->setEnabled(selected);
    }
    m_facts->clear();
    m_waveform->showFile(selected ? m_files.at(static_cast<std::size_t>(m_list->currentRow()))
                                  : std::filesystem::path());
}

void FmSamp::tell(const BilingualText& text)
{
    setPaperText(*m_info, inLanguage(text, m_context.language));
    m_info->setVisible(!text.empty());
}

std::string FmSamp::selectedFile() const
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    return selected.empty() ? std::string() : toCodePage(selected.front()->text());
}

void FmSamp::play()
{
    const Problem problem = PlaySample(m_context.player, m_context.samplesFolder,
                                       sampleNameOf(selectedFile()), m_context.dialogs);
    tell(problem ? problem->text : BilingualText());
}

void FmSamp::playOrStop()
{
    if (m_waveform->isPlaying()) {
        m_waveform->stop();
    } else {
        play();
    }
}

void FmSamp::choose()
{
    const std::string file = selectedFile();
    if (file.empty()) {
        reject();
        return;
    }
    const std::optional<std::string> name = chosenSampleName(file);
    if (!name) {
        m_context.dialogs.show({MessageIcon::Exclamation,
                                titles::chooseSample,
                                {"Select a .wav file", "Sélectionnez un fichier .wav"}});
        return;
    }
    m_chosenName = *name;
    accept();
}

} // namespace tavrel
