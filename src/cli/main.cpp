// SPDX-License-Identifier: GPL-3.0-or-later
// tavrel-cli: the commands of Tavrel for scripts.
#include "base/System.h"
#include "cli/CommandLine.h"

#include <exception>
#include <iostream>

int main(int argc, char* argv[])
{
    const tavrel::system::Utf8Console console;
    tavrel::system::surviveFailedWrites();
    try {
        return static_cast<int>(tavrel::runCommandLine(tavrel::system::utf8Arguments(argc, argv)));
    } catch (const std::exception& error) { // a fault of the program, or no memory
        std::cerr << "tavrel-cli: Unexpected error / Erreur inattendue: " << error.what() << "\n";
        return static_cast<int>(tavrel::ExitStatus::FileFailure);
    }
}
