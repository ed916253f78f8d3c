// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

// Answers from a prepared list and records the whole conversation. A question that was not prepared fails the
// test, and so does an answer that nobody asked for, or a title that is not in the table of titles. A box
// with OK alone may go without an answer.
class ScriptedDialogs : public Dialogs
{
public:
    struct Said
    {
        std::string
            kind; // "information", "exclamation", "critical", or "Yes/No", "Yes/No/Cancel", "OK/Cancel"
        BilingualText title;
        BilingualText text;
        bool refusalIsDefault = false;
        BilingualText otherChoice = {};
        BilingualText details = {};
    };

    ScriptedDialogs() = default;
    ScriptedDialogs(std::initializer_list<Answer> answers) : m_answers(answers) {}
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
    ~ScriptedDialogs() override;

    void prepareAnswer(Answer answer) { m_answers.push_back(answer); }
    // Nothing stands for a cancelled file dialog.
    void prepareFile(std::optional<std::filesystem::path> file) { m_files.push_back(std::move(file)); }
    void prepareColour(std::optional<ColourValue> colour) { m_colours.push_back(colour); }
    // Called while each question stands, for what happens outside in the meantime.
    void whileAsking(std::function<void()> action) { m_whileAsking = std::move(action); }
    // The same for messages.
    void whileShowing(std::function<void()> action) { m_whileShowing = std::move(action); }

    const std::vector<Said>& said() const { return m_said; }
    // Each exchange as "kind | title | text".
    std::vector<std::string> conversation(Language language) const;
    const std::vector<OpenFileQuestion>& fileQuestions() const { return m_fileQuestions; }
    const std::vector<ColourValue>& colourQuestions() const { return m_colourQuestions; }

    void show(const Message& message) override;
    Answer ask(const Question& question) override;
    std::optional<std::filesystem::path> chooseFile(const OpenFileQuestion& question) override;
    std::optional<ColourValue> chooseColour(ColourValue current) override;

private:
    std::deque<Answer> m_answers;
    std::deque<std::optional<std::filesystem::path>> m_files;
    std::deque<std::optional<ColourValue>> m_colours;
    std::function<void()> m_whileAsking;
    std::function<void()> m_whileShowing;
    std::vector<Said> m_said;
    std::vector<OpenFileQuestion> m_fileQuestions;
    std::vector<ColourValue> m_colourQuestions;
};

} // namespace tavrel
