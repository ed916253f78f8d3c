// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "checks/Levels.h"
#include "ui/TitledWindow.h"

#include <QTimer>

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
class FmLevels : public TitledWindow
{
    Q_OBJECT

public:
    FmLevels(QWidget* parent, LevelsContext context);

    // Something has changed: the numbers are taken again in a moment.
    void refresh();
    void setLanguage(Language language);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void connectControls();
    void showCaptions();
    void run();
    void fill();
    void showSamples();
    const LevelSurvey* selected() const;
    void activate();
    QString in(const BilingualText& text) const;

    LevelsContext m_context;
    std::vector<LevelSurvey> m_levels;
    bool m_isCurrent = false;
    QTimer m_soon;

    QLabel* m_heading;
    QTreeWidget* m_list;
    QLabel* m_samplesHeading;
    QTreeWidget* m_samples;
    QPushButton* m_show;
    QPushButton* m_save;
    QPushButton* m_close;
};

} // namespace tavrel
