// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ProgramFolder.h"

#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "catalogue/CatalogueLoading.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// The program only reads these: they are of the version that is installed.
bool isHelpText(const fs::path& file)
{
    return file.extension() == ".txt";
}

void bring(const fs::path& file, const fs::path& target)
{
    const Result<FileContent> content = readFile(file);
    const Result<FileContent> old = readFile(target);
    if (content && !(old && old->bytes == content->bytes)) {
        static_cast<void>(writeFileSafely(target, content->bytes)); // what is missing later is said then
    }
}

void bringInstalledFiles(const fs::path& from, const fs::path& to)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(from);
    const Result<std::vector<FolderEntry>> present = listFolder(to);
    if (!entries || !present) { // what cannot be seen is not replaced
        return;
    }
    for (const FolderEntry& entry : *entries) {
        const std::optional<FolderEntry> old = findIn(*present, entry.name);
        const bool wanted = isHelpText(entry.path) || !old;
        if (entry.isFile && wanted) {
            bring(entry.path, old ? old->path : to / entry.path.filename());
        }
    }
}

} // namespace

ProgramPlaces programPlaces()
{
    const fs::path own = system::ownProgram().parent_path();
    const fs::path data = system::usersDataFolder();
    return {own, own.parent_path() / "share" / "tavrel", data.empty() ? data : data / "tavrel"};
}

fs::path usualProgramFolder(const ProgramPlaces& places)
{
    const bool installed = findEntry(places.installed, doublesFileName).has_value();
    if (places.users.empty() || (!installed && system::isWritableFolder(places.ownFolder))) {
        return places.ownFolder;
    }
    std::error_code error;
    fs::create_directories(places.users, error);
    if (error) {
        return places.ownFolder;
    }
    bringInstalledFiles(places.installed, places.users);
    return places.users;
}

} // namespace tavrel
