// SPDX-License-Identifier: GPL-3.0-or-later
// What the level editor has written beside a WAD against the lines.
#include "base/Folder.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"
#include "references/LineLetters.h"
#include "references/WadLists.h"
#include "samples/SamplesFolder.h"

#include <set>
#include <unordered_set>

namespace tavrel {

namespace {

// Calls for each of the user's WADs that has such a list, with each of its names once.
template <typename Look>
void forEachListedName(CheckRun& run, WadListKind kind, Look look)
{
    if (run.userReferences().empty()) {
        return;
    }
    const Result<FolderIndex> folder = FolderIndex::of(run.subject().folders.wads);
    if (!folder) {
        return; // told already
    }
    for (const WadReference& reference : run.userReferences()) {
        if (folder->find(reference.wadName + std::string(endingOf(kind))) == nullptr) {
            continue;
        }
        const Result<WadList> list = readWadList(run.subject().folders.wads, reference.wadName, kind);
        if (!list) {
            run.note(list.failure());
            continue;
        }
        std::set<std::string_view> seen;
        for (const std::string& name : list->names) {
            if (seen.insert(name).second) {
                look(reference, name);
            }
        }
    }
}

bool carries(const LineReading& reading, const std::string& letter)
{
    return std::ranges::any_of(reading.letters, [&letter](const std::string& present) {
        return present == letter || present == "g";
    });
}

} // namespace

void checks::listSample(CheckRun& run)
{
    std::unordered_set<std::string> onLines;
    run.forEachSound([&onLines](const LineReading& reading) {
        for (const std::string& sample : reading.samples) {
            onLines.insert(upperCase(sample));
        }
    });
    forEachListedName(run, WadListKind::Samples, [&](const WadReference& wad, const std::string& sample) {
        if (onLines.contains(upperCase(sample))) {
            return;
        }
        Finding& finding = run.add(
            "list-sample", Severity::Warning,
            {bracketed(wad.wadName + ".sam") + " names " + bracketed(sample) + ", which no line has.",
             bracketed(wad.wadName + ".sam") + " nomme " + bracketed(sample) + ", qu'aucune ligne n'a."});
        finding.wadName = wad.wadName;
        finding.file = sampleFileName(sample);
    });
}

void checks::listObject(CheckRun& run)
{
    forEachListedName(run, WadListKind::Objects, [&run](const WadReference& wad, const std::string& object) {
        std::vector<std::size_t> lacking;
        for (const std::size_t sound : soundsOfListedObject(run.catalogue(), object)) {
            const LineReading& reading = run.lines()[sound];
            if (!reading.isComment && !reading.samples.empty() && !carries(reading, wad.letter) &&
                withLetter(std::string(reading.line), wad.letter) != reading.line) {
                lacking.push_back(sound);
            }
        }
        if (lacking.empty()) {
            return;
        }
        const std::string count = std::to_string(lacking.size());
        const std::string letter = "#" + utf8FromCodePage(wad.letter);
        const bool isOne = lacking.size() == 1;
        Finding& finding = run.add(
            "list-object", Severity::Warning,
            {bracketed(wad.wadName + ".was") + " has " + bracketed(object) + ", but " +
                 (isOne ? "one of its sounds lacks " : count + " of its sounds lack ") + letter + ".",
             bracketed(wad.wadName + ".was") + " contient " + bracketed(object) + ", mais " +
                 (isOne ? "un de ses sons n'a pas " : count + " de ses sons n'ont pas ") + letter + "."});
        finding.sounds = lacking;
        finding.wadName = wad.wadName;
        std::erase_if(lacking, [&run](std::size_t sound) { return run.catalogue().isProtected(sound); });
        if (lacking.empty()) {
            return;
        }
        finding.fix =
            Fix{{"Give " + letter, "Donner " + letter}, [lacking, plain = wad.letter](LineDraft& draft) {
                    for (const std::size_t sound : lacking) {
                        if (auto line = withLetter(draft.line(sound), plain)) {
                            draft.set(sound, std::move(*line));
                        }
                    }
                }};
    });
}

} // namespace tavrel
