// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeExport.h"
#include "backup/ExchangeWindow.h"

#include <array>
#include <vector>

class QComboBox;
class QListWidget;
class QRadioButton;

namespace tavrel {

// Chooses lines of the catalogue and writes them to an exchange file or a backup. Accepted when the file was
// written.
class FmExport : public ExchangeWindow
{
    Q_OBJECT

public:
    FmExport(QWidget* parent, const ExchangeContext& context);

    std::size_t savedLines() const { return m_savedLines; }

private:
    void layOut();
    QWidget* makeModes();
    QWidget* makeObjectPanel();
    void connectControls();
    void showCaptions();

    void chooseMode(ExportMode mode);
    void showSamplesHint();
    void fillTypes();
    void fillObjects();
    void tickObject();
    void play() override;
    void save();

    ExportMode m_mode = ExportMode::All;
    std::size_t m_savedLines = 0;
    std::vector<ExportRow> m_rows;
    std::vector<const SoundObject*> m_objects; // of the list of names

    std::array<QRadioButton*, 3> m_modes;
    QLabel* m_description;
    QPushButton* m_showObjects;
    QComboBox* m_types;
    QListWidget* m_objectNames;
    QWidget* m_objectPanel;
};

} // namespace tavrel
