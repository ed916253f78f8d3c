// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

namespace tavrel {

enum class MessageIcon { Information, Question, Exclamation, Critical };

// What a message box says. Texts are plain, never markup.
struct Message
{
    MessageIcon icon = MessageIcon::Information;
    BilingualText title;
    BilingualText text;
};

enum class Answer { Ok, Cancel, Yes, No };
enum class Buttons { OkCancel, YesNo, YesNoCancel };

struct Question
{
    BilingualText title;
    BilingualText text;
    Buttons buttons = Buttons::YesNo;
    // Set where a thoughtless Enter would cost the user something.
    bool refusalIsDefault = false;
    // Set where nobody can agree before the question is asked (--yes): what happened was not to be expected.
    bool needsAPerson = false;
};

} // namespace tavrel
