// SPDX-License-Identifier: GPL-3.0-or-later
// Tavrel_Files: unpacks the working files beside the program. Files that are already there stay.
#include "base/CodePage.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "companion/EmbeddedFiles.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// The display language is not known before the first start.
void say(const tavrel::BilingualText& text)
{
    std::cout << text.english << '\n' << text.french << '\n' << std::flush;
}

bool unpackInto(const fs::path& folder)
{
    bool complete = true;
    for (const tavrel::EmbeddedFile& file : tavrel::embeddedFiles()) {
        if (tavrel::findEntry(folder, file.name)) {
            continue;
        }
        if (const tavrel::Problem problem = tavrel::writeFileSafely(folder / file.name, file.bytes)) {
            say(problem->text);
            complete = false;
        }
    }
    return complete;
}

// Without the option, the folder of this program.
std::optional<fs::path> programFolder(const std::vector<std::string>& arguments)
{
    if (arguments.size() == 2 && arguments[0] == "--program-folder") {
        return fs::path(std::u8string(arguments[1].begin(), arguments[1].end()));
    }
    if (!arguments.empty()) {
        return std::nullopt;
    }
    return tavrel::system::ownProgram().parent_path();
}

} // namespace

int main(int argc, char* argv[])
{
    tavrel::system::useUtf8Console();
    const std::optional<fs::path> folder = programFolder(tavrel::system::utf8Arguments(argc, argv));
    if (!folder) {
        std::cerr << "Usage: Tavrel_Files [--program-folder DIR]\n";
        return EXIT_FAILURE;
    }
    if (!unpackInto(*folder)) {
#ifdef _WIN32
        std::cin.get(); // the console window would close before anyone could read it
#endif
        return EXIT_FAILURE;
    }
    say({"The working files of Tavrel are in place. Start Tavrel again.",
         "Les fichiers de travail de Tavrel sont en place. Relancez Tavrel."});
    return EXIT_SUCCESS;
}
