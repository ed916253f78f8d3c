// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "catalogue/LineEditor.h"
#include "cli/Commands.h"
#include "cli/LineJson.h"
#include "cli/Opening.h"
#include "references/LetterList.h"
#include "samples/SampleCommands.h"

#include <algorithm>
#include <array>
#include <memory>

namespace tavrel {

namespace {

// list

struct ListArguments
{
    std::optional<std::string> letter;
    bool modifiedAlone = false;
    bool json = false;
};

bool isListed(const SoundCatalogue& catalogue, std::size_t number, const SoundLine& record,
              const ListArguments& arguments)
{
    if (arguments.modifiedAlone && !catalogue.isModified(number)) {
        return false;
    }
    const std::vector<std::string> letters = lettersOf(record);
    return !arguments.letter || std::ranges::find(letters, *arguments.letter) != letters.end();
}

// The entry of the main list, a star for a modified line, the letters.
std::string listRow(const SoundCatalogue& catalogue, std::size_t number, const SoundLine& record)
{
    constexpr std::size_t letterColumn = 33;
    std::string row = catalogue.listEntry(number);
    row.resize(std::max(row.size() + 1, letterColumn), ' ');
    row += catalogue.isModified(number) ? "* " : "  ";
    return std::string(RTrimBlanks(row + record.Letters));
}

void appendSound(std::string& text, const SoundCatalogue& catalogue, std::size_t number,
                 const SoundLine& record)
{
    JsonObject object(text);
    object.number("Number", number)
        .number("LineInFile", catalogue.lineInFile(number))
        .flag("Modified", catalogue.isModified(number))
        .flag("Protected", catalogue.isProtected(number))
        .bytes("Line", catalogue.currentLine(number));
    appendRecord(object, record);
    object.end();
}

ExitStatus listSounds(const ListArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const SoundCatalogue& catalogue = session->catalogue();
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const SoundLine record = ParseSoundLine(catalogue.currentLine(k));
        if (!isListed(catalogue, k, record, arguments)) {
            continue;
        }
        if (arguments.json) {
            appendSound(console.output.pending(), catalogue, k, record);
            console.output.endLine();
        } else {
            console.output.writeLine(utf8FromCodePage(listRow(catalogue, k, record)));
        }
    }
    return ExitStatus::Done;
}

// show

void writeField(const BilingualText& name, const std::string& value, Console& console)
{
    constexpr std::size_t width = 10; // of both languages' words
    std::string row = codePageFromUtf8(console.dialogs.inLanguage(name)).bytes;
    row.resize(width, ' ');
    row += value;
    console.output.writeLine(utf8FromCodePage(RTrimBlanks(row)));
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() || word.empty() ? "" : " ") + word;
    }
    return text;
}

ExitStatus showSound(std::size_t number, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    if (!hasSound(*session, number, console)) {
        return ExitStatus::Refused;
    }
    const SoundCatalogue& catalogue = session->catalogue();
    const SoundLine record = ParseSoundLine(catalogue.currentLine(number));
    const auto row = [&console](const BilingualText& name, std::string_view value) {
        writeField(name, std::string(value), console);
    };
    row({"Sound", "Son"}, catalogue.listEntry(number));
    row({"Line", "Ligne"}, std::to_string(catalogue.lineInFile(number)));
    row({"Current", "Actuelle"}, catalogue.currentLine(number));
    row({"Original", "Originale"}, catalogue.originalLine(number));
    row({"Samples", "Samples"},
        joined({record.Samples.begin(),
                record.Samples.begin() + static_cast<std::ptrdiff_t>(record.sampleCount())}));
    row({"Values", "Valeurs"}, joined({std::string(record.Vol.trimmed()), std::string(record.Pit.trimmed()),
                                       std::string(record.Rad.trimmed()), std::string(record.Ch.trimmed())}));
    row({"Flags", "Flags"},
        joined({std::string(record.FlagP.trimmed()), std::string(record.FlagV.trimmed()),
                std::string(record.FlagRN.trimmed()), std::string(record.FlagL.trimmed())}));
    for (const std::string& entry : letterEntries(record, session->references(), {}, console.language)) {
        row({"Letter", "Lettre"}, entry);
    }
    return ExitStatus::Done;
}

// set

struct SetArguments
{
    SoundsArgument sounds;
    std::array<std::optional<std::string>, valueBoxCount> values; // in the order of ValueBox
    std::array<std::optional<std::string>, valueBoxCount> steps;
    std::optional<std::string> flags;
    std::optional<std::string> samples;
    std::optional<std::string> wadName;

