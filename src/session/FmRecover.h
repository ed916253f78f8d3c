// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "session/RecoverCommands.h"
#include "ui/TitledWindow.h"

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tavrel {

// What a window had not applied when it ended without a word, or gave up: to be brought back, given up or
// left for later.
class FmRecover : public TitledWindow
{
    Q_OBJECT

public:
    enum class Choice { Later, Recover, Discard };

    // A log that was discarded before is only offered to be brought back.
    FmRecover(QWidget* parent, const FoundRecovery& found, bool isDiscarded, bool isOfThisFile,
              const ColourScheme& colours, Language language);

    Choice choice() const { return m_choice; }

private:
    void layOut();
    void showCaptions(bool isDiscarded, bool isOfThisFile, const FoundRecovery& found);
    void fill(const FoundRecovery& found);
    void showLines();
    void choose(Choice choice);

    Language m_language;
    std::vector<RecoveredLine> m_lines;
    Choice m_choice = Choice::Later;
    QLabel* m_what;
    QListWidget* m_list;
    QPlainTextEdit* m_texts;
    QPushButton* m_recover;
    QPushButton* m_discard;
    QPushButton* m_later;
};

// The lines that could not be brought back, to be read and copied.
class FmMissed : public TitledWindow
{
    Q_OBJECT

public:
    FmMissed(QWidget* parent, const std::vector<RecoveredLine>& lines, const ColourScheme& colours,
             Language language);
};

} // namespace tavrel
