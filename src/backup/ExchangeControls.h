// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Progress.h"
#include "samples/SamplePlayer.h"
#include "ui/TickList.h"

#include <QLabel>

#include <cstddef>

class QProgressBar;
class QPushButton;

// What the export and the import window are built of.
namespace tavrel {

// The buttons of a list of lines: they tick all of it and play its selected row. What playing means is left
// to the window.
struct LineButtons
{
    LineButtons(TickList& lines, SamplePlayer& player);

    QPushButton* tickAll;
    QPushButton* untickAll;
    QPushButton* play;
    QPushButton* stop;
};

// The bottom line of both windows: what is being copied, how far, and a button to stop.
class CopyStatus : public QWidget
{
    Q_OBJECT

public:
    CopyStatus();

    void showText(const BilingualText& text, Language language) const;

    QLabel* info;
    QProgressBar* bar;
    QPushButton* cancel;
};

// While it lives, a copy is under way: the rest of the window waits, the button stops the copy between two
// files.
class CopyProgress : public Progress
{
public:
    CopyProgress(CopyStatus& status, QWidget& rest, Language language);
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;
    ~CopyProgress() override;

    bool show(std::size_t done, std::size_t total) override;
    void say(const BilingualText& text) override;

private:
    CopyStatus& m_status;
    QWidget& m_rest;
    QWidget* m_focusBefore;
    Language m_language;
    QMetaObject::Connection m_connection;
    bool m_cancelled = false;
};

} // namespace tavrel
