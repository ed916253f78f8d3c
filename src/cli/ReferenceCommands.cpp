// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "catalogue/ChangedLines.h"
#include "cli/Commands.h"
#include "cli/Opening.h"
#include "references/LetterCommands.h"
#include "references/RegisterEditor.h"
#include "references/WadListImport.h"
#include "references/WadLists.h"

#include <memory>

namespace tavrel {

namespace {

ExitStatus listReferences(Console& console)
{
    const Result<LoadedRegister> loaded = loadRegister(console.programFolder);
    if (!loaded) {
        return console.dialogs.fail(loaded.failure());
    }
    if (!loaded->notices.empty()) {
        console.dialogs.say(listOf(loaded->notices));
    }
    for (const WadReference& reference : loaded->references.all()) {
        console.output.writeLine(
            utf8FromCodePage(reference.wadName + "\t" + reference.letter + "\t" + reference.title));
    }
    const bool userFileWasRead = !loaded->references.isUserFileProtected();
    return userFileWasRead ? ExitStatus::Done : ExitStatus::FileFailure;
}

struct ReferenceArguments
{
    WadReference reference;
    std::optional<std::string> wadName;
};

RegisterEditor editorOf(Session& session, CurrentWad& wad, Console& console)
{
    return RegisterEditor(
        {session.catalogue(), session.references(), wad, session.places().wads, console.dialogs});
}

ExitStatus addReference(const ReferenceArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console);
    if (!session) {
        return console.dialogs.status();
    }
    CurrentWad none;
    if (!editorOf(*session, none, console).add(arguments.reference)) {
        return ExitStatus::Refused;
    }
    const std::string& letter = arguments.reference.letter;
    if (const std::size_t carriers = linesWithLetter(session->catalogue(), letter); carriers > 0) {
        console.dialogs.say(alreadyCarried(carriers, letter));
    }
    return writeRegister(*session, console);
}

// The user's own before a built-in one.
std::optional<std::size_t> rowOf(const ReferenceRegister& references, const std::string& wadName)
{
    const WadReference* const own = userReferenceNamed(references, wadName);
    const WadReference* const found = own != nullptr ? own : referenceNamed(references, wadName);
    return found == nullptr ? std::nullopt
                            : std::optional(static_cast<std::size_t>(found - &references.at(0)));
}

// The lines first: when they cannot be written, the register still knows the letter that they carry.
ExitStatus deleteReference(const ReferenceArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<std::size_t> row = rowOf(session->references(), arguments.reference.wadName);
    if (!row) {
        refuseWadName(arguments.reference.wadName, console);
        return ExitStatus::Refused;
    }
    CurrentWad none;
    RegisterEditor editor = editorOf(*session, none, console);
    editor.select(row, true);
    if (!editor.selected() || !editor.remove()) {
        return ExitStatus::Refused;
    }
    const ExitStatus status = apply(*session, arguments.wadName, console);
    return status == ExitStatus::Done ? writeRegister(*session, console) : status;
}

// The column of the register window.
std::optional<BilingualText> checkNewWadName(std::string& argument)
{
    if (std::optional<BilingualText> wrong = toCodePage(argument)) {
        return wrong;
    }
    if (argument.size() <= longestWadName) {
        return std::nullopt;
    }
    const std::string longest = std::to_string(longestWadName);
    return BilingualText("A WAD name has at most " + longest + " characters",
                         "Un nom de WAD a au plus " + longest + " caractères");
}

struct ImportArguments
{
    std::string name;
    std::optional<std::string> wadName;
};

ExitStatus importList(WadListKind kind, const ImportArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<CurrentWad> wad = wadNamed(*session, arguments.name, console);
    if (!wad) {
        return ExitStatus::Refused;
    }
    if (!session->settings().loadWadAfterChanges && hasChangedLines(console.programFolder, wad->wadName)) {
        return console.dialogs.refuse(importForbidden());
    }
    tellCutRestores(session->places(), console);
    const ImportResult result =
        importWadList(session->catalogue(), *wad, kind, session->places(), console.dialogs);
    if (!result.imported) {
        return result.unreadable ? ExitStatus::FileFailure : ExitStatus::Refused;
    }
    for (const std::string& sample : result.unknownSamples) {
        console.output.writeLine(utf8FromCodePage(sample));
    }
    return apply(*session, arguments.wadName.value_or(wad->wadName), console);
}

void addImport(const Menu& menu, const std::string& name, const BilingualText& what, WadListKind kind)
{
    const auto arguments = std::make_shared<ImportArguments>();
    menu.command(name, what,
                 [arguments, kind](Console& console) { return importList(kind, *arguments, console); })
        .text("WAD", {"One of your WADs", "Un de vos WADs"}, arguments->name)
        .wad(arguments->wadName, {"the imported one", "celui qui est importé"});
}

} // namespace

void addReferenceCommands(const Menu& menu)
{
    const Menu references = menu.group(
        "refs", {"The register of WADs and their letters", "Le registre des WADs et de leurs lettres"});
    const BilingualText wadName("The WAD's name, without folder and ending",
                                "Le nom du WAD, sans répertoire ni extension");
    references.command("list",
                       {"WAD, letter and title of every reference, between TABs",
                        "WAD, lettre et titre de toutes les références, séparés par des tabulations"},
                       listReferences);
    const auto added = std::make_shared<ReferenceArguments>();
    references
        .command("add", {"Add a reference", "Ajouter une référence"},
                 [added](Console& console) { return addReference(*added, console); })
        .text("NAME", wadName, added->reference.wadName, checkNewWadName)
        .letter("LETTER", {"Two characters", "Deux caractères"}, added->reference.letter)
        .text("TITLE", {"The level's title", "Le titre du niveau"}, added->reference.title);
    const auto deleted = std::make_shared<ReferenceArguments>();
    references
        .command("delete",
                 {"Delete a reference, and take its letter off every line of sounds.txt",
                  "Supprimer une référence et enlever sa lettre de toutes les lignes de sounds.txt"},
                 [deleted](Console& console) { return deleteReference(*deleted, console); })
        .text("NAME", wadName, deleted->reference.wadName)
        .wad(deleted->wadName);
    addImport(
        menu, "import-sam",
        {"Give the WAD's letter to every sound that its list of samples names; print the samples of no sound",
         "Donner la lettre du WAD aux sons de sa liste de samples ; afficher les samples d'aucun son"},
        WadListKind::Samples);
    addImport(menu, "import-was",
              {"Give the WAD's letter to every sound of the objects that its list names",
               "Donner la lettre du WAD aux sons des objets de sa liste"},
              WadListKind::Objects);
}

} // namespace tavrel
