// SPDX-License-Identifier: GPL-3.0-or-later
// Tavrel_Files: unpacks the working files beside the program. Files that are already there stay. From an
// untouched level editor, it also takes the copies that the program restores.
#include "base/CodePage.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "companion/EmbeddedFiles.h"
#include "generation/ReferenceCopies.h"
#include "settings/ProgramFolder.h"

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
    tavrel::system::writeOutput(text.english + "\n" + text.french + "\n");
}

bool unpackInto(const fs::path& folder)
{
    bool complete = true;
    for (const tavrel::EmbeddedFile& file : tavrel::embeddedFiles()) {
        const auto present = tavrel::lookUp(folder, file.name);
        if (present && *present) {
            continue;
        }
        if (const tavrel::Problem problem = tavrel::createFileSafely(folder / file.name, file.bytes)) {
            say(problem->text);
            complete = false;
        }
    }
    return complete;
}

bool takeCopies(const fs::path& levelEditor, const fs::path& folder)
{
    const tavrel::TakenCopies taken = tavrel::takeReferenceCopies(levelEditor, folder);
    for (const tavrel::BilingualText& text : taken.notes) {
        say(text);
    }
    return taken.complete;
}

struct Options
{
    std::optional<fs::path> programFolder; // without it, the one that Tavrel takes
    std::optional<fs::path> levelEditor;   // what to take copies from
};

// Empty when they cannot be understood.
std::optional<Options> readOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        if (i + 1 == arguments.size()) {
            return std::nullopt;
        }
        const fs::path value = fs::path(std::u8string(arguments[i + 1].begin(), arguments[i + 1].end()));
        if (arguments[i] == "--program-folder") {
            options.programFolder = value;
        } else if (arguments[i] == "--from") {
            options.levelEditor = fs::absolute(value);
        } else {
            return std::nullopt;
        }
    }
    return options;
}

bool unpack(const Options& options)
{
    const fs::path folder =
        options.programFolder ? *options.programFolder : tavrel::usualProgramFolder(tavrel::programPlaces());
    if (!unpackInto(folder)) {
        return false;
    }
    if (options.levelEditor) {
        return takeCopies(*options.levelEditor, folder);
    }
    say({"The working files of Tavrel are in place. Start Tavrel again.",
         "Les fichiers de travail de Tavrel sont en place. Relancez Tavrel."});
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    const tavrel::system::Utf8Console console;
    const std::optional<Options> options = readOptions(tavrel::system::utf8Arguments(argc, argv));
    if (!options) {
        std::cerr << "Usage: Tavrel_Files [--program-folder DIR] [--from LEVEL_EDITOR_FOLDER]\n";
        return EXIT_FAILURE;
    }
    const bool done = unpack(*options);
    if (tavrel::system::consoleClosesWithProgram()) {
        say({"(Enter closes this window.)", "(Entrée ferme cette fenêtre.)"});
        std::cin.get();
    }
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}
