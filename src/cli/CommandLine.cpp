// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "cli/Commands.h"
#include "settings/ProgramFolder.h"
#include "settings/ProgramSettings.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

struct GlobalArguments
{
    std::optional<fs::path> programFolder;
    std::optional<std::string> language;
    bool agreesToAll = false;
    bool isQuiet = false;
};

std::optional<BilingualText> checkLanguage(std::string& argument)
{
    if (argument == "E" || argument == "F") {
        return std::nullopt;
    }
    return BilingualText("The language is E or F", "La langue est E ou F");
}

// "--vol=8" as two arguments, so that "--vol=" has an empty one and does not take the next.
std::vector<std::string> apart(const std::vector<std::string>& arguments)
{
    std::vector<std::string> result;
    bool optionsAreOver = false;
    for (const std::string& argument : arguments) {
        optionsAreOver = optionsAreOver || argument == "--";
        const std::size_t sign = argument.find('=');
        if (!optionsAreOver && argument.starts_with("--") && sign != std::string::npos) {
            result.push_back(argument.substr(0, sign));
            result.push_back(argument.substr(sign + 1));
        } else {
            result.push_back(argument);
        }
    }
    return result;
}

// The value of an option before the library has read the command line, whose words need the language.
std::optional<std::string> lookAhead(const std::vector<std::string>& arguments, const std::string& option)
{
    const auto end = std::ranges::find(arguments, "--");
    const auto found = std::find(arguments.begin(), end, option);
    return found == end || found + 1 == end ? std::nullopt : std::optional(found[1]);
}

fs::path programFolderOf(const std::vector<std::string>& arguments)
{
    const std::optional<std::string> folder = lookAhead(arguments, "--program-folder");
    std::error_code ignored;
    return folder ? fs::absolute(std::u8string(folder->begin(), folder->end()), ignored)
                  : usualProgramFolder(programPlaces());
}

// The one that was asked for, else the user's, else English.
Language languageOf(const std::vector<std::string>& arguments, const fs::path& programFolder)
{
    if (const std::optional<std::string> asked = lookAhead(arguments, "--language")) {
        return *asked == "F" ? Language::French : Language::English;
    }
    return LoadSettings(programFolder).settings.language;
}

void nameTheParts(CLI::App& app, Language language)
{
    const std::pair<const char*, BilingualText> labels[] = {
        {"Positionals", {"Arguments", "Arguments"}},
        {"SUBCOMMAND", {"COMMAND", "COMMANDE"}},
        {"SUBCOMMANDS", {"COMMAND", "COMMANDE"}},
        {"REQUIRED", {}},
    };
    for (const auto& [label, text] : labels) {
        app.get_formatter()->label(label, text.in(language));
    }
}

void addGlobalArguments(CLI::App& app, Language language, GlobalArguments& arguments)
{
    CommandEntry(app, language)
        .optionalPath(
            "--program-folder",
            {"Where the settings and working files are; usually the program's own folder or one of the user's",
             "Où se trouvent les paramètres et les fichiers de travail ; d'habitude le répertoire du "
             "programme ou un répertoire de l'utilisateur"},
            arguments.programFolder)
        .optionalText("--language",
                      {"E or F; usually the one of the settings", "E ou F ; d'habitude celle des paramètres"},
                      arguments.language, checkLanguage)
        .flag(
            "--yes",
            {"Agree to all questions but those that need a person, like overwriting what another program has "
             "changed meanwhile",
             "Répondre oui à toutes les questions, sauf à celles qui demandent quelqu'un, comme écraser ce "
             "qu'un autre programme a modifié entre-temps"},
            arguments.agreesToAll)
        .flag("--quiet",
              {"Do not show the questions that --yes answers",
               "Ne pas afficher les questions auxquelles --yes répond"},
              arguments.isQuiet);
}

void describe(CLI::App& app, Language language)
{
    const auto in = [language](const BilingualText& text) { return text.in(language); };
    app.name("tavrel-cli");
    app.description(in({"Edits the sound catalogue of the TRLE level editor from scripts.",
                        "Modifie le catalogue de sons de l'éditeur de niveaux TRLE depuis des scripts."}));
    app.set_help_flag("-h,--help", in({"Print this help", "Afficher cette aide"}));
    app.set_version_flag("--version", "tavrel-cli " TAVREL_VERSION,
                         in({"Print the version", "Afficher la version"}));
    app.footer(in(
        {"The options of tavrel-cli itself, --yes for one, may stand behind any command.\n"
         "Exit status: 0 done; 1 not done, or the command's answer is no; 2 wrong usage; 3 a file could not "
         "be read or written; 4 done, but look at the messages.",
         "Les options de tavrel-cli, --yes par exemple, peuvent suivre toute commande.\n"
         "Code de retour : 0 fait ; 1 rien n'a été fait, ou la réponse est non ; 2 mauvais usage ; 3 un "
         "fichier n'a pas pu être lu ou écrit ; 4 fait, mais lisez les messages."}));
    app.allow_windows_style_options(false); // a folder may start with "/"
    app.fallthrough();                      // --yes may stand behind the command
    app.require_subcommand(1);
    nameTheParts(app, language);
}

