// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Message.h"
#include "ui/TitledWindow.h"

#include <functional>
#include <map>
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
    using HelpOpener = std::function<void(QWidget& box, const HelpTopic& topic)>;
    void setHelp(HelpOpener openHelp) { m_openHelp = std::move(openHelp); }
    // Folds out below; a button shows and hides it.
    void addDetails(const QString& details, bool open, Language language);
    // From left to right; the default answer is the one that Enter gives. An answer may have words of its
    // own; Answer::Other has no others.
    void offer(std::span<const Answer> answers, Answer byDefault, Language language,
               const std::map<Answer, BilingualText>& words = {});
    // Shows the window and waits. Without a choice, `refusal`.
    Answer run(Answer refusal);

protected:
    // The underlined letters work without Alt: there is nothing here to type.
    void keyPressEvent(QKeyEvent* event) override;
    HelpTopic helpTopic() const override;
    void showHelp(const HelpTopic& topic) override;

private:
    QHBoxLayout* m_buttons;
    HelpOpener m_openHelp;
    Answer m_answer = Answer::Cancel;
};

} // namespace tavrel
