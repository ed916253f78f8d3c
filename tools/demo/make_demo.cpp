// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoFolder.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cerr
            << "Usage: make_demo DATA TARGET\n"
               "Makes TARGET/trle, a level editor folder, and TARGET/program, a program folder for it.\n";
        return EXIT_FAILURE;
    }
    const std::filesystem::path data = argv[1];
    const std::filesystem::path target = argv[2];
    try {
        tavrel::makeLevelEditorFolder(target / "trle", data, tavrel::DemoSamples::All);
        tavrel::makeProgramFolder(target / "program", data, target / "trle");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
