// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/TitledWindow.h"
#include "versions/CatalogueComparison.h"
#include "versions/TakeOver.h"
#include "versions/VersionsContext.h"

#include <filesystem>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tavrel {

class DifferenceView;
struct DifferenceRow;

// The session beside another catalogue: what differs, who changed it, and lines or parts of them to take
// over.
class FmCompare : public TitledWindow
{
    Q_OBJECT

public:
    // With a file, it is the other side at once; else the user chooses one.
    FmCompare(QWidget* parent, const VersionsContext& context,
              const std::optional<std::filesystem::path>& file = std::nullopt);

    // Lines were taken over.
    bool tookOver() const { return m_tookOver; }

private:
    void layOut();
    QWidget* makeParts();
    void connectControls();
    void showCaptions();
    void fillSources();

    void chooseSource(int index);
    void chooseFile();
    void openFile(const std::filesystem::path& file);
    void showNothing();
    void compare();
    std::vector<DifferenceRow> rowsOf(const CatalogueComparison& comparison) const;
    void tellWho(DifferenceRow& row) const;
    void showPossibilities();
    std::optional<TakenParts> parts();
    void takeOver();
    QString inLanguage(const BilingualText& text) const;

    VersionsContext m_context;
    std::vector<std::filesystem::path> m_kept; // in the order of the chooser, behind the installed catalogue
    std::optional<OtherCatalogue> m_other;
    std::vector<SoundDifference> m_differences; // of the rows
    bool m_tookOver = false;

    QComboBox* m_source;
    QPushButton* m_chooseFile;
    QLabel* m_path;
    QCheckBox* m_threeWays;
    QLabel* m_shift;
    DifferenceView* m_view;
    QPushButton* m_tickAll;
    QPushButton* m_untickAll;
    QRadioButton* m_wholeLine;
    QRadioButton* m_onlyParts;
    QCheckBox* m_values;
    QCheckBox* m_samples;
    QCheckBox* m_letters;
    QLineEdit* m_letterMap;
    QPushButton* m_take;
};

} // namespace tavrel
