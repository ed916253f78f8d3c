// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "samples/SampleCommands.h"
#include "ui/FoldingPanel.h"

#include <QStringList>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace tavrel {

class WaveformCache;
class WaveformView;

// The samples of the selected line, and the name that is to be added or to take the place of one.
class SamplesPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    // Lets the user choose a sample of the folder; nothing when it is closed without a choice.
    using Chooser = std::function<std::optional<std::string>()>;

    SamplesPanel(const PanelContext& context, std::shared_ptr<WaveformCache> waveforms, Chooser choose);

    // Sound files of any kind become samples of the selected line.
    void addFiles(const std::vector<std::filesystem::path>& files);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;
    void showMarks(const FindingMarks& marks) override;

private:
    void reloaded() override;
    void lineShown() override;
    void sampleChosen() override { enable(); }
    void objectChosen() override { enable(); }

    void layOut();
    void markSamples();
    void showWaveform();
    void connectControls();
    void enable();
    void entrySelected();
    SampleInput input() const;
    void change(SampleResult (*command)(LineEditor&, const SampleInput&, Dialogs&));
    void choose();
    void chooseFiles();
    void take(const SampleResult& result);
    void chooseAndAdd();
    void play();
    void stop();

    Chooser m_choose;
    QListWidget* m_list;
    QLineEdit* m_name;
    QPushButton* m_play;
    QPushButton* m_stop;
    QPushButton* m_add;
    QPushButton* m_rename;
    QPushButton* m_remove;
    QPushButton* m_chooser;
    QPushButton* m_addFiles;
    WaveformView* m_waveform;
    std::pair<std::optional<std::size_t>, QStringList> m_shown; // of which sound
    std::filesystem::path m_lastFolder;                         // of sound files that were added
    const FindingMarks* m_marks = nullptr;                      // none before the first look
};

} // namespace tavrel
