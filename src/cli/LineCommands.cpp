// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FailureTexts.h"
#include "catalogue/SoundCatalogue.h"
#include "catalogue/SoundLine.h"
#include "cli/Commands.h"
#include "cli/InputLines.h"
#include "cli/LineJson.h"
#include "references/LineLetters.h"

#include <memory>
#include <stdexcept>

namespace tavrel {

namespace {

// What becomes of one line, without its end. Throws std::out_of_range for a line that cannot be read.
using Rewrite = std::function<std::string(std::string_view)>;

Failure unreadableInput(const std::error_code& error)
{
    if (error == std::errc::message_size) {
        return {{"A line of the input is too long for a sound line.",
                 "Une ligne de l'entrée est trop longue pour une ligne de son."}};
    }
    return cannotRead("stdin", error);
}

// `write` puts one line into the output, `writeUnread` one that cannot be read.
template <typename Write, typename WriteUnread>
ExitStatus forEachLine(Console& console, Write write, WriteUnread writeUnread)
{
    InputLines lines;
    ExitStatus status = ExitStatus::Done;
    while (const std::optional<std::string_view> line = lines.next()) {
        try {
            write(*line);
        } catch (const std::out_of_range&) {
            writeUnread(*line, lines.number());
            status = ExitStatus::Refused;
        }
        console.output.endLine();
        if (console.output.hasEnded()) {
            return status;
        }
    }
    return lines.error() ? console.dialogs.fail(unreadableInput(lines.error())) : status;
}

ExitStatus parseLines(Console& console)
{
    std::string& output = console.output.pending();
    const auto write = [&output](std::string_view line) {
        const SoundLine record = ParseSoundLine(line);
        JsonObject object(output);
        appendRecord(object, record);
        object.end();
    };
    const auto writeUnread = [&](std::string_view /*line*/, std::size_t /*number*/) {
        JsonObject(output).utf8("error", console.dialogs.inLanguage(tooManySamples())).end();
    };
    return forEachLine(console, write, writeUnread);
}

ExitStatus rewriteLines(Console& console, const Rewrite& rewrite)
{
    std::string& output = console.output.pending();
    const auto write = [&](std::string_view line) { output += rewrite(line); };
    const auto writeUnread = [&](std::string_view line, std::size_t number) {
        const std::string shown = std::to_string(number);
        console.dialogs.say(BilingualText("Line " + shown + " stays as it is. ",
                                          "La ligne " + shown + " reste telle quelle. ") +
                            tooManySamples());
        output += line;
    };
    return forEachLine(console, write, writeUnread);
}

// Some rewrites do not read the line; it counts as one only when it can be read.
Rewrite ofReadable(Rewrite rewrite)
{
    return [rewrite = std::move(rewrite)](std::string_view line) {
        ParseSoundLine(line);
        return rewrite(line);
    };
}

struct FilterLetters
{
    std::string first;
    std::string second;
};

const BilingualText letterText("The letter, without \"#\"", "La lettre, sans « # »");

void addLetterFilter(const Menu& menu, const std::string& name, const BilingualText& what,
                     std::string (*rewrite)(std::string_view, std::string_view))
{
    const auto letters = std::make_shared<FilterLetters>();
    const auto run = [letters, rewrite](Console& console) {
        return rewriteLines(console, ofReadable([&letters, rewrite](std::string_view line) {
                                return rewrite(line, letters->first);
                            }));
    };
    menu.command(name, what, run).text("X", letterText, letters->first);
}

void addReplaceFilter(const Menu& menu)
{
    const auto letters = std::make_shared<FilterLetters>();
    const auto run = [letters](Console& console) {
        return rewriteLines(console, ofReadable([&letters](std::string_view line) {
                                return replaceLetter(line, letters->first, letters->second);
                            }));
    };
    menu.command("replace-letter",
                 {"Put another letter in the place of the first one found",
                  "Mettre une autre lettre à la place de la première trouvée"},
                 run)
        .text("OLD", letterText, letters->first)
        .text("NEW", letterText, letters->second);
}

} // namespace

void addLineCommands(const Menu& menu)
{
    menu.command("parse",
                 {"Read sound lines from standard input, write one JSON object for each",
                  "Lire des lignes de son sur l'entrée standard, écrire un objet JSON pour chacune"},
                 parseLines);
    menu.command(
        "compose",
        {"Read sound lines from standard input, write each in the layout of the program",
         "Lire des lignes de son sur l'entrée standard, les écrire dans la présentation du programme"},
        [](Console& console) {
            return rewriteLines(console,
                                [](std::string_view line) { return ComposeSoundLine(ParseSoundLine(line)); });
        });
    const Menu filters = menu.group("line", {"Change a letter on each line of standard input",
                                             "Modifier une lettre sur chaque ligne de l'entrée standard"});
    addLetterFilter(filters, "add-letter",
                    {"Put a letter behind the others", "Ajouter une lettre derrière les autres"}, AddLetter);
    addLetterFilter(filters, "remove-letter",
                    {"Take a letter off, and write the line anew", "Enlever une lettre et réécrire la ligne"},
                    RemoveLetter);
    addReplaceFilter(filters);
    addLetterFilter(filters, "erase-letter",
                    {"Cut the first place of a letter out, and leave the rest as it is",
                     "Supprimer la première occurrence d'une lettre sans toucher au reste"},
                    eraseLetter);
}

} // namespace tavrel
