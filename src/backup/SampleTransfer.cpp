// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SampleTransfer.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

fs::path withEnding(fs::path folder, const std::string& ending)
{
    return folder += ending;
}

// Something stands there, be it a link that leads nowhere.
bool isTaken(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

// For certain: what cannot be looked at may be there.
bool isMissing(const fs::path& path)
{
    std::error_code ignored;
    return fs::symlink_status(path, ignored).type() == fs::file_type::not_found;
}

bool isTrueFolder(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_directory(path, ignored) && !system::isLink(path);
}

// Where a samples folder waits while the new one takes its place. A further one has a number.
std::string oldEnding(std::size_t number)
{
    return ".tavrel-old" + (number == 1 ? std::string() : std::to_string(number));
}

struct OldFolder
{
    fs::path path;
    fs::path name; // that it had before, in its own letter case
};

// What earlier swaps left beside the folder, the oldest first.
std::vector<OldFolder> oldFoldersOf(const fs::path& folder)
{
    std::vector<OldFolder> found;
    while (true) {
        const std::string ending = oldEnding(found.size() + 1);
        const fs::path path = asOnDisk(withEnding(folder, ending));
        if (!isTaken(path)) {
            return found;
        }
        const fs::path::string_type& name = path.native();
        found.push_back({path, name.substr(0, name.size() - ending.size())});
    }
}

const OldFolder* newestOf(const std::vector<OldFolder>& old)
{
    const auto newest =
        std::find_if(old.rbegin(), old.rend(), [](const OldFolder& each) { return isTrueFolder(each.path); });
    return newest == old.rend() ? nullptr : &*newest;
}

fs::path freeOldFolder(const fs::path& folder)
{
    return withEnding(folder, oldEnding(oldFoldersOf(folder).size() + 1));
}

void removeSamples(const fs::path& folder)
{
    if (const Result<std::vector<FolderEntry>> entries = listFolder(folder)) {
        for (const FolderEntry& entry : *entries) {
            std::error_code ignored;
            if (isSample(entry)) {
                fs::remove(entry.path, ignored);
            }
        }
    }
}

// What the folder lacks; nothing is replaced. The old folder goes when nothing is left in it.
void moveOver(const fs::path& old, const fs::path& folder)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(old);
    const Result<FolderIndex> there = FolderIndex::of(folder);
    if (!entries || !there) {
        return;
    }
    for (const FolderEntry& entry : *entries) {
        if (!entry.exactName || there->find(entry.name) == nullptr) {
            (void)moveSafely(entry.path, folder / entry.path.filename()); // else it stays where it is
        }
    }
    std::error_code ignored;
    fs::remove(old, ignored);
}

SampleCopies failed(Failure failure)
{
    SampleCopies copies;
    copies.end = CopyEnd::Failed;
    copies.failure = std::move(failure);
    return copies;
}

Problem copyFile(const fs::path& source, const fs::path& target)
{
    const Result<FileContent> content = readFile(source);
    if (!content) {
        return content.failure();
    }
    return writeFileSafely(target, content->bytes);
}

const FolderEntry* sampleIn(const FolderIndex& folder, std::string_view file)
{
    const FolderEntry* const entry = folder.find(file);
    return entry != nullptr && isSample(*entry) ? entry : nullptr;
}

// Names that differ in letter case alone are one file to the level editor; the last spelling stays.
std::unordered_map<std::string, std::string> lastSpellings(std::span<const std::string> names)
{
    std::unordered_map<std::string, std::string> spellings;
    for (const std::string& name : names) {
        spellings[upperCase(name)] = name;
    }
    return spellings;
}

SampleCopies copyAll(std::span<const std::string> names, const FolderIndex& source,
                     const fs::path& targetFolder, const FolderIndex& target, Progress& progress)
{
    SampleCopies copies;
    std::unordered_set<std::string> done;
    std::unordered_map<std::string, std::string> spellings = lastSpellings(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!progress.show(i, names.size())) {
            copies.end = CopyEnd::Cancelled;
            return copies;
        }
        if (!isSafeSampleName(names[i])) {
            copies.refused.push_back(names[i]);
            continue;
        }
        const std::string file = spellings[upperCase(names[i])] + ".wav";
        const FolderEntry* const sample = sampleIn(source, file);
        if (sample == nullptr) {
            continue;
        }
        const std::string shown = utf8FromCodePage(file);
        progress.say({"Copying sample [" + shown + "]...", "Copie du sample [" + shown + "] en cours..."});
        if (!done.insert(file).second) {
            continue; // the same bytes again
        }
        const fs::path written = targetFolder / nativePath(file);
        Problem problem = checkOtherSpellings(target, written);
        if (!problem) {
            problem = copyFile(sample->path, written);
        }
        if (problem) {
            copies.end = CopyEnd::Failed;
            copies.failure = std::move(problem);
            return copies;
        }
        removeOtherSpellings(target, written);
        copies.copied.push_back(file);
    }
    progress.show(names.size(), names.size());
    return copies;
}

} // namespace

