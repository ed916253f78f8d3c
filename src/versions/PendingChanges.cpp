// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/PendingChanges.h"

#include "base/CodePage.h"
#include "base/TextFile.h"
#include "catalogue/LostColon.h"
#include "versions/LineDifference.h"

namespace tavrel {

std::vector<PendingChange> pendingChanges(const SoundCatalogue& catalogue)
{
    std::vector<PendingChange> changes;
    std::vector<bool> stands(catalogue.fileLines().size(), false);
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::optional<std::size_t> line = catalogue.fileLineIndex(k);
        if (line) {
            stands[*line] = true;
        }
        if (!line) {
            changes.push_back({k, std::nullopt, catalogue.currentLine(k)});
        } else if (catalogue.currentLine(k) != catalogue.fileLine(k)) {
            changes.push_back({k, catalogue.fileLine(k), catalogue.currentLine(k)});
        }
    }
    for (std::size_t i = 0; i < stands.size(); ++i) {
        if (!stands[i]) {
            changes.push_back({std::nullopt, catalogue.fileLines()[i].text, std::nullopt});
        }
    }
    return changes;
}

BilingualText describe(const PendingChange& change)
{
    const std::string& line = change.after ? *change.after : change.before.value();
    const std::string name = shownText(line.substr(0, line.find(':')));
    const std::string number = change.number ? std::to_string(*change.number) + ": " : std::string();
    BilingualText what = !change.before  ? BilingualText("new line", "nouvelle ligne")
                         : !change.after ? BilingualText("line taken out", "ligne retirée")
                                         : describeDifference(*change.before, *change.after);
    return BilingualText::same(number + name + ": ") + what;
}

BilingualText listOfPendingChanges(const SoundCatalogue& catalogue)
{
    BilingualText rows;
    for (const PendingChange& change : pendingChanges(catalogue)) {
        rows += rows.empty() ? "" : "\n";
        rows += describe(change);
    }
    return rows;
}

Result<std::vector<DroppedLine>> droppedLines(const SoundCatalogue& catalogue)
{
    const Result<TextFile> file = readTextFile(catalogue.file().path, largestLines);
    if (!file) {
        return file.failure();
    }
    const InstalledNames installed = installedNames(catalogue);
    std::vector<DroppedLine> dropped;
    std::size_t number = 0;
    for (const std::string_view line : file->lines()) {
        ++number;
        if (line.find(':') == std::string_view::npos) {
            dropped.push_back({number, std::string(line), !nameWithoutColon(line, installed).empty()});
        }
    }
    return dropped;
}

} // namespace tavrel
