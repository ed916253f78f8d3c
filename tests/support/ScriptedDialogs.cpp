// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace tavrel {

namespace {

std::string kindOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information:
        return "information";
    case MessageIcon::Question:
        return "question";
    case MessageIcon::Exclamation:
        return "exclamation";
    case MessageIcon::Critical:
        break;
    }
    return "critical";
}

std::string kindOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return "OK";
    case Buttons::YesNo:
        return "Yes/No";
    case Buttons::YesNoCancel:
        return "Yes/No/Cancel";
    case Buttons::OkCancel:
        break;
    }
    return "OK/Cancel";
}

bool offers(const Question& question, Answer answer)
{
    const Buttons buttons = question.buttons;
    switch (answer) {
    case Answer::Ok:
        return buttons == Buttons::Ok || buttons == Buttons::OkCancel;
    case Answer::Cancel:
        return buttons == Buttons::OkCancel || buttons == Buttons::YesNoCancel;
    case Answer::Other:
        return !question.otherChoice.empty();
    default:
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel;
    }
}

} // namespace

ScriptedDialogs::~ScriptedDialogs()
{
    EXPECT_EQ(m_answers.size(), 0U) << "answers that nobody asked for";
    EXPECT_EQ(m_files.size(), 0U) << "chosen files that nobody asked for";
    EXPECT_EQ(m_colours.size(), 0U) << "chosen colours that nobody asked for";
}

std::vector<std::string> ScriptedDialogs::conversation(Language language) const
{
    std::vector<std::string> result;
    for (const Said& said : m_said) {
        result.push_back(said.kind + " | " + said.title.in(language) + " | " + said.text.in(language));
    }
    return result;
}

void ScriptedDialogs::show(const Message& message)
{
    m_said.push_back({kindOf(message.icon), message.title, message.text, false, {}, message.details});
    if (m_whileShowing) {
        m_whileShowing();
    }
}

Answer ScriptedDialogs::ask(const Question& question)
{
    // A box with OK alone is a message that offers something.
    const bool isMessage = question.buttons == Buttons::Ok;
    m_said.push_back({isMessage ? kindOf(question.icon) : kindOf(question.buttons), question.title,
                      question.text, question.refusalIsDefault, question.otherChoice, question.details});
    if (m_whileAsking) {
        m_whileAsking();
    }
    if (m_answers.empty() && isMessage) {
        return Answer::Ok;
    }
    if (m_answers.empty()) {
        ADD_FAILURE() << "asked without a prepared answer: " << question.text.english;
        return question.buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    EXPECT_TRUE(offers(question, answer)) << "no such button: " << question.text.english;
    return answer;
}

std::optional<std::filesystem::path> ScriptedDialogs::chooseFile(const OpenFileQuestion& question)
{
    m_fileQuestions.push_back(question);
    if (m_files.empty()) {
        ADD_FAILURE() << "asked for a file without a prepared one: " << question.title.english;
        return std::nullopt;
    }
    std::optional<std::filesystem::path> file = std::move(m_files.front());
    m_files.pop_front();
    return file;
}

std::optional<ColourValue> ScriptedDialogs::chooseColour(ColourValue current)
{
    m_colourQuestions.push_back(current);
    if (m_colours.empty()) {
        ADD_FAILURE() << "asked for a colour without a prepared one";
        return std::nullopt;
    }
    const std::optional<ColourValue> colour = m_colours.front();
    m_colours.pop_front();
    return colour;
}

} // namespace tavrel
