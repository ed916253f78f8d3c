// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "base/Progress.h"
#include "checks/Checks.h"
#include "checks/WatchingWindow.h"

#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace tavrel {

struct ChecksContext
{
    Language language;
    ColourScheme colours;
    Dialogs& dialogs;
    std::function<CheckReport(Progress&)> check;     // the findings anew
    std::function<void(const CheckReport&)> checked; // whoever else shows findings
    std::function<const SoundCatalogue&()> catalogue;
    std::function<CurrentWad()> wad; // the current one, or none
    std::function<void(std::size_t)> selectSound;
    // One step of the history under that label. False when it was refused.
    std::function<bool(std::vector<SoundCatalogue::LineChange>, const BilingualText&)> changeLines;
    // Asks about pending changes, and loads sounds.txt with these lines read otherwise.
    std::function<bool(std::vector<LineReadOtherwise>)> readOtherwise;
    std::function<void(const std::string&)> openRegister; // with the letter filled in
};

// What is wrong with the project, and how to mend it. The window stays open beside the main window and
// follows what is done there.
class FmChecks : public WatchingWindow
{
    Q_OBJECT

public:
    FmChecks(QWidget* parent, ChecksContext context);

private:
    void layOut();
    void connectControls();
    void showCaptions() override;
    void showScopes();
    void run() override;
    void take(const CheckReport& report);
    bool isWanted(const Finding& finding) const;
    void fill() override;
    void fillGroup(Severity severity);
    void showEmptyPage();
    void selectRow(const Finding* wanted);
    const Finding* selected() const;
    std::vector<const Finding*> listed() const;
    std::vector<const Finding*> fixableLike(const Finding& finding) const;

    void showSelected();
    void activate() override;
    void fixSelected();
    void fixAllOfKind();
    void mend(const std::vector<const Finding*>& findings, const BilingualText& label);
    void mendFiles(const std::vector<const Finding*>& findings);
    void copyList();
    void saveFindings();

    ChecksContext m_context;
    CheckReport m_report;
    bool m_isRunning = false;

    QLabel* m_counts;
    QComboBox* m_scope;
    QLineEdit* m_search;
    QProgressBar* m_progress;
    QPushButton* m_cancel;
    QStackedWidget* m_pages;
    QTreeWidget* m_tree;
    QLabel* m_emptyTitle;
    QLabel* m_emptyText;
    QLabel* m_text;
    QPlainTextEdit* m_preview;
    QPushButton* m_fix;
    QPushButton* m_fixAll;
    QPushButton* m_show;
    QPushButton* m_copy;
    QPushButton* m_save;
    QPushButton* m_close;
};

} // namespace tavrel
