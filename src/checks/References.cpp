// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own references against each other, the lines and the WAD files.
#include "base/Folder.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

#include <map>
#include <set>

namespace tavrel {

namespace {

// "[oasis] [tomb]"
std::string namesOf(const std::vector<const WadReference*>& references)
{
    std::string names;
    for (const WadReference* const reference : references) {
        names += (names.empty() ? "" : " ") + bracketed(reference->wadName);
    }
    return names;
}

using Groups = std::map<std::string, std::vector<const WadReference*>>;

template <typename Key>
Groups groupsOfSeveral(const CheckRun& run, Key key)
{
    Groups groups;
    for (const WadReference& reference : run.userReferences()) {
        groups[key(reference)].push_back(&reference);
    }
    std::erase_if(groups, [](const auto& group) { return group.second.size() < 2; });
    return groups;
}

std::string shownLetter(const std::string& letter)
{
    return "#" + utf8FromCodePage(letter);
}

} // namespace

void checks::referenceLetterTwice(CheckRun& run)
{
    for (const auto& [letter, references] :
         groupsOfSeveral(run, [](const WadReference& reference) { return reference.letter; })) {
        run.add(
            "reference-letter-twice", Severity::Error,
            {shownLetter(letter) + " is the letter of several references: " + namesOf(references) + ".",
             shownLetter(letter) + " est la lettre de plusieurs références : " + namesOf(references) + "."});
    }
}

void checks::referenceWadTwice(CheckRun& run)
{
    for (const auto& [wadName, references] :
         groupsOfSeveral(run, [](const WadReference& reference) { return upperCase(reference.wadName); })) {
        std::string letters;
        for (const WadReference* const reference : references) {
            letters += " " + shownLetter(reference->letter);
        }
        const std::string name = bracketed(references.front()->wadName);
        Finding& finding = run.add("reference-wad-twice", Severity::Error,
                                   {name + " has several references:" + letters + ".",
                                    name + " a plusieurs références :" + letters + "."});
        finding.wadName = references.front()->wadName;
    }
}

void checks::letterInsideLetter(CheckRun& run)
{
    std::set<std::pair<std::string, std::string>> told;
    for (const WadReference& inner : run.userReferences()) {
        for (const WadReference& outer : run.userReferences()) {
            if (inner.letter.empty() || inner.letter == outer.letter ||
                !outer.letter.starts_with(inner.letter) || !told.emplace(inner.letter, outer.letter).second) {
                continue;
            }
            run.add("letter-inside-letter", Severity::Warning,
                    {shownLetter(inner.letter) + " stands inside " + shownLetter(outer.letter) +
                         ": what erases the one hits the other.",
                     shownLetter(inner.letter) + " est contenue dans " + shownLetter(outer.letter) +
                         " : ce qui efface l'une touche l'autre."});
        }
    }
}

void checks::wadMissing(CheckRun& run)
{
    if (run.userReferences().empty()) {
        return;
    }
    const Result<FolderIndex> folder = FolderIndex::of(run.subject().folders.wads);
    if (!folder) {
        run.note(folder.failure());
        return;
    }
    for (const WadReference& reference : run.userReferences()) {
        const std::string file = reference.wadName + ".wad";
        if (const FolderEntry* const entry = folder->find(file); entry == nullptr || !entry->isFile) {
            Finding& finding = run.add("wad-missing", Severity::Note,
                                       {bracketed(file) + " is not in the folder of the WADs.",
                                        bracketed(file) + " n'est pas dans le répertoire des WAD."});
            finding.wadName = reference.wadName;
            finding.file = file;
        }
    }
}

void checks::referenceUnused(CheckRun& run)
{
    std::set<std::string_view> used;
    run.forEachSound(
        [&used](const LineReading& reading) { used.insert(reading.letters.begin(), reading.letters.end()); });
    for (const WadReference& reference : run.userReferences()) {
        if (used.contains(reference.letter)) {
            continue;
        }
        Finding& finding = run.add("reference-unused", Severity::Note,
                                   {"No line has " + shownLetter(reference.letter) + ", the letter of " +
                                        bracketed(reference.wadName) + ".",
                                    "Aucune ligne n'a " + shownLetter(reference.letter) + ", la lettre de " +
                                        bracketed(reference.wadName) + "."});
        finding.wadName = reference.wadName;
    }
}

} // namespace tavrel
