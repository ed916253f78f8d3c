// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Result.h"
#include "cli/ExitStatus.h"
#include "cli/Output.h"

namespace tavrel {

// The talk with a user at a console, or with nobody: messages and questions go to standard error, without the
// titles that they have as windows. A question is agreed to beforehand (--yes) unless it needs a person,
// answered at the terminal, or not agreed to.
class ConsoleDialogs : public Dialogs
{
public:
    ConsoleDialogs(Language language, Output& output) : m_language(language), m_output(output) {}

    void agreeToAll(bool agrees) { m_agreesToAll = agrees; }
    // Says no word about questions that are agreed to beforehand.
    void keepQuiet(bool quiet) { m_isQuiet = quiet; }

    void show(const Message& message) override;
    Answer ask(const Question& question) override;
    // No command for scripts lets its user choose one of these.
    std::optional<std::filesystem::path> chooseFile(const OpenFileQuestion& question) override;
    std::optional<ColourValue> chooseColour(ColourValue current) override;
    bool appliesLater() const override { return false; }

    // The messages of the console's own commands.
    void say(const BilingualText& text);
    ExitStatus refuse(const BilingualText& text);
    ExitStatus fail(const Failure& failure);

    // What all that was said comes to: an exclamation is a refusal, a critical message a failed file.
    ExitStatus status() const { return m_status; }
    const std::string& inLanguage(const BilingualText& text) const { return text.in(m_language); }

private:
    std::string detailsOf(const BilingualText& details) const;
    Answer answerAtTerminal(const Question& question);
    void write(const std::string& text);
    void note(ExitStatus status);

    Language m_language;
    Output& m_output;
    bool m_agreesToAll = false;
    bool m_isQuiet = false;
    ExitStatus m_status = ExitStatus::Done;
};

} // namespace tavrel