    std::optional<std::string>& value(ValueBox box) { return values[static_cast<std::size_t>(box)]; }
    std::optional<std::string>& step(ValueBox box) { return steps[static_cast<std::size_t>(box)]; }
};

// What the keyboard can put into the box, without zeros that would push digits out of it. The pitch is cut to
// its limits, the others hold two digits.
ArgumentCheck checkOf(ValueBox box)
{
    return [box](std::string& argument) -> std::optional<BilingualText> {
        constexpr std::size_t boxDigits = 2;
        constexpr std::size_t mostPitchDigits = 9;
        const bool isPitch = box == ValueBox::Pit;
        const std::string sign = isPitch && argument.starts_with('-') ? "-" : "";
        std::string_view digits = std::string_view(argument).substr(sign.size());
        while (digits.size() > boxDigits && digits.starts_with('0')) {
            digits.remove_prefix(1);
        }
        if (isNumber(digits, isPitch ? mostPitchDigits : boxDigits) || argument.empty()) {
            argument = sign + std::string(digits);
            return std::nullopt;
        }
        return isPitch ? BilingualText("[" + argument + "] is not a pitch",
                                       "[" + argument + "] n'est pas une hauteur")
                       : BilingualText("[" + argument + "] is not a number of at most two digits",
                                       "[" + argument + "] n'est pas un nombre de deux chiffres au plus");
    };
}

std::optional<BilingualText> checkFlags(std::string& argument)
{
    if (argument.find_first_not_of("PVRNL") == std::string::npos) {
        return std::nullopt;
    }
    return BilingualText("[" + argument + "] are not flags; there are P, V, R, N and L",
                         "[" + argument + "] ne sont pas des flags ; il y a P, V, R, N et L");
}

std::optional<BilingualText> checkSteps(std::string& argument)
{
    constexpr std::size_t mostDigits = 3;
    const bool isSigned = argument.starts_with('-') || argument.starts_with('+');
    if (isNumber(std::string_view(argument).substr(isSigned ? 1 : 0), mostDigits)) {
        argument.erase(0, argument.starts_with('+') ? 1 : 0);
        return std::nullopt;
    }
    return BilingualText("[" + argument + "] is not a number of steps",
                         "[" + argument + "] n'est pas un nombre de pas");
}

// What the options say, for any line.
LineEdit editOf(const SetArguments& arguments, Console& console)
{
    LineEdit edit;
    for (const ValueBox box : allValueBoxes) {
        if (const auto& steps = arguments.steps[static_cast<std::size_t>(box)]) {
            edit.value(box) = LineEdit::Value{std::nullopt, leadingNumber(*steps)};
        }
        if (const auto& typed = arguments.values[static_cast<std::size_t>(box)]) {
            const std::string corrected = correctedBoxText(box, *typed, false);
            edit.value(box) = LineEdit::Value{corrected};
            if (corrected != *typed) {
                console.dialogs.say({"[" + *typed + "] becomes [" + corrected + "]",
                                     "[" + *typed + "] devient [" + corrected + "]"});
            }
        }
    }
    if (arguments.flags) {
        // Like ticking boxes one after another: of R and N the later one stays.
        for (const LineFlag flag : allLineFlags) {
            edit.setFlag(flag, false);
        }
        for (const char wanted : *arguments.flags) {
            edit.setFlag(*std::ranges::find(allLineFlags, wanted, letterOf), true);
        }
    }
    return edit;
}

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    for (std::size_t start = text.find_first_not_of(' '); start != std::string_view::npos;) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        words.emplace_back(text.substr(start, end - start));
        start = text.find_first_not_of(' ', end);
    }
    return words;
}

bool setSound(Session& session, std::size_t number, const SetArguments& arguments, Console& console)
{
    LineEditor editor(session.catalogue());
    editor.select(number);
    if (!editor.canEdit()) {
        console.dialogs.show(protectedLineRefusal());
        return false;
    }
    editor.putBack(editOf(arguments, console));
    return arguments.samples
               ? setSamples(editor, wordsOf(*arguments.samples), session.places().samples, console.dialogs)
               : !editor.edited() || editor.accept(console.dialogs);
}

