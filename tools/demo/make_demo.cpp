// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/System.h"
#include "demo/DemoFolder.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

// Where the stand-in for the level editor's tool was built, the demo folder can generate.
void addTool(const std::filesystem::path& levelEditor)
{
    constexpr const char* name = "pcwadsfx.exe";
    const std::filesystem::path tool = tavrel::system::ownProgram().parent_path() / name;
    if (std::filesystem::exists(tool)) {
        const std::filesystem::path placeholder = levelEditor / "sound" / "LevelSFX Creator" / name;
        std::filesystem::remove(placeholder); // the library of mingw-w64 overwrites nothing
        std::filesystem::copy_file(tool, placeholder);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const std::vector<std::string> arguments = tavrel::system::utf8Arguments(argc, argv);
    if (arguments.size() != 2) {
        std::cerr
            << "Usage: make_demo DATA TARGET\n"
               "Makes TARGET/trle, a level editor folder, and TARGET/program, a program folder for it.\n";
        return EXIT_FAILURE;
    }
    const std::filesystem::path data = std::u8string(arguments[0].begin(), arguments[0].end());
    const std::filesystem::path target = std::u8string(arguments[1].begin(), arguments[1].end());
    try {
        tavrel::makeLevelEditorFolder(target / "trle", data, tavrel::DemoSamples::All);
        addTool(target / "trle");
        tavrel::makeProgramFolder(target / "program", data, target / "trle");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
