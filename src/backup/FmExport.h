// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeControls.h"
#include "backup/ExportCommands.h"
#include "ui/TitledWindow.h"

#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QListWidget;
class QRadioButton;

namespace tavrel {

// Chooses lines of the catalogue and writes them to an exchange file or a backup. Accepted when the file was
// written.
class FmExport : public TitledWindow
{
    Q_OBJECT

public:
    FmExport(QWidget* parent, const ExchangeContext& context);

    void reject() override;

    std::size_t savedLines() const { return m_savedLines; }

private:
    void layOut();
    QWidget* makeModes();
    QWidget* makeObjectPanel();
    void connectControls();
    void showCaptions();

    void chooseMode(ExportMode mode);
    void showCounts();
    void showSamplesHint();
    void fillTypes();
    void fillObjects();
    void tickObject();
    void selectionChanged();
    void play();
    void save();

    ExchangeContext m_context;
    ExportMode m_mode = ExportMode::All;
    std::size_t m_savedLines = 0;
    std::vector<ExportRow> m_rows;
    std::vector<const SoundObject*> m_objects; // of the list of names

    QWidget* m_body; // all but the status line
    std::array<QRadioButton*, 3> m_modes;
    QLabel* m_description;
    QPushButton* m_showObjects;
    QLabel* m_counts;
    TickList* m_lines;
    LineButtons m_buttons;
    ColumnTitles* m_titles;
    QComboBox* m_types;
    QListWidget* m_objectNames;
    QWidget* m_objectPanel;
    QCheckBox* m_withSamples;
    QPushButton* m_save;
    QPushButton* m_close;
    CopyStatus* m_status;
};

} // namespace tavrel
