// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SamplesContext.h"
#include "ui/TitledWindow.h"

#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavrel {

class WaveformView;

// Chooses a sample of the samples folder. Accepted with a name, or rejected.
class FmSamp : public TitledWindow
{
    Q_OBJECT

public:
    FmSamp(QWidget* parent, const SamplesContext& context);

    // Without ".wav", code page bytes; empty when nothing was selected.
    const std::string& chosenName() const { return m_chosenName; }

private:
    void layOut();
    void fillList();
    void showCaptions();
    void selectionChanged();
    std::string selectedFile() const;
    void tell(const BilingualText& text);
    void play();
    void playOrStop();
    void choose();

    SamplesContext m_context;
    std::vector<std::filesystem::path> m_files; // of each row
    QListWidget* m_list;
    WaveformView* m_waveform;
    QLabel* m_facts;
    QLabel* m_info;
    QPushButton* m_play;
    QPushButton* m_stop;
    QPushButton* m_copy;
    QPushButton* m_openFolder;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    std::string m_chosenName;
};

} // namespace tavrel
