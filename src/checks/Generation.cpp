// SPDX-License-Identifier: GPL-3.0-or-later
// What the level editor's tool has made, and whether it is there at all.
#include "base/Folder.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

namespace fs = std::filesystem;

void checks::resultsOld(CheckRun& run)
{
    const CurrentWad& wad = run.subject().wad;
    std::error_code error;
    const fs::file_time_type written = fs::last_write_time(run.catalogue().file().path, error);
    if (wad.wadName.empty() || error) {
        return;
    }
    std::string old;
    for (const char* const ending : {".sam", ".sfx"}) {
        const std::string name = wad.wadName + ending;
        const std::optional<fs::path> file = findFile(run.subject().folders.wads, name);
        const fs::file_time_type made = file ? fs::last_write_time(*file, error) : fs::file_time_type();
        if (file && !error && made < written) {
            old += (old.empty() ? "" : " ") + bracketed(name);
        }
    }
    if (!old.empty()) {
        Finding& finding = run.add("results-old", Severity::Note,
                                   {"Older than sounds.txt: " + old + ". Generate them again.",
                                    "Plus anciens que sounds.txt : " + old + ". À générer de nouveau."});
        finding.wadName = wad.wadName;
    }
}

void checks::toolMissing(CheckRun& run)
{
    constexpr std::string_view tool = "pcwadsfx.exe";
    if (findFile(run.subject().folders.creator, tool)) {
        return;
    }
    Finding& finding =
        run.add("tool-missing", Severity::Error,
                BilingualText(bracketed(tool) + ", the tool that makes the sound files, is not in ",
                              bracketed(tool) + ", l'outil qui crée les fichiers de sons, n'est pas dans ") +
                    displayPath(run.subject().folders.creator / ""));
    finding.file = tool;
}

} // namespace tavrel
