// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "checks/Levels.h"
#include "checks/WatchingWindow.h"

#include <functional>
#include <vector>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tavrel {

struct LevelsContext
{
    Language language;
    ColourScheme colours;
    Dialogs& dialogs;
    std::function<Result<std::vector<LevelSurvey>>()> survey; // the levels anew
    std::function<CurrentWad()> wad;                          // the current one, or none
    std::function<void(const CurrentWad&)> showLevel;         // in the main list
};

// The user's levels in numbers, and the samples of the selected one by their sizes. The window stays open
// beside the main window.
class FmLevels : public WatchingWindow
{
    Q_OBJECT

public:
    FmLevels(QWidget* parent, LevelsContext context);

private:
    void layOut();
    void connectControls();
    void showCaptions() override;
    void run() override;
    void fill() override;
    void showSamples();
    const LevelSurvey* selected() const;
    void activate() override;

    LevelsContext m_context;
    std::vector<LevelSurvey> m_levels;

    QLabel* m_heading;
    QTreeWidget* m_list;
    QLabel* m_samplesHeading;
    QTreeWidget* m_samples;
    QPushButton* m_show;
    QPushButton* m_save;
    QPushButton* m_close;
};

} // namespace tavrel
