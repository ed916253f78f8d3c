// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Message.h"
#include "ui/TitledWindow.h"

#include <functional>
#include <span>

class QHBoxLayout;

namespace tavrel {

// A message or a question in a window of the program's own look. Esc and the keyboard's close are the
// refusal.
class MessageWindow : public TitledWindow
{
    Q_OBJECT

public:
    MessageWindow(QWidget* parent, MessageIcon icon, const QString& title, const QString& text);

    // For a box without an opener that has help.
    void setHelp(std::function<void(QWidget&)> openHelp) { m_openHelp = std::move(openHelp); }
    // Rows to fold out below the text; nothing for none.
    void addDetails(const BilingualText& rows, Language language);
    // From left to right; the default answer is the one that Enter gives. The words of Answer::Other are
    // the question's.
    void offer(std::span<const Answer> answers, Answer byDefault, Language language,
               const BilingualText& otherChoice = {});
    // Shows the window and waits. Without a choice, `refusal`.
    Answer run(Answer refusal);

protected:
    // The underlined letters work without Alt: there is nothing here to type.
    void keyPressEvent(QKeyEvent* event) override;
    void showHelp() override;

private:
    QHBoxLayout* m_buttons;
    std::function<void(QWidget&)> m_openHelp;
    Answer m_answer = Answer::Cancel;
};

} // namespace tavrel
