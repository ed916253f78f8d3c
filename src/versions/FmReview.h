// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Session.h"
#include "ui/TitledWindow.h"
#include "versions/PendingChanges.h"

#include <functional>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavrel {

class DifferenceView;

struct ReviewDoors
{
    // Applies the changes. Without it, the window is only to be read and put back from: whoever opened it
    // asks next.
    std::function<bool()> apply;
    // Selects a sound in the main window.
    std::function<void(std::size_t)> showSound;
};

// What an apply would write: every line that is another than in the file, each to be put back, and the lines
// of the file that will not be written back.
class FmReview : public TitledWindow, private SessionObserver
{
    Q_OBJECT

public:
    FmReview(QWidget* parent, Session& session, Dialogs& dialogs, ReviewDoors doors);
    FmReview(const FmReview&) = delete;
    FmReview& operator=(const FmReview&) = delete;
    ~FmReview() override;

private:
    // SessionObserver
    void linesChanged(const std::vector<std::size_t>& /*numbers*/) override { fill(); }
    void linesMoved() override { fill(); }
    void reloaded() override { fill(); }

    void layOut();
    void showCaptions();
    void fill();
    void fillDropped();
    void putBack(std::size_t row);
    void showSound(std::size_t row);
    void apply();
    QString inLanguage(const BilingualText& text) const;

    Session& m_session;
    Dialogs& m_dialogs;
    ReviewDoors m_doors;
    std::vector<PendingChange> m_changes;
    DifferenceView* m_view;
    QLabel* m_droppedTitle;
    QListWidget* m_dropped;
    QPushButton* m_apply;
    QPushButton* m_close;
};

} // namespace tavrel
