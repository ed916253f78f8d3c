// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

using namespace tavrel;

namespace {

// As the help lists them, each with its own.
std::vector<std::string> withSubcommands(const std::string& command)
{
    std::vector<std::string> commands = {command};
    std::istringstream help(runShell("$CLI" + command + " --help").output);
    bool isList = false;
    for (std::string line; std::getline(help, line);) {
        const bool isRow = isList && line.starts_with("  ");
        if (isRow && line[2] != ' ') { // no second row of a description
            std::ranges::move(withSubcommands(command + " " + line.substr(2, line.find(' ', 2) - 2)),
                              std::back_inserter(commands));
        }
        isList = isRow || line == "Commands:";
    }
    return commands;
}

} // namespace

TEST(CommandLine, WrongUsageEndsWithTwo)
{
    struct Case
    {
        std::vector<std::string> arguments;
        const char* english;
        const char* french;
    };
    const Case cases[] = {
        {{}, "A command is missing", "Il manque une commande"},
        {{"line"}, "A command is missing", "Il manque une commande"},
        {{"nonsense"}, "There is no command [nonsense]", "Il n'y a pas de commande [nonsense]"},
        {{"parse", "--nonsense"}, "Unexpected argument: --nonsense", "Argument inattendu : --nonsense"},
        {{"show"}, "Missing argument: N", "Argument manquant : N"},
        {{"show", "5", "6"}, "Unexpected argument: 6", "Argument inattendu : 6"},
        {{"show", "5", "6", "--vol"}, "Unexpected arguments: 6 --vol", "Arguments inattendus : 6 --vol"},
        {{"list", "--letter"}, "The value of --letter is missing", "Il manque la valeur de --letter"},
        {{"set", "1", "--pit", "3", "--vol"},
         "The value of --vol is missing",
         "Il manque la valeur de --vol"},
        {{"set", "1", "--vol", "2", "--vol", "3"},
         "--vol is given more than once",
         "--vol est indiqué plus d'une fois"},
        {{"list", "--letter=a", "--letter=b"}, "--letter is given more than", "--letter est indiqué plus"},
        {{"export", "all", ""}, "file or folder is empty", "est vide"},
        {{"samples", "list", ""}, "file or folder is empty", "est vide"},
        {{"show", "-1"}, "[-1] is not the number of a sound", "[-1] n'est pas un numéro de son"},
        {{"show", ""}, "[] is not the number of a sound", "[] n'est pas un numéro de son"},
        {{"show", "9999999999"}, "is not the number of a sound", "n'est pas un numéro de son"},
        {{"letters", "add", "ab", "5", "6.0"}, "[6.0] is neither the number", "[6.0] n'est ni un numéro"},
        {{"line", "add-letter", "\u4E00"}, "cannot hold", "ne peuvent pas contenir"},
        {{"line", "replace-letter", "ab"}, "Missing argument: NEW", "Argument manquant : NEW"},
        {{"set", "5", "--vol", "100"}, "at most two digits", "deux chiffres au plus"},
        {{"set", "5", "--pit", "1.5"}, "is not a pitch", "n'est pas une hauteur"},
        {{"set", "5", "--flags", "PX"}, "[PX] are not flags", "[PX] ne sont pas des flags"},
        {{"set", "5", "--wad", "../x"}, "cannot be a file's", "ne peut être celui d'un fichier"},
        {{"refs", "add", std::string(26, 'n'), "ab", "T"}, "at most 25", "au plus 25"},
    };
    const DemoFolders folders;
    for (const Case& c : cases) {
        for (const char* const language : {"E", "F"}) {
            std::vector<std::string> arguments = {"--program-folder", folders.program.string(), "--language",
                                                  language};
            arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
            const CliRun run = runCli(arguments);
            EXPECT_EQ(run.status, 2) << run.messages;
            EXPECT_EQ(run.output, "");
            EXPECT_NE(run.messages.find(*language == 'E' ? c.english : c.french), std::string::npos)
                << run.messages;
        }
    }
    EXPECT_EQ(runCli({"--language", "D", "parse"}).status, 2);
}

