// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"

#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace tavrel {

namespace {

std::string quoted(const std::string& argument)
{
    std::string result = "'";
    for (const char c : argument) {
        result += c == '\'' ? std::string(R"('\'')") : std::string(1, c);
    }
    return result + "'";
}

} // namespace

CliRun runShell(const std::string& line, const std::string& input)
{
    const TemporaryFolder folder;
    writeBytes(folder / "in", input);
    const std::string at = quoted(folder.path().string()) + "/";
    const std::string command =
        "CLI='" TAVREL_CLI "'; { " + line + "; } <" + at + "in >" + at + "out 2>" + at + "err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readBytes(folder / "out"),
            readBytes(folder / "err")};
}

CliRun runCli(const std::vector<std::string>& arguments, const std::string& input)
{
    std::string line = "\"$CLI\"";
    for (const std::string& argument : arguments) {
        line += " " + quoted(argument);
    }
    return runShell(line, input);
}

CliRun DemoCli::run(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(), {"--program-folder", program.string()});
    return runCli(arguments);
}

CliRun DemoCli::agreeing(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(), "--yes");
    return run(std::move(arguments));
}

void DemoCli::changeSettings(const std::function<void(ProgramSettings&)>& change) const
{
    ProgramSettings settings = LoadSettings(program).settings;
    change(settings);
    static_cast<void>(SaveSettings(program, settings));
}

std::string DemoCli::lineOf(std::size_t number) const
{
    std::istringstream text(readBytes(sounds));
    for (std::string line; std::getline(text, line);) {
        if (line.find(':') != std::string::npos && number-- == 0) {
            line.pop_back();
            return line;
        }
    }
    return {};
}

std::vector<nlohmann::json> objectsOf(const std::string& output)
{
    std::vector<nlohmann::json> objects;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        objects.push_back(nlohmann::json::parse(line));
    }
    return objects;
}

std::string lineStarting(const std::string& output, const std::string& start)
{
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(start)) {
            return line;
        }
    }
    return {};
}

} // namespace tavrel
