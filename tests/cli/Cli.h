// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/ProgramSettings.h"
#include "support/Files.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace tavrel {

// What the real program did.
struct CliRun
{
    int status = -1;
    std::string output;
    std::string messages;
};

// Runs the real program with these arguments and this standard input.
CliRun runCli(const std::vector<std::string>& arguments, const std::string& input = {});
// A line of the shell, in which $CLI stands for the program.
CliRun runShell(const std::string& line, const std::string& input = {});

// Runs it on a level editor and a program folder of their own.
struct DemoCli : DemoFolders
{
    // With --yes.
    CliRun agreeing(std::vector<std::string> arguments) const;
    CliRun run(std::vector<std::string> arguments) const;

    void changeSettings(const std::function<void(ProgramSettings&)>& change) const;

    // The line of a sound in sounds.txt as it stands on the disk.
    std::string lineOf(std::size_t number) const;
};

// Each object of an output in JSON, one a line.
std::vector<nlohmann::json> objectsOf(const std::string& output);

// A line of the output that starts like this; empty when there is none.
std::string lineStarting(const std::string& output, const std::string& start);

} // namespace tavrel
