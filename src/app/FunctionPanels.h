// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "references/WadLists.h"
#include "settings/ProgramSettings.h"

#include <QWidget>

#include <array>
#include <functional>
#include <optional>
#include <string>

class QPushButton;

namespace tavrel {

class FoldingPanel;

// What other windows do, and the main window opens.
struct FunctionDoors
{
    std::function<void()> generate;
    std::function<void(WadListKind)> importList;
    std::function<void()> viewWadLists;
    std::function<void()> openRegister;
    std::function<void()> openStatistics;
    std::function<void()> checkSamplesFolder;
    std::function<void()> openImport;
    std::function<void()> openExport;
    std::function<void()> editSounds;
    std::function<void()> showOrHideGlobals;
    // What an apply would write, to be read before its question is answered.
    std::function<void()> showChanges;
    // A sounds.txt that another program has changed, beside the catalogue; true when lines were taken over.
    std::function<bool(const std::filesystem::path&)> compare;
};

// The column of buttons: four panels with the commands on the WAD, the program, the selected lines and the
// file.
class FunctionPanels final : public QWidget, public MainPanel
{
    Q_OBJECT

public:
    FunctionPanels(const PanelContext& context, const FunctionDoors& doors);

    void showLanguage(Language language) override;
    // In the order of their panels: the first four.
    FoldingPanel& panel(Panel which) const { return *m_panels[static_cast<std::size_t>(which)]; }
    // The imports depend on an option.
    void followOptions() { enableImports(); }

    bool apply();
    // False when there was nothing to accept, or it was refused.
    bool accept();
    // A sign that sounds are hidden.
    void showGlobalsHidden(bool hidden);

    // The clipboard
    void copyLines();
    // Whole sound lines, after a preview.
    void pasteLines();
    // Values, flags and samples of one sound, for others.
    void copyValues();
    void pasteValues();

private:
    void reloaded() override;
    void wadChanged() override { enableImports(); }
    void historyChanged() override;
    void lineShown() override { enableLine(); }
    void valuesChanged() override;
    void objectChosen() override { enableLine(); }

    void layOut();
    void connectControls(const FunctionDoors& doors);
    void enableLine();
    void enableImports();
    void restore();
    void backToFile();

    bool confirmApply(const Question& asked);

    struct CopiedSound
    {
        std::string name; // UTF-8: "12: METAL_SCRAPE_LOOP"
        SoundLine line;
    };

    std::function<void()> m_showChanges;
    std::function<bool(const std::filesystem::path&)> m_compare;
    std::optional<CopiedSound> m_copied;
    CarriedParts m_parts; // that were pasted last
    std::array<FoldingPanel*, 4> m_panels{};
    QPushButton* m_generate;
    QPushButton* m_importSamples;
    QPushButton* m_importObjects;
    QPushButton* m_viewWad;
    QPushButton* m_register;
    QPushButton* m_statistics;
    QPushButton* m_checkSamples;
    QPushButton* m_import;
    QPushButton* m_export;
    QPushButton* m_accept;
    QPushButton* m_restore;
    QPushButton* m_backToFile;
    QPushButton* m_apply;
    QPushButton* m_copyLine;
    QPushButton* m_edit;
    QPushButton* m_globals;
};

} // namespace tavrel
