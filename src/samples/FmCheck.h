// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SamplesContext.h"
#include "samples/SamplesFolder.h"
#include "ui/TitledWindow.h"

#include <QTimer>

#include <optional>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QWidget;

namespace tavrel {

// Works on a whole folder of samples: lists all of them to be played one after another, or checks their
// format and lists the wrong ones.
class FmCheck : public TitledWindow
{
    Q_OBJECT

public:
    FmCheck(QWidget* parent, const SamplesContext& context);

    void reject() override;

private:
    enum class Mode { Visualize, Check };

    void layOut();
    QWidget* makeInfoPanel();
    void connectControls();
    void showCaptions();
    void showFolder();
    void showIndication(const BilingualText& text, bool alarming = false);

    void chooseFolder();
    void offer(Mode mode);
    void proceed();
    std::optional<std::vector<SampleFile>> listing();
    void emptyLists(const BilingualText& title, const BilingualText& columns);
    void addRow(const std::string& row, const std::string& file);

    void visualize();
    void startCheck();
    void checkSome();
    void endCheck(bool cancelled);
    void enableModes(bool enable);

    void selectionChanged();
    void play();

    SamplesContext m_context;
    std::filesystem::path m_folder;
    std::optional<Mode> m_pending;
    std::optional<SamplesCheck> m_check;
    QTimer m_checkTimer;
    std::vector<std::string> m_files; // the file of each row

    QLabel* m_folderLabel;
    QPushButton* m_chooseFolder;
    QPushButton* m_visualize;
    QPushButton* m_checkButton;
    QLabel* m_infoTitle;
    QLabel* m_infoText;
    QPushButton* m_proceed;
    QWidget* m_infoPanel;
    QLabel* m_title;
    QLabel* m_columns;
    QListWidget* m_list;
    QLabel* m_indication;
    QProgressBar* m_progress;
    QPushButton* m_cancelCheck;
    QLabel* m_tip;
    QLabel* m_soundInfo;
    QPushButton* m_play;
    QPushButton* m_stop;
    QPushButton* m_close;
};

} // namespace tavrel
