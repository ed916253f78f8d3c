// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Opening.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"

namespace tavrel {

namespace {

std::unique_ptr<Session> load(ProgramSettings settings, ProcessLock lock, Console& console)
{
    auto session = std::make_unique<Session>(console.programFolder, std::move(settings));
    session->holdLock(std::move(lock));
    const Result<std::vector<Failure>> notices = session->load();
    if (!notices) {
        console.dialogs.fail(notices.failure());
        return nullptr;
    }
    if (!notices->empty()) {
        console.dialogs.say(listOf(*notices));
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

std::optional<ProcessLock> lockForChanges(Console& console)
{
    Result<ProcessLock> lock = takeLock(console.programFolder, changesLock, std::chrono::seconds(30));
    if (!lock) {
        console.dialogs.fail(lock.failure());
        return std::nullopt;
    }
    return std::move(*lock);
}

std::unique_ptr<Session> openSession(Console& console)
{
    std::optional<ProgramSettings> settings = openSettings(console);
    return settings ? load(std::move(*settings), nullptr, console) : nullptr;
}

std::unique_ptr<Session> openSessionToChange(Console& console, const std::optional<std::string>& wadName)
{
    std::optional<ProgramSettings> settings = openSettings(console);
    std::optional<ProcessLock> lock = settings ? lockForChanges(console) : std::nullopt;
    std::unique_ptr<Session> session = lock ? load(std::move(*settings), std::move(*lock), console) : nullptr;
    if (session && wadName && session->references().findWad(*wadName) == nullptr) {
        const std::string shown = "[" + utf8FromCodePage(*wadName) + "]";
        console.dialogs.refuse(
            {"No reference is named " + shown + ".", "Aucune référence ne s'appelle " + shown + "."});
        return nullptr;
    }
    return session;
}

bool loadAgain(Session& session, std::vector<LineReadOtherwise> readOtherwise, Console& console)
{
    Result<LoadedSession> loaded =
        loadSession({console.programFolder, session.paths.creator, session.settings.protectedLinesEditable,
                     std::move(readOtherwise)});
    if (!loaded) {
        console.dialogs.fail(loaded.failure());
        return false;
    }
    session.references = std::move(loaded->references);
    session.catalogue = std::move(loaded->catalogue);
    return true;
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

std::optional<CurrentWad> wadWithLetter(const Session& session, const std::string& letter, Console& console)
{
    if (const WadReference* const reference = session.references().findUserLetter(letter)) {
        return currentWad(reference);
    }
    const std::string shown = "[#" + utf8FromCodePage(letter) + "]";
    console.dialogs.refuse({"None of your references has the letter " + shown + ".",
                            "Aucune de vos références n'a la lettre " + shown + "."});
    return std::nullopt;
}

std::optional<CurrentWad> wadNamed(const Session& session, const std::string& name, Console& console)
{
    if (const WadReference* const reference = session.references().findUserWad(name)) {
        return currentWad(reference);
    }
    refuseWadName(name, console);
    return std::nullopt;
}

void refuseWadName(const std::string& name, Console& console)
{
    const std::string shown = "[" + utf8FromCodePage(name) + "]";
    console.dialogs.refuse({"None of your references is named " + shown + ".",
                            "Aucune de vos références ne s'appelle " + shown + "."});
}

ExitStatus apply(Session& session, const std::optional<std::string>& wadName, Console& console)
{
    if (!session.pending()) {
        console.dialogs.say({"No line changes.", "Aucune ligne ne change."});
        return ExitStatus::Done;
    }
    return session.apply(console.dialogs, wadName) ? ExitStatus::Done : ExitStatus::Refused;
}

ExitStatus writeRegister(Session& session, Console& console)
{
    const Problem problem = session.writeRegister();
    return problem ? console.dialogs.fail(*problem) : ExitStatus::Done;
}

} // namespace tavrel