std::vector<std::string> sampleNamesOf(const SoundLine& record)
{
    std::vector<std::string> names;
    std::ranges::copy_if(record.Samples, std::back_inserter(names),
                         [](const std::string& name) { return !name.empty(); });
    return names;
}

bool isSafeSampleName(std::string_view name)
{
    return isPlainFileName(name) && isPlainFileName(std::string(name) + ".wav");
}

BilingualText unsafeSampleNames(std::span<const std::string> names)
{
    std::vector<Failure> shown;
    std::unordered_set<std::string> known;
    for (const std::string& name : names) {
        if (known.insert(name).second) {
            shown.push_back({BilingualText::same("[" + utf8FromCodePage(name) + "]")});
        }
    }
    return BilingualText(
               "These samples have names that are no plain file names. They were not copied.\n\n",
               "Ces samples ont des noms qui ne sont pas de simples noms de fichiers. Ils n'ont pas "
               "été copiés.\n\n") +
           listOf(shown);
}

SampleCopies replaceSamples(std::span<const std::string> names, const fs::path& source,
                            const fs::path& target, Progress& progress)
{
    removeUnfinishedWrites(target);
    const Result<FolderIndex> from = FolderIndex::of(source);
    if (!from) {
        return failed(from.failure());
    }
    const Result<FolderIndex> to = FolderIndex::of(target);
    if (!to) {
        return failed(to.failure());
    }
    return copyAll(names, *from, target, *to, progress);
}

SamplesFolderSwap::SamplesFolderSwap(const fs::path& folder) : m_folder(folder)
{
    if (!system::isLink(m_folder)) {
        repair();
    }
    m_new = asOnDisk(withEnding(m_folder, ".tavrel-new"));
}

SamplesFolderSwap::~SamplesFolderSwap()
{
    if (m_hasNew) {
        std::error_code ignored;
        fs::remove_all(m_new, ignored);
    }
}

// Whoever cut it short, nothing is deleted: what lies in an old folder may be the last copy.
void SamplesFolderSwap::repair()
{
    const std::vector<OldFolder> old = oldFoldersOf(m_folder);
    if (isMissing(m_folder)) {
        if (const OldFolder* const newest = newestOf(old)) {
            m_folder = moveSafely(newest->path, newest->name) ? m_folder : newest->name;
        }
    }
    for (const OldFolder& left : old) {
        if (isTrueFolder(left.path) && isTrueFolder(m_folder)) {
            moveOver(left.path, m_folder);
        }
    }
}

std::vector<fs::path> SamplesFolderSwap::leftovers() const
{
    std::vector<fs::path> paths;
    for (const OldFolder& old : oldFoldersOf(m_folder)) {
        paths.push_back(old.path);
    }
    return paths;
}

SampleCopies SamplesFolderSwap::copy(std::span<const std::string> names, const fs::path& source,
                                     Progress& progress)
{
    std::error_code error;
    for (const fs::path& written : {m_folder, m_new}) {
        if (system::isLink(written)) {
            return failed(wrongContent(written, {"Samples are not written through a link to another folder.",
                                                 "Les samples ne sont pas écrits à travers un lien vers un "
                                                 "autre répertoire."}));
        }
    }
    if (!isMissing(m_folder) && !isTrueFolder(m_folder)) {
        return failed(cannotWrite(m_folder, std::make_error_code(std::errc::not_a_directory)));
    }
    if (fs::equivalent(m_folder, source, error)) {
        return failed(wrongContent(m_folder, {"This is the folder of the level editor's own samples.",
                                              "C'est le répertoire des samples de l'éditeur de niveaux."}));
    }
    m_hasSource = !isMissing(source);
    const Result<FolderIndex> from = m_hasSource ? FolderIndex::of(source) : FolderIndex();
    if (!from) {
        return failed(from.failure());
    }
    fs::remove_all(m_new, error);
    m_hasNew = fs::create_directory(m_new, error);
    if (!m_hasNew) {
        return failed(cannotWrite(m_new, error));
    }
    return copyAll(names, *from, m_new, FolderIndex(), progress);
}

Problem SamplesFolderSwap::putInPlace()
{
    const bool replaces = !isMissing(m_folder);
    if (replaces && !m_hasSource) {
        return std::nullopt; // the old samples go only for new ones
    }
    const fs::path old = freeOldFolder(m_folder);
    if (replaces) {
        if (Problem problem = moveSafely(m_folder, old)) {
            return problem;
        }
    }
    if (Problem problem = moveSafely(m_new, m_folder)) {
        if (replaces) {
            (void)moveSafely(old, m_folder); // else it is a leftover, and the next swap tries again
        }
        return problem;
    }
    m_hasNew = false;
    if (replaces) {
        removeSamples(old);
        moveOver(old, m_folder);
    }
    return std::nullopt;
}

std::optional<fs::path> samplesFolderToRead(const fs::path& folder)
{
    std::error_code ignored;
    if (fs::is_directory(folder, ignored)) {
        return folder;
    }
    const std::vector<OldFolder> old = oldFoldersOf(folder);
    const OldFolder* const newest = isMissing(folder) ? newestOf(old) : nullptr;
    return newest != nullptr ? std::optional(newest->path) : std::nullopt;
}

} // namespace tavrel
