// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Title.h"

namespace tavrel {

enum class MessageIcon { Information, Question, Exclamation, Critical };

// What a message box says. Texts are plain, never markup.
struct Message
{
    MessageIcon icon = MessageIcon::Information;
    Title title;
    BilingualText text;
    // What not everybody wants to read, line by line: a window folds it out, a console writes it below.
    BilingualText details = {};
};

enum class Answer { Ok, Cancel, Yes, No, Other };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };

struct Question
{
    Title title;
    BilingualText text;
    Buttons buttons = Buttons::YesNo;
    // Set where a thoughtless Enter would cost the user something.
    bool refusalIsDefault = false;
    // Set where nobody can agree before the question is asked (--yes): what happened was not to be expected.
    bool needsAPerson = false;
    // A further way, besides the buttons: what its button says, and where it is set, Answer::Other. A window
    // offers it, a console does without.
    BilingualText otherChoice = {};
    MessageIcon icon = MessageIcon::Question;
    // What the button of the agreement says in a window, where that is not OK or Yes.
    BilingualText agreement = {};
    // As in a message; a preview is open from the start.
    BilingualText details = {};
    bool showsDetails = false;
};

} // namespace tavrel
