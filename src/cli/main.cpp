// SPDX-License-Identifier: GPL-3.0-or-later
// tavrel-cli: the commands of Tavrel for scripts.
#include "base/System.h"
#include "cli/CommandLine.h"

int main(int argc, char* argv[])
{
    const tavrel::system::Utf8Console console;
    tavrel::system::surviveFailedWrites();
    return static_cast<int>(tavrel::runCommandLine(tavrel::system::utf8Arguments(argc, argv)));
}
