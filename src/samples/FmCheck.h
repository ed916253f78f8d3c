// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SampleRepair.h"
#include "samples/SamplesContext.h"
#include "samples/SamplesFolder.h"
#include "ui/TitledWindow.h"

#include <QTimer>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QWidget;

namespace tavrel {

class WaveformView;

// Works on a whole folder of samples: lists all of them to be played one after another, or checks their
// format and lists the wrong ones. Repairs samples, and puts their originals back.
class FmCheck : public TitledWindow
{
    Q_OBJECT

public:
    FmCheck(QWidget* parent, const SamplesContext& context);

    void reject() override;

    // Ready to be started, with what it does explained.
    void offerCheck() { offer(Mode::Check); }

private:
    enum class Mode { Visualize, Check };

    void layOut();
    QWidget* makeInfoPanel();
    void connectControls();
    void connectList();
    void showCaptions();
    void showFolder();
    void showIndication(const BilingualText& text, bool alarming = false);

    void chooseFolder();
    void offer(Mode mode);
    void explain(Mode mode);
    void proceed();
    std::optional<std::vector<SampleFile>> listing();
    void emptyLists(const BilingualText& title, const BilingualText& columns);
    void addRow(const std::string& row, const SampleFile& file);
    void listIsFull();

    void visualize();
    void startCheck();
    void checkSome();
    void endCheck(bool cancelled);
    void showWork(std::size_t count);
    void endWork();

    // Repairing and putting back (FmCheckRepair.cpp)
    std::vector<std::filesystem::path> filesOf(const std::vector<int>& rows) const;
    std::vector<std::filesystem::path> wrongFiles() const;
    void repair();
    void putBack();
    void startRun(SampleTask task, std::vector<std::filesystem::path> files);
    void watchRun();
    void endRun();
    void showReport(const SampleReport& report);
    void judgeRowsAgain();

    void selectionChanged();
    void showFacts();
    std::optional<std::size_t> firstUser() const;
    const SampleFile* selectedFile() const;
    void tell(const BilingualText& text);
    void play();
    void playOrStop();
    void goToSound();

    SamplesContext m_context;
    std::filesystem::path m_folder;
    std::optional<Mode> m_pending;
    std::set<Mode> m_explained;
    std::optional<SamplesCheck> m_check;
    std::unique_ptr<SampleRun> m_run;
    QTimer m_checkTimer;
    QTimer m_runTimer;
    Mode m_listed = Mode::Visualize;
    std::vector<SampleFile> m_files; // the file of each row

    QLabel* m_folderLabel;
    QPushButton* m_chooseFolder;
    QPushButton* m_openFolder;
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
    QLabel* m_lookedAt;
    QProgressBar* m_progress;
    QPushButton* m_cancelCheck;
    QLabel* m_tip;
    WaveformView* m_waveform;
    QLabel* m_facts;
    QLabel* m_users;
    QLabel* m_soundInfo;
    QPushButton* m_repair;
    QPushButton* m_putBack;
    QPushButton* m_copyList;
    QPushButton* m_goToSound;
    QPushButton* m_play;
    QPushButton* m_stop;
    QPushButton* m_close;
};

} // namespace tavrel