TEST(CommandLine, HelpIsThereForEveryCommandInBothLanguages)
{
    const std::vector<std::string> commands = withSubcommands("");
    EXPECT_GE(commands.size(), 40U) << "the list of commands looks otherwise now";
    for (const std::string& command : commands) {
        const std::string name = "tavrel-cli" + command;
        const CliRun english = runShell("$CLI" + command + " --help");
        EXPECT_EQ(english.status, 0) << name;
        EXPECT_NE(english.output.find("Usage: " + name + " "), std::string::npos) << english.output;
        EXPECT_EQ(english.messages, "");
        const CliRun french = runShell("$CLI --language=F" + command + " --help");
        EXPECT_EQ(french.status, 0) << name;
        EXPECT_NE(french.output.find("Afficher cette aide"), std::string::npos) << french.output;
        EXPECT_NE(french.output.substr(0, french.output.find('\n')),
                  english.output.substr(0, english.output.find('\n')));
    }
    EXPECT_EQ(runCli({"--version"}).output.substr(0, 11), "tavrel-cli ");
}

TEST(CommandLine, SpeaksTheLanguageOfTheSettings)
{
    const DemoCli cli;
    cli.changeSettings([](ProgramSettings& settings) { settings.language = Language::French; });
    EXPECT_NE(cli.run({"show", "999"}).messages.find("Il n'y a pas de son 999"), std::string::npos);
    EXPECT_NE(cli.run({"show", "999", "--language=E"}).messages.find("There is no sound 999"),
              std::string::npos);
}

TEST(CommandLine, AFileThatCannotBeReadEndsWithThree)
{
    const DemoFolders folders;
    const auto statusOf = [&](const std::string& command) {
        const CliRun run = runCli({"--program-folder", folders.program.string(), command});
        EXPECT_NE(run.messages, "");
        EXPECT_EQ(run.output, "");
        return run.status;
    };
    EXPECT_EQ(runCli({"--program-folder", (folders.root / "missing").string(), "list"}).status, 3);
    std::filesystem::remove(folders.program / "Tavrel.tow");
    EXPECT_EQ(statusOf("list"), 3);
    std::filesystem::copy(dataFolder() / "Tavrel.tow", folders.program / "Tavrel.tow");
    std::filesystem::remove(folders.sounds);
    EXPECT_EQ(statusOf("list"), 3);
    writeBytes(folders.program / "Tavrel.par", "\"C:\\\"\r\n\"relative\"\r\n");
    EXPECT_EQ(statusOf("list"), 3);
    std::filesystem::remove(folders.program / "Tavrel.par");
    EXPECT_EQ(statusOf("list"), 3);
}

// `script` gives the program a terminal; what it shows ends up in the output.
TEST(CommandLine, AsksAtATerminal)
{
    struct Case
    {
        const char* typed;
        int status;
    };
    for (const Case& c : {Case{"n\\n", 1},
                          {"ok\\nn\\n", 1},
                          {"y\\nx\\nno\\n", 1},
                          {"\\004", 1},
                          {"y\\ny\\n", 0},
                          {"y\\nmaybe\\nOUI\\n", 0}}) {
        SCOPED_TRACE(c.typed);
        const DemoCli cli;
        const std::string before = readBytes(cli.sounds);
        const std::string command = "$CLI --program-folder '" + cli.program.string() + "' set 5 --vol 11";
        const CliRun run =
            runShell("printf '" + std::string(c.typed) + "' | script -qec \"" + command + "\" /dev/null");
        EXPECT_NE(run.output.find("[y/n]"), std::string::npos) << run.output;
        EXPECT_EQ(run.status, c.status) << run.output;
        EXPECT_EQ(readBytes(cli.sounds) == before, c.status == 1);
    }
}
