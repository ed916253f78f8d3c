// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/ProgramSettings.h"
#include "base/BilingualText.h"
#include "catalogue/LineEditor.h"

#include <array>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListView;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class QWidget;

namespace tavrel {

class FoldingPanel;

constexpr std::size_t valueBoxCount = 4;
constexpr std::size_t lineFlagCount = 5;

// The controls of the main window. Their object names are the names used here.
struct FmSFXControls
{
    // Beside the title.
    QRadioButton* OpLangE = nullptr;
    QRadioButton* OpLangF = nullptr;
    QPushButton* CdHlp = nullptr;
    QPushButton* CdParam = nullptr;
    QPushButton* CdQuit = nullptr;

    std::array<FoldingPanel*, panelCount> panels{};

    // "Wad Functions"
    QPushButton* CdCopy = nullptr; // generate
    QPushButton* CdLoadSAM = nullptr;
    QPushButton* CdLoadWAS = nullptr;
    QPushButton* CdViewWAD = nullptr;
    QPushButton* CdRefW = nullptr;
    // "PGM Functions"
    QPushButton* CdStats = nullptr;
    QPushButton* CdSmpCheck = nullptr;
    QPushButton* CdImport = nullptr;
    QPushButton* CdExport = nullptr;
    // "Modifications"
    QPushButton* CdValidW = nullptr; // accept values
    QPushButton* CdRestore = nullptr;
    QPushButton* CdApply = nullptr;
    QPushButton* CdCopyLine = nullptr;
    // "Edit Functions"
    QPushButton* CdEdit = nullptr;
    QPushButton* CdShowG = nullptr;

    // The sound list and its search.
    QLineEdit* TxSearch = nullptr;
    QPushButton* CdSearch = nullptr;
    QRadioButton* OpDown = nullptr;
    QRadioButton* OpUp = nullptr;
    QCheckBox* CkCase = nullptr;
    QListView* LiSFX = nullptr;
    QPushButton* CdPlay2 = nullptr;
    QPushButton* CdStopS2 = nullptr;

    // The selected line.
    QLabel* LbLine = nullptr;
    QLineEdit* TxLine = nullptr; // its number in the file
    QPlainTextEdit* TxOrig = nullptr;
    QPlainTextEdit* TxModif = nullptr;
    std::array<QLineEdit*, valueBoxCount> values{}; // TxVOL, TxPIT, TxRAD, TxCH
    std::array<QCheckBox*, lineFlagCount> flags{};  // CkP, CkV, CkR, CkN, CkL

    // Its samples.
    QListWidget* LiSamp = nullptr;
    QLineEdit* TxSamp = nullptr;
    QPushButton* CdPlay = nullptr;
    QPushButton* CdStopS = nullptr;
    QPushButton* CdAddSmp = nullptr;
    QPushButton* CdRename = nullptr;
    QPushButton* CdDelSmp = nullptr;
    QPushButton* CdChSamp = nullptr;

    // Its levels.
    QListWidget* LiWAD = nullptr;
    QWidget* PnWad = nullptr; // around what names the current WAD
    QComboBox* CbTWad = nullptr;
    QLineEdit* TxWAD = nullptr;
    QLineEdit* TxLett = nullptr;
    QLineEdit* TxTitre = nullptr;
    QPushButton* CdAddWAD = nullptr;
    QPushButton* CdDel = nullptr;
    QPushButton* CdErase = nullptr;
    QLineEdit* TxReplacL = nullptr;
    QPushButton* CdReplacL = nullptr;
    QLineEdit* TxObj = nullptr;
    QPushButton* CdObj = nullptr;
    QPushButton* CdEffObj = nullptr;
    std::array<QRadioButton*, 2> OpWAD{};

    // At the bottom.
    QLabel* LbInfo = nullptr;
    QProgressBar* PbBusy = nullptr; // shown while something lasts
    QLabel* LbPending = nullptr;
    QLabel* LbPath = nullptr;

    FoldingPanel* panel(Panel which) const { return panels[static_cast<std::size_t>(which)]; }
    QLineEdit* value(ValueBox box) const { return values[static_cast<std::size_t>(box)]; }
    QCheckBox* flag(LineFlag flag) const { return flags[static_cast<std::size_t>(flag)]; }
};

// Creates the controls and lays them out, without a caption.
FmSFXControls layOutMainWindow(QWidget& window, QHBoxLayout& titleRow, QVBoxLayout& content);

void showMainWindowCaptions(QWidget& window, Language language);

} // namespace tavrel
