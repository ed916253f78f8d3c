// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's commands on the samples of the selected line.
#include "app/FmSFX.h"
#include "samples/FmCheck.h"
#include "samples/FmSamp.h"
#include "ui/Text.h"

#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>

namespace tavrel {

void FmSFX::connectSampleControls()
{
    const FmSFXControls& c = m_controls;
    connect(c.LiSamp, &QListWidget::itemSelectionChanged, this, &FmSFX::sampleSelected);
    connect(c.LiSamp, &QListWidget::itemClicked, this, &FmSFX::sampleSelected);
    connect(c.CdAddSmp, &QPushButton::clicked, this, [this] { changeSamples(addSample); });
    connect(c.CdRename, &QPushButton::clicked, this, [this] { changeSamples(renameSample); });
    connect(c.CdDelSmp, &QPushButton::clicked, this, [this] {
        if (m_controls.LiSamp->count() > 1) {
            sampleSelected(); // the question is about the selected one, whatever was typed since
        }
        changeSamples(removeSample);
    });
    connect(c.CdChSamp, &QPushButton::clicked, this, &FmSFX::chooseSample);
    connect(c.CdPlay, &QPushButton::clicked, this, [this] { playSample(*m_controls.LiSamp); });
    connect(c.CdPlay2, &QPushButton::clicked, this, [this] { playSample(*m_controls.LiSFX); });
    connect(c.CdStopS, &QPushButton::clicked, this, [this] { stopSample(*m_controls.LiSamp); });
    connect(c.CdStopS2, &QPushButton::clicked, this, [this] { stopSample(*m_controls.LiSFX); });
    connect(c.CdSmpCheck, &QPushButton::clicked, this, &FmSFX::checkSamplesFolder);
}

void FmSFX::enableSampleControls()
{
    const FmSFXControls& c = m_controls;
    const bool selected = m_editor.canEdit() && m_object.empty() && !c.LiSamp->selectedItems().empty();
    for (QPushButton* const button : {c.CdPlay, c.CdPlay2, c.CdStopS, c.CdStopS2, c.CdRename}) {
        button->setEnabled(selected);
    }
}

// The selected entry is the current sample; a click on it brings its name back into the box.
void FmSFX::sampleSelected()
{
    const QList<QListWidgetItem*> selected = m_controls.LiSamp->selectedItems();
    const QString name = selected.empty() ? QString() : selected.front()->text();
    m_controls.TxSamp->setText(name);
    m_currentSample = toCodePage(name);
    enableSampleControls();
}

SampleInput FmSFX::sampleInput() const
{
    const int row = m_controls.LiSamp->selectedItems().empty() ? -1 : m_controls.LiSamp->currentRow();
    return {m_paths.samples, toCodePage(m_controls.TxSamp->text()),
            row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row))};
}

void FmSFX::changeSamples(SampleResult (*command)(LineEditor&, const SampleInput&, Dialogs&))
{
    if (!m_editor.canEdit()) {
        return;
    }
    const SampleResult result = command(m_editor, sampleInput(), m_context.dialogs);
    if (result.changed) {
        refreshLine();
        m_controls.LiSamp->setCurrentRow(static_cast<int>(result.selected));
        return;
    }
    if (result.typedName) {
        m_controls.TxSamp->setText(fromCodePage(*result.typedName));
    }
    m_controls.TxSamp->setFocus();
}

void FmSFX::playSample(QWidget& focusAfterwards)
{
    const Problem problem = PlaySample(m_context.player, m_paths.samples, m_currentSample, m_context.dialogs);
    showInfo(problem ? problem->text : BilingualText());
    focusAfterwards.setFocus();
}

void FmSFX::stopSample(QWidget& focusAfterwards)
{
    StopSample(m_context.player);
    focusAfterwards.setFocus();
}

// The chosen name waits in the box until it is added or takes the place of another.
void FmSFX::chooseSample()
{
    FmSamp window(this, samplesContext());
    if (window.exec() == QDialog::Accepted) {
        m_controls.TxSamp->setText(fromCodePage(window.chosenName()));
        m_controls.TxSamp->setFocus();
    }
}

void FmSFX::checkSamplesFolder()
{
    FmCheck window(this, samplesContext());
    window.exec();
}

SamplesContext FmSFX::samplesContext() const
{
    return {m_settings.language, m_settings.colours, m_paths.samples, m_context.dialogs, m_context.player};
}

} // namespace tavrel