// Of the commands that were named, and of tavrel-cli itself.
std::vector<const CLI::Option*> optionsOf(const CLI::App& app)
{
    std::vector<const CLI::Option*> options = app.get_options();
    for (const CLI::App* const command : app.get_subcommands()) {
        const std::vector<const CLI::Option*> further = optionsOf(*command);
        options.insert(options.end(), further.begin(), further.end());
    }
    return options;
}

bool lacksCommand(const CLI::App& app)
{
    const std::vector<CLI::App*> named = app.get_subcommands();
    return named.empty() ? app.get_require_subcommand_min() > 0 : lacksCommand(*named.front());
}

BilingualText commandMissing(const std::vector<std::string>& unknown)
{
    if (unknown.empty()) {
        return {"A command is missing", "Il manque une commande"};
    }
    const std::string name = "[" + unknown.front() + "]";
    return {"There is no command " + name, "Il n'y a pas de commande " + name};
}

BilingualText unexpected(const std::vector<std::string>& arguments)
{
    std::string list;
    for (const std::string& argument : arguments) {
        list += " " + argument;
    }
    return arguments.size() == 1
               ? BilingualText("Unexpected argument:" + list, "Argument inattendu :" + list)
               : BilingualText("Unexpected arguments:" + list, "Arguments inattendus :" + list);
}

BilingualText argumentMissing(const CLI::App& app)
{
    for (const CLI::Option* const option : optionsOf(app)) {
        if (option->get_required() && option->empty()) {
            const std::string name = option->get_name();
            return {"Missing argument: " + name, "Argument manquant : " + name};
        }
    }
    return {"An argument is missing", "Il manque un argument"};
}

// An option has one value, whatever follows it; only the last argument can be one without.
BilingualText wrongValueCount(const CLI::App& app, const std::vector<std::string>& arguments)
{
    for (const CLI::Option* const option : optionsOf(app)) {
        if (static_cast<int>(option->results().size()) > option->get_expected_max()) {
            const std::string name = option->get_name();
            return {name + " is given more than once", name + " est indiqué plus d'une fois"};
        }
    }
    const std::string& last = arguments.back();
    return {"The value of " + last + " is missing", "Il manque la valeur de " + last};
}

BilingualText usageText(const CLI::App& app, const CLI::ParseError& error,
                        const std::vector<std::string>& arguments)
{
    const std::vector<std::string> unknown = app.remaining(true);
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return unexpected(unknown);
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return wrongValueCount(app, arguments);
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return lacksCommand(app) ? commandMissing(unknown) : argumentMissing(app);
    }
    return BilingualText::same(error.what()); // what our own checks say is in the language already
}

ExitStatus refuseUsage(const CLI::App& app, const CLI::ParseError& error,
                       const std::vector<std::string>& arguments, ConsoleDialogs& dialogs)
{
    dialogs.say(usageText(app, error, arguments) +
                BilingualText("\nThe option --help tells how a command is used.",
                              "\nL'option --help indique comment utiliser une commande."));
    return ExitStatus::WrongUsage;
}

// Reads the command line into `chosen`; a status when there is nothing to run.
std::optional<ExitStatus> read(CLI::App& app, const std::vector<std::string>& arguments,
                               ConsoleDialogs& dialogs, Output& output)
{
    try {
        std::vector<std::string> lastFirst(arguments.rbegin(), arguments.rend());
        app.parse(std::move(lastFirst));
    } catch (const CLI::CallForHelp&) {
        output.pending() += app.help();
        return ExitStatus::Done;
    } catch (const CLI::CallForVersion& version) {
        output.writeLine(version.what());
        return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
        return refuseUsage(app, error, arguments, dialogs);
    }
    return std::nullopt;
}

// A command that has done its work may still have refused a part of it.
ExitStatus overall(ExitStatus ofCommand, ExitStatus ofMessages)
{
    const bool isDone = ofCommand == ExitStatus::Done || ofCommand == ExitStatus::DoneWithMessages;
    return isDone && ofMessages == ExitStatus::Refused ? ExitStatus::DoneWithMessages
                                                       : graver(ofCommand, ofMessages);
}

} // namespace

ExitStatus runCommandLine(const std::vector<std::string>& given)
{
    const std::vector<std::string> arguments = apart(given);
    const fs::path programFolder = programFolderOf(arguments);
    const Language language = languageOf(arguments, programFolder);
    Output output;
    ConsoleDialogs dialogs(language, output);
    CLI::App app;
    GlobalArguments global;
    Command chosen;
    describe(app, language);
    addGlobalArguments(app, language, global);
    const Menu menu(app, language, chosen);
    addLineCommands(menu);
    addCatalogueCommands(menu);
    addLetterCommands(menu);
    addReferenceCommands(menu);
    addSampleCommands(menu);
    addGenerationCommands(menu);
    addExchangeCommands(menu);
    addVersionCommands(menu);
    addCheckCommands(menu);

    std::optional<ExitStatus> status = read(app, arguments, dialogs, output);
    if (!status) {
        dialogs.agreeToAll(global.agreesToAll);
        dialogs.keepQuiet(global.isQuiet);
        Console console{programFolder, language, dialogs, output};
        status = chosen(console);
    }
    output.flush();
    if (const std::error_code error = output.failure()) {
        dialogs.fail(cannotWrite("stdout", error));
    }
    return overall(*status, dialogs.status());
}

} // namespace tavrel
