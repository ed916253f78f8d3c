// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StartUp.h"

#include "backup/ExchangeFile.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/FilledText.h"
#include "base/Folder.h"
#include "base/ProcessLock.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/Titles.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view extendedEditor = "NGLE.EXE";
constexpr std::string_view stockEditor = "WINROOMEDIT.EXE";
constexpr std::string_view companionName = "Tavrel_Files";
constexpr std::string_view usualFolder = R"(C:\Program Files (x86)\Core Design\trle\)";

#ifdef _WIN32
constexpr std::string_view programEnding = ".exe";
#else
constexpr std::string_view programEnding;
#endif

void show(Dialogs& dialogs, MessageIcon icon, const BilingualText& text)
{
    dialogs.show({icon, titles::program, text});
}

// The companion unpacks the working files; the user then starts the program again.
void startCompanion(const StartContext& context)
{
    const std::string name = std::string(companionName) + std::string(programEnding);
    const std::optional<fs::path> inFolder = findFile(context.programFolder, name);
    const fs::path companion = inFolder.value_or(fileIn(system::ownProgram().parent_path(), name));
    if (!context.programs.start(companion, {"--program-folder", displayPath(context.programFolder)})) {
        show(context.dialogs, MessageIcon::Critical,
             BilingualText(
                 "The working files of Tavrel are missing, and their companion could not be started:\n",
                 "Les fichiers de travail de Tavrel manquent et leur programme compagnon n'a pas pu "
                 "être lancé :\n") +
                 displayPath(companion));
    }
}

// What a command that is at work writes is not left over; the next start looks again. Exports wait for
// nobody.
void removeLeftovers(const fs::path& program, const fs::path& soundsFile)
{
    ChangeLocks locks({program, soundsFile}, std::chrono::seconds(0));
    if (!locks.take() && soundsFile.empty()) {
        removeUnfinishedWrites(fileIn(program, changedLinesFolderName));
        removeUnfinishedWrites(fileIn(program, backupsFolderName), Unfinished::OlderThanADay);
    }
}

void sayNoLevelEditor(Dialogs& dialogs)
{
    dialogs.show({MessageIcon::Exclamation,
                  titles::programAborted,
                  {"No level editor program selected", "Pas d'éditeur de niveaux sélectionné."}});
}

bool chooseInto(ProgramSettings& settings, const StartContext& context)
{
    const std::optional<LevelEditorChoice> choice =
        chooseLevelEditor(context.dialogs, nativePath(usualFolder));
    if (!choice) {
        return false;
    }
    settings.drive = choice->drive;
    settings.LevelEditorFolder = choice->folder;
    return true;
}

// Says why the settings could not be kept, unless the warning of the start is about to say it better.
void reportUnlessWarned(const Problem& problem, const StartContext& context, const ProgramSettings& settings)
{
    if (problem && !writabilityWarning(derivePlaces(context.programFolder, settings.LevelEditorFolder))) {
        show(context.dialogs, MessageIcon::Exclamation, problem->text);
    }
}

// The folder may be on a disk that is not connected just now, so the user decides.
bool confirmAnotherFolder(const std::string& folder, Dialogs& dialogs)
{
    const BilingualText text =
        filled({"There is no level editor in this folder:\n{}\nChoose another one?",
                "Il n'y a pas d'éditeur de niveaux dans ce répertoire :\n{}\nEn choisir un autre ?"},
               {utf8FromCodePage(folder)});
    return dialogs.ask({titles::program, text, Buttons::YesNo}) == Answer::Yes;
}

std::optional<StartedSession> firstStart(const StartContext& context)
{
    const std::optional<Language> language = context.chooseLanguage();
    if (!language) {
        return std::nullopt;
    }
    context.languageChosen(*language);
    StartedSession session;
    session.settings.language = *language;
    if (!chooseInto(session.settings, context)) {
        sayNoLevelEditor(context.dialogs);
        return std::nullopt;
    }
    reportUnlessWarned(saveFirstSettings(context.programFolder, session.settings), context, session.settings);
    return session;
}

void storeChoice(const StartContext& context, StartedSession& session)
{
    const Problem problem = session.settingsDamaged
                                ? replaceDamagedSettings(context.programFolder, session.settings)
                                : SaveSettings(context.programFolder, session.settings);
    reportUnlessWarned(problem, context, session.settings);
    session.settingsDamaged = session.settingsDamaged && problem.has_value();
}

std::optional<StartedSession> laterStart(const StartContext& context)
{
    LoadedSettings loaded = LoadSettings(context.programFolder);
    context.languageChosen(loaded.settings.language);
    if (loaded.damage) {
        show(context.dialogs, MessageIcon::Exclamation, loaded.damage->text);
    }
    StartedSession session{std::move(loaded.settings), loaded.damage.has_value()};
    const std::string folder = session.settings.LevelEditorFolder;
    const bool isNamed = nativePath(folder).is_absolute();
    if (!isNamed) {
        session.settingsDamaged = true; // whatever the file is, a copy of it stays
        show(context.dialogs, MessageIcon::Exclamation,
             wrongContent(fileIn(context.programFolder, settingsFileName),
                          {"The settings do not say where the level editor is. Please choose it.",
                           "Les paramètres n'indiquent pas où se trouve l'éditeur de niveaux. Veuillez le "
                           "choisir."})
                 .text);
    } else if (isFolder(derivePlaces(context.programFolder, folder).creator) ||
               !confirmAnotherFolder(folder, context.dialogs)) {
        return session;
    }
    if (chooseInto(session.settings, context)) {
        storeChoice(context, session);
    } else if (!isNamed) { // like a first start
        sayNoLevelEditor(context.dialogs);
        return std::nullopt;
    }
    return session;
}

} // namespace

