// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmSamp.h"

#include "base/CodePage.h"
#include "base/Titles.h"
#include "samples/SamplesFolder.h"
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
      m_info(makePaperLabel("LbInfo")), m_play(makeButton("CdPlay", Glyph::Play)),
      m_stop(makeButton("CdStopS", Glyph::Stop)), m_ok(makeButton("CdOK", Glyph::Accept)),
      m_cancel(makeButton("CdCancel", Glyph::Close))
{
    setObjectName("FmSamp");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    paintWith(*m_list, m_context.colours.slots[ColourScheme::mainWindowSlot]);
    showCaptions();
    fillList();
    connect(m_list, &QListWidget::itemSelectionChanged, this, &FmSamp::selectionChanged);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &FmSamp::choose);
    connect(m_play, &QPushButton::clicked, this, &FmSamp::play);
    connect(m_stop, &QPushButton::clicked, this, [this] { StopSample(m_context.player); });
    connect(m_ok, &QPushButton::clicked, this, &FmSamp::choose);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ok->setDefault(true);
    selectionChanged();
}

void FmSamp::layOut()
{
    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_list, 1);
    content().addWidget(m_info);
    m_info->hide();
    content().addLayout(rowOf({m_play, m_stop}));
    content().addLayout(rowOf({m_ok, m_cancel}));
    resize(360, 520);
}

void FmSamp::showCaptions()
{
    const Caption captions[] = {
        {"LiSamp", {}, {"Samples of the folder", "Samples du répertoire"}},
        {"CdPlay", {"Play Sample", "Jouer le Sample"}, {"Play Sample", "Jouer le Sample"}},
        {"CdStopS", {"Stop Sample", "Stopper le Sample"}, {"Stop Sample", "Stopper le Sample"}},
        {"CdOK", {"Select", "Selectionner"}, {"Take this sample", "Prendre ce sample"}},
        {"CdCancel", {"Cancel", "Annuler"}, {"Close without a choice", "Fermer sans choisir"}},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
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
        }
    }
}

void FmSamp::selectionChanged()
{
    const bool selected = !m_list->selectedItems().empty();
    for (QPushButton* const button : {m_play, m_stop, m_ok}) {
        button->setEnabled(selected);
    }
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
    setPaperText(*m_info, problem ? inLanguage(problem->text, m_context.language) : QString());
    m_info->setVisible(problem.has_value());
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
