// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Opening.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FolderReplacement.h"
#include "versions/PendingChanges.h"

#include <algorithm>

namespace tavrel {

namespace {

std::unique_ptr<Session> load(ProgramSettings settings, std::unique_ptr<ChangeLocks> locks, Console& console)
{
    auto session = std::make_unique<Session>(console.programFolder, std::move(settings));
    session->holdLocks(std::move(locks));
    const Result<std::vector<Failure>> notices = session->load();
    if (!notices) {
        console.dialogs.fail(notices.failure());
        return nullptr;
    }
    for (const std::vector<Failure>& told : {session->registerNotices(), *notices}) {
        if (!told.empty()) {
            console.dialogs.say(listOf(told));
        }
    }
    return session;
}

} // namespace

std::optional<ProgramSettings> openSettings(Console& console)
{
    if (!findFile(console.programFolder, settingsFileName)) {
        console.dialogs.fail({fileMissing(console.programFolder, settingsFileName).text +
                              BilingualText("\nStart Tavrel once, or name its folder with --program-folder.",
                                            "\nLancez Tavrel une fois, ou indiquez son répertoire avec "
                                            "--program-folder.")});
        return std::nullopt;
    }
    LoadedSettings loaded = LoadSettings(console.programFolder);
    if (loaded.damage) {
        console.dialogs.say(loaded.damage->text);
    }
    if (!nativePath(loaded.settings.LevelEditorFolder).is_absolute()) {
        console.dialogs.fail(
            wrongContent(fileIn(console.programFolder, settingsFileName),
                         {"The settings do not say where the level editor is.",
                          "Les paramètres n'indiquent pas où se trouve l'éditeur de niveaux."}));
        return std::nullopt;
    }
    return std::move(loaded.settings);
}

std::unique_ptr<ChangeLocks> lockForChanges(Console& console, const Places& places, SamplesToo samples)
{
    const std::filesystem::path none;
    const LockedPlaces locked{console.programFolder, fileIn(places.creator, soundsFileName),
                              samples == SamplesToo::Yes ? places.samples : none};
    auto locks = std::make_unique<ChangeLocks>(locked, std::chrono::seconds(30));
    if (const Problem problem = locks->take()) {
        console.dialogs.fail(*problem);
        return nullptr;
    }
    if (const std::optional<BilingualText> notice = locks->notice()) {
        console.dialogs.say(*notice);
    }
    return locks;
}

std::unique_ptr<Session> openSession(Console& console)
{
    std::optional<ProgramSettings> settings = openSettings(console);
    return settings ? load(std::move(*settings), nullptr, console) : nullptr;
}

std::unique_ptr<Session> openSessionToChange(Console& console, const std::optional<std::string>& wadName,
                                             SamplesToo samples)
{
    std::optional<ProgramSettings> settings = openSettings(console);
    std::unique_ptr<ChangeLocks> locks =
        settings ? lockForChanges(console, derivePlaces(console.programFolder, settings->LevelEditorFolder),
                                  samples)
                 : nullptr;
    std::unique_ptr<Session> session =
        locks ? load(std::move(*settings), std::move(locks), console) : nullptr;
    if (session && wadName && referenceNamed(session->references(), *wadName) == nullptr) {
        const std::string shown = bracketed(*wadName);
        console.dialogs.refuse(
            {"No reference is named " + shown + ".", "Aucune référence ne s'appelle " + shown + "."});
        return nullptr;
    }
    return session;
}

void tellCutRestores(const Places& places, Console& console)
{
    for (const std::filesystem::path& folder : {places.samples, places.wads}) {
        if (const Problem problem = cutShortReplacement(folder)) {
            console.dialogs.say(problem->text);
        }
    }
}

bool loadAgain(Session& session, std::vector<LineReadOtherwise> readOtherwise, Console& console)
{
    const Result<std::vector<Failure>> loaded = session.load(std::move(readOtherwise));
    if (!loaded) {
        console.dialogs.fail(loaded.failure());
    }
    return static_cast<bool>(loaded);
}

bool hasSound(const Session& session, std::size_t number, Console& console)
{
    if (number < session.catalogue().size()) {
        return true;
    }
    const std::string asked = std::to_string(number);
    const std::string count = std::to_string(session.catalogue().size());
    console.dialogs.refuse(
        {"There is no sound " + asked + ": the sounds are numbered from 0, and there are " + count + ".",
         "Il n'y a pas de son " + asked + " : les sons sont numérotés à partir de 0, et il y en a " + count +
             "."});
    return false;
}

namespace {

const WadReference* namedFrom(const ReferenceRegister& references, std::size_t first,
                              std::string_view wadName)
{
    const auto begin = references.all().begin() + static_cast<std::ptrdiff_t>(first);
    const auto found = std::find_if(begin, references.all().end(), [&](const WadReference& reference) {
        return sameName(reference.wadName, wadName);
    });
    return found == references.all().end() ? nullptr : &*found;
}

} // namespace

const WadReference* referenceNamed(const ReferenceRegister& references, std::string_view wadName)
{
    const WadReference* const exact = references.findWad(wadName);
    return exact != nullptr ? exact : namedFrom(references, 0, wadName);
}

const WadReference* userReferenceNamed(const ReferenceRegister& references, std::string_view wadName)
{
    const WadReference* const exact = references.findUserWad(wadName);
    return exact != nullptr ? exact : namedFrom(references, references.userBegin(), wadName);
}

std::optional<CurrentWad> wadWithLetter(const Session& session, const std::string& letter, Console& console)
{
    if (const WadReference* const reference = session.references().findUserLetter(letter)) {
        return currentWad(reference);
    }
    const std::string shown = "[#" + shownText(letter) + "]";
    console.dialogs.refuse({"None of your references has the letter " + shown + ".",
                            "Aucune de vos références n'a la lettre " + shown + "."});
    return std::nullopt;
}

std::optional<CurrentWad> wadNamed(const Session& session, const std::string& name, Console& console)
{
    if (const WadReference* const reference = userReferenceNamed(session.references(), name)) {
        return currentWad(reference);
    }
    refuseWadName(name, console);
    return std::nullopt;
}

void refuseWadName(const std::string& name, Console& console)
{
    const std::string shown = bracketed(name);
    console.dialogs.refuse({"None of your references is named " + shown + ".",
                            "Aucune de vos références ne s'appelle " + shown + "."});
}

ExitStatus apply(Session& session, const std::optional<std::string>& asked, Console& console)
{
    const WadReference* const reference = asked ? referenceNamed(session.references(), *asked) : nullptr;
    const std::optional<std::string> wadName = reference != nullptr ? reference->wadName : asked;
    if (!session.pending()) {
        const Result<bool> completed = session.completeChangedLines(wadName);
        if (!completed) {
            return console.dialogs.fail(completed.failure());
        }
        console.dialogs.say(
            *completed
                ? BilingualText("No line changes. The record of the changed lines was missing and is "
                                "written.",
                                "Aucune ligne ne change. L'enregistrement des lignes modifiées manquait "
                                "et vient d'être écrit.")
                : BilingualText("No line changes.", "Aucune ligne ne change."));
        return ExitStatus::Done;
    }
    for (const PendingChange& change : pendingChanges(session.catalogue())) {
        console.dialogs.say(describe(change));
    }
    if (!session.apply(console.dialogs, wadName)) {
        return ExitStatus::Refused;
    }
    if (!wadName && session.references().isUserFileProtected()) {
        const std::string wad = bracketed(session.settings().lastWad);
        return console.dialogs.fail(
            {{"The references could not be read. [sounds.txt] is written, but not the record of the changed lines "
              "of " +
                  wad + ".",
              "Les références n'ont pas pu être lues. [sounds.txt] est écrit, mais pas l'enregistrement des lignes "
              "modifiées de " +
                  wad + "."}});
    }
    return ExitStatus::Done;
}

ExitStatus writeRegister(Session& session, Console& console)
{
    const Problem problem = session.writeRegister();
    return problem ? console.dialogs.fail(*problem) : ExitStatus::Done;
}

} // namespace tavrel
