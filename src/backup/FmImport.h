// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeImport.h"
#include "backup/ExchangeWindow.h"

#include <optional>
#include <set>
#include <utility>
#include <vector>

class QTableWidget;

namespace tavrel {

class FoldingPanel;

// Puts lines of an exchange file or a backup into the catalogue, and samples into their folder. Accepted when
// all was done.
class FmImport : public ExchangeWindow
{
    Q_OBJECT

public:
    FmImport(QWidget* parent, const ExchangeContext& context);

    // Lines were put into the catalogue, be it none: the user's lists must be made anew.
    bool importDone() const { return m_importDone; }
    std::size_t importedLines() const { return m_importedLines; }

private:
    void layOut();
    QWidget* makeSamplesPanel();
    void connectControls();
    void showCaptions();

    void chooseFile();
    void showNothing();
    void showFile();
    void linesTicked();
    void showMarks();
    void showRemarks();
    void fillSamples();
    std::string offeredName(std::size_t sample) const;
    void showSampleCounts();
    void samplesTicked();
    void selectionChanged();
    void compare();
    void play() override;
    void apply();

    std::optional<ImportFile> m_file;
    bool m_importDone = false;
    std::size_t m_importedLines = 0;
    // A name that a row offers: the row, and the place of the name in it.
    using OfferedSample = std::pair<std::size_t, std::size_t>;
    std::vector<OfferedSample> m_offered; // of the sample list
    std::set<OfferedSample> m_declined;   // unticked by the user

    QPushButton* m_chooseFile;
    QLabel* m_path;
    QLabel* m_mode;
    QLabel* m_target;
    QLabel* m_remark;
    TickList* m_samples;
    QLabel* m_sampleCounts;
    QWidget* m_samplesPanel;
    FoldingPanel* m_comparison;
    QTableWidget* m_table;
};

} // namespace tavrel