// Those that cannot be changed are left out.
bool setManySounds(Session& session, std::vector<std::size_t> numbers, const SetArguments& arguments,
                   Console& console)
{
    if (arguments.samples) {
        console.dialogs.refuse({"Samples are set for one sound at a time.",
                                "Les samples se règlent pour un seul son à la fois."});
        return false;
    }
    LineEditor editor(session.catalogue());
    const std::size_t first = numbers.front();
    std::ranges::sort(numbers);
    editor.select(std::move(numbers), first);
    editor.putBack(editOf(arguments, console));
    if (editor.edited() && !editor.accept(console.dialogs)) {
        return false;
    }
    if (!editor.report().empty()) {
        console.dialogs.say(editor.report());
    }
    return true;
}

ExitStatus setSounds(const SetArguments& arguments, Console& console)
{
    for (std::size_t box = 0; box < valueBoxCount; ++box) {
        if (arguments.values[box] && arguments.steps[box]) {
            console.dialogs.refuse({"A value is either set or changed by steps.",
                                    "Une valeur est soit fixée, soit changée par pas."});
            return ExitStatus::WrongUsage;
        }
    }
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<std::vector<std::size_t>> numbers = soundsOf(arguments.sounds, *session, console);
    if (!numbers) {
        return ExitStatus::Refused;
    }
    const bool accepted = numbers->size() == 1 ? setSound(*session, numbers->front(), arguments, console)
                                               : setManySounds(*session, *numbers, arguments, console);
    if (!accepted) {
        return ExitStatus::Refused;
    }
    const ExitStatus status = apply(*session, arguments.wadName, console);
    return std::max(status, console.dialogs.status());
}

void addSet(const Menu& menu)
{
    const auto arguments = std::make_shared<SetArguments>();
    const BilingualText value("Up to two digits; an empty text empties the field",
                              "Deux chiffres au plus ; un texte vide vide le champ");
    const BilingualText pitch("From -99 to 99; an empty text empties the field",
                              "De -99 à 99 ; un texte vide vide le champ");
    const BilingualText steps("So much up or down, as far as the value can go",
                              "D'autant vers le haut ou le bas, dans les limites de la valeur");
    CommandEntry set =
        menu.command("set", {"Change sounds and write sounds.txt", "Modifier des sons et écrire sounds.txt"},
                     [arguments](Console& console) { return setSounds(*arguments, console); });
    set.sounds(arguments->sounds)
        .optionalText("--vol", value, arguments->value(ValueBox::Vol), checkOf(ValueBox::Vol))
        .optionalText("--pit", pitch, arguments->value(ValueBox::Pit), checkOf(ValueBox::Pit))
        .optionalText("--rad", value, arguments->value(ValueBox::Rad), checkOf(ValueBox::Rad))
        .optionalText("--ch", value, arguments->value(ValueBox::Ch), checkOf(ValueBox::Ch))
        .optionalText("--vol-by", steps, arguments->step(ValueBox::Vol), checkSteps)
        .optionalText("--pit-by", steps, arguments->step(ValueBox::Pit), checkSteps)
        .optionalText("--rad-by", steps, arguments->step(ValueBox::Rad), checkSteps)
        .optionalText("--ch-by", steps, arguments->step(ValueBox::Ch), checkSteps)
        .optionalText("--flags",
                      {"All flags of the line, of PVRNL; an empty text takes all off",
                       "Tous les flags de la ligne, parmi PVRNL ; un texte vide les enlève tous"},
                      arguments->flags, checkFlags)
        .optionalText("--samples",
                      {"All samples of the line, between blanks",
                       "Tous les samples de la ligne, séparés par des espaces"},
                      arguments->samples)
        .wad(arguments->wadName);
}

} // namespace

void addCatalogueCommands(const Menu& menu)
{
    const auto list = std::make_shared<ListArguments>();
    menu.command("list", {"List the sounds", "Lister les sons"},
                 [list](Console& console) { return listSounds(*list, console); })
        .optionalLetter("--letter", {"Only sounds with this letter", "Seulement les sons avec cette lettre"},
                        list->letter)
        .flag("--modified", {"Only modified lines", "Seulement les lignes modifiées"}, list->modifiedAlone)
        .flag("--json", {"One JSON object for each sound", "Un objet JSON par son"}, list->json);
    const auto shown = std::make_shared<std::size_t>();
    menu.command("show", {"Show one sound", "Montrer un son"},
                 [shown](Console& console) { return showSound(*shown, console); })
        .number("N", {"The sound's number", "Le numéro du son"}, *shown);
    addSet(menu);
}

} // namespace tavrel
