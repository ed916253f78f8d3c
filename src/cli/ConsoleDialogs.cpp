// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ConsoleDialogs.h"

#include "base/CodePage.h"
#include "base/System.h"

#include <algorithm>
#include <iostream>

namespace tavrel {

namespace {

constexpr std::string_view speaker = "tavrel-cli: ";

Answer agreement(Buttons buttons)
{
    return buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
}

// Where there is a way back, silence takes it.
Answer silence(Buttons buttons)
{
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

BilingualText choices(Buttons buttons)
{
    return buttons == Buttons::YesNoCancel ? BilingualText(" [y/n/c] ", " [o/n/a] ")
                                           : BilingualText(" [y/n] ", " [o/n] ");
}

// The words of both languages count, whichever is spoken. Nothing for any other word.
std::optional<Answer> answerFor(std::string_view typed, Buttons buttons)
{
    std::string word = lowerCase(typed);
    std::erase_if(word, [](char c) { return c == ' ' || c == '\r'; });
    const auto isOneOf = [&word](std::initializer_list<std::string_view> words) {
        return std::ranges::find(words, word) != words.end();
    };
    if (isOneOf({"y", "yes", "o", "oui", "ok"})) {
        return agreement(buttons);
    }
    if (isOneOf({"n", "no", "non"})) {
        return buttons == Buttons::OkCancel ? Answer::Cancel : Answer::No;
    }
    if (isOneOf({"c", "cancel", "a", "annuler"})) {
        return silence(buttons);
    }
    return std::nullopt;
}

// The first rows, and how many more there are.
std::string shortened(const std::string& rows, Language language)
{
    constexpr std::size_t mostRows = 8;
    std::size_t end = 0;
    for (std::size_t row = 0; row < mostRows && end != std::string::npos; ++row) {
        end = rows.find('\n', row == 0 ? 0 : end + 1);
    }
    if (end == std::string::npos) {
        return rows;
    }
    const auto rest =
        std::to_string(std::count(rows.begin() + static_cast<std::ptrdiff_t>(end), rows.end(), '\n'));
    const BilingualText more("\n... and " + rest + " more", "\n... et " + rest + " de plus");
    return rows.substr(0, end) + more.in(language);
}

} // namespace

void ConsoleDialogs::show(const Message& message)
{
    write(std::string(speaker) + inLanguage(message.text) + "\n" + detailsOf(message.details));
    if (message.icon == MessageIcon::Critical) {
        note(ExitStatus::FileFailure);
    } else if (message.icon == MessageIcon::Exclamation) {
        note(ExitStatus::Refused);
    }
}

Answer ConsoleDialogs::ask(const Question& question)
{
    if (question.buttons == Buttons::Ok) {
        show({question.icon, question.title, question.text, question.details});
        return Answer::Ok;
    }
    const bool isAgreed = m_agreesToAll && !question.needsAPerson;
    if (isAgreed && m_isQuiet) {
        return agreement(question.buttons);
    }
    // What is answered comes last.
    write(detailsOf(question.details) + std::string(speaker) + inLanguage(question.text) +
          inLanguage(choices(question.buttons)));
    if (isAgreed) {
        write(inLanguage({"yes\n", "oui\n"}));
        return agreement(question.buttons);
    }
    if (system::inputIsTerminal()) {
        return answerAtTerminal(question);
    }
    write("\n");
    refuse(BilingualText("The question was not answered: nobody is at the terminal. ",
                         "Question restée sans réponse : personne n'est au terminal. ") +
           (question.needsAPerson
                ? BilingualText("The option --yes does not agree to this question.",
                                "L'option --yes ne répond pas oui à cette question.")
                : BilingualText("The option --yes agrees to it.", "L'option --yes y répond oui.")));
    return silence(question.buttons);
}

std::string ConsoleDialogs::detailsOf(const BilingualText& details) const
{
    return details.empty() ? std::string() : shortened(inLanguage(details), m_language) + "\n";
}

Answer ConsoleDialogs::answerAtTerminal(const Question& question)
{
    Answer answer = silence(question.buttons);
    for (std::string typed; std::getline(std::cin, typed);) {
        if (const std::optional<Answer> given = answerFor(typed, question.buttons)) {
            answer = *given;
            break;
        }
        write(inLanguage(choices(question.buttons)));
    }
    if (answer != agreement(question.buttons)) {
        note(ExitStatus::Refused);
    }
    return answer;
}

std::optional<std::filesystem::path> ConsoleDialogs::chooseFile(const OpenFileQuestion& /*question*/)
{
    return std::nullopt;
}

std::optional<ColourValue> ConsoleDialogs::chooseColour(ColourValue /*current*/)
{
    return std::nullopt;
}

void ConsoleDialogs::say(const BilingualText& text)
{
    show({MessageIcon::Information, {}, text});
}

ExitStatus ConsoleDialogs::refuse(const BilingualText& text)
{
    show({MessageIcon::Exclamation, {}, text});
    return ExitStatus::Refused;
}

ExitStatus ConsoleDialogs::fail(const Failure& failure)
{
    show({MessageIcon::Critical, {}, failure.text});
    return ExitStatus::FileFailure;
}

// What was printed so far stands before the message where both go to one screen.
void ConsoleDialogs::write(const std::string& text)
{
    m_output.flush();
    std::cerr << withoutControls(text) << std::flush;
}

void ConsoleDialogs::note(ExitStatus status)
{
    m_status = graver(m_status, status);
}

} // namespace tavrel