std::optional<LevelEditorChoice> levelEditorFromProgram(std::string_view programPath)
{
    const bool extended = upperCase(programPath).ends_with(extendedEditor);
    const std::size_t cut = extended ? extendedEditor.size() : stockEditor.size();
    if (programPath.size() <= cut) {
        return std::nullopt;
    }
    const std::string drive = std::string(programPath.substr(0, 2)) + folderSeparator();
    return LevelEditorChoice{
        drive, withTrailingSeparator(std::string(programPath.substr(0, programPath.size() - cut)))};
}

std::optional<LevelEditorChoice> chooseLevelEditor(Dialogs& dialogs, const fs::path& startFolder)
{
    const OpenFileQuestion question{titles::selectLevelEditor,
                                    BilingualText::same("Level editor"),
                                    {"winroomedit.exe", "ngle.exe"},
                                    startFolder};
    while (const std::optional<fs::path> chosen = dialogs.chooseFile(question)) {
        const CodePageText path = codePagePath(fs::path(*chosen).make_preferred());
        if (!path.exact) {
            show(
                dialogs, MessageIcon::Exclamation,
                {"The path of this folder has characters that the level editor's tools cannot read. Move the "
                 "level editor to a folder with a plain name.",
                 "Le chemin de ce répertoire contient des caractères que les outils de l'éditeur de niveaux ne "
                 "peuvent pas lire. Déplacez l'éditeur dans un répertoire au nom simple."});
            continue;
        }
        std::optional<LevelEditorChoice> choice = levelEditorFromProgram(path.bytes);
        if (choice && isFolder(derivePlaces({}, choice->folder).creator)) {
            return choice;
        }
        show(dialogs, MessageIcon::Exclamation,
             {"This is not a level editor folder: it has no [sound\\LevelSFX Creator] folder.\nChoose "
              "[winroomedit.exe] or [ngle.exe].",
              "Ce n'est pas un répertoire d'éditeur de niveaux : il ne contient pas de répertoire "
              "[sound\\LevelSFX Creator].\nChoisissez [winroomedit.exe] ou [ngle.exe]."});
    }
    return std::nullopt;
}

std::optional<StartedSession> startSession(const StartContext& context)
{
    if (!findEntry(context.programFolder, doublesFileName)) {
        startCompanion(context);
        return std::nullopt;
    }
    const fs::path& program = context.programFolder;
    removeLeftovers(program, {});
    const bool isFirstStart = !findEntry(context.programFolder, settingsFileName);
    std::optional<StartedSession> session = isFirstStart ? firstStart(context) : laterStart(context);
    if (session) {
        removeLeftovers(program, fileIn(derivePlaces(program, session->settings.LevelEditorFolder).creator,
                                        soundsFileName));
    }
    return session;
}

std::optional<Message> writabilityWarning(const Places& places)
{
    const fs::path sounds = fileIn(places.creator, soundsFileName);
    const auto canRewrite = [](const fs::path& file) {
        std::error_code ignored;
        return system::isWritableFolder(file.parent_path()) &&
               (!fs::exists(file, ignored) || system::isWritable(file));
    };
    if (!canRewrite(sounds) && !canRewrite(fileIn(places.program, settingsFileName))) {
        return Message{
            MessageIcon::Exclamation, titles::program,
            BilingualText(
                "Neither the settings nor [sounds.txt] can be written: nothing that you change could be "
                "kept.\nMove Tavrel and the level editor to folders that belong to you, or ask for the "
                "right to write in these:\n",
                "Ni les paramètres ni [sounds.txt] ne peuvent être écrits : aucune modification ne "
                "pourrait être conservée.\nDéplacez Tavrel et l'éditeur de niveaux dans des répertoires "
                "qui vous appartiennent, ou demandez le droit d'écrire dans ceux-ci :\n") +
                displayPath(places.program) + "\n" + displayPath(places.creator)};
    }
    const fs::path redirected = system::redirectedCopy(sounds);
    if (!redirected.empty()) {
        return Message{
            MessageIcon::Exclamation, titles::program,
            BilingualText(
                "Windows keeps a private copy of [sounds.txt] for you. Older tools read that copy, not "
                "the file that Tavrel edits:\n",
                "Windows conserve pour vous une copie privée de [sounds.txt]. Les anciens outils lisent "
                "cette copie et non le fichier que Tavrel modifie :\n") +
                displayPath(redirected)};
    }
    return std::nullopt;
}

} // namespace tavrel
