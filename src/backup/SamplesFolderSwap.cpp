// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SamplesFolderSwap.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// For certain: what cannot be looked at may be there.
bool isMissing(const fs::path& path)
{
    std::error_code ignored;
    return fs::symlink_status(path, ignored).type() == fs::file_type::not_found;
}

// Where a samples folder waits while the new one takes its place. A further one has a number.
std::string oldEnding(std::size_t number)
{
    return ".tavrel-old" + (number == 1 ? std::string() : std::to_string(number));
}

struct OldFolder
{
    std::size_t number;
    fs::path path;
    fs::path name; // that it had before, in its own letter case
};

// The number in such an ending; nothing in any other.
std::optional<std::size_t> numberOfOld(std::string_view ending)
{
    const std::string first = oldEnding(1);
    std::size_t number = 1;
    if (ending.size() > first.size()) {
        std::from_chars(ending.data() + first.size(), ending.data() + ending.size(), number);
    }
    return sameName(ending, oldEnding(number)) ? std::optional(number) : std::nullopt;
}

bool sameFileName(const fs::path& left, const fs::path& right)
{
    const CodePageText first = codePagePath(left);
    const CodePageText second = codePagePath(right);
    return first.exact && second.exact ? sameName(first.bytes, second.bytes) : left == right;
}

// What earlier swaps left beside the folder, the oldest first.
std::vector<OldFolder> oldFoldersOf(const fs::path& folder)
{
    std::vector<OldFolder> found;
    if (const Result<std::vector<FolderEntry>> entries = listFolder(folder.parent_path())) {
        for (const FolderEntry& entry : *entries) {
            const std::optional<std::size_t> number = numberOfOld(codePagePath(entry.path.extension()).bytes);
            if (number && sameFileName(entry.path.stem(), folder.filename())) {
                found.push_back({*number, entry.path, folder.parent_path() / entry.path.stem()});
            }
        }
    }
    std::ranges::sort(found, {}, [](const OldFolder& old) { return std::tie(old.number, old.path); });
    return found;
}

const OldFolder* newestOf(const std::vector<OldFolder>& old)
{
    const auto newest =
        std::find_if(old.rbegin(), old.rend(), [](const OldFolder& each) { return isTrueFolder(each.path); });
    return newest == old.rend() ? nullptr : &*newest;
}

// Behind all others, so that their order stays that of their age.
fs::path freeOldFolder(const fs::path& folder)
{
    const std::vector<OldFolder> old = oldFoldersOf(folder);
    return withEnding(folder, oldEnding(old.empty() ? 1 : old.back().number + 1));
}

using FileNames = std::unordered_set<std::string>; // in capitals

FileNames filesOf(std::span<const std::string> samples)
{
    FileNames files;
    for (const std::string& sample : samples) {
        files.insert(upperCase(sampleFileName(sample)));
    }
    return files;
}

// The samples of the folder that are none of these files.
std::vector<fs::path> otherSamples(const std::vector<FolderEntry>& folder, const FileNames& files)
{
    std::vector<fs::path> others;
    for (const FolderEntry& entry : folder) {
        if (isSample(entry) && !(entry.exactName && files.contains(upperCase(entry.name)))) {
            others.push_back(entry.path);
        }
    }
    return others;
}

void removeSamples(const fs::path& folder, const FileNames& kept)
{
    if (const Result<std::vector<FolderEntry>> entries = listFolder(folder)) {
        for (const fs::path& sample : otherSamples(*entries, kept)) {
            std::error_code ignored;
            fs::remove(sample, ignored);
        }
    }
}

// What the folder lacks; nothing is replaced. The old folder goes when nothing is left in it. True when
// something was moved.
bool moveOver(const fs::path& old, const fs::path& folder)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(old);
    const Result<FolderIndex> there = FolderIndex::of(folder);
    if (!entries || !there) {
        return false;
    }
    bool moved = false;
    for (const FolderEntry& entry : *entries) {
        if (!entry.exactName || there->find(entry.name) == nullptr) {
            moved |= !moveSafely(entry.path, folder / entry.path.filename()); // else it stays where it is
        }
    }
    std::error_code ignored;
    fs::remove(old, ignored);
    return moved;
}

void copyPermissions(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    const fs::perms permissions = fs::status(from, error).permissions();
    if (!error) {
        fs::permissions(to, permissions, error); // else it has those of any new folder
    }
}

} // namespace

SamplesFolderSwap::SamplesFolderSwap(const fs::path& folder) : m_folder(folder)
{
    removeUnfinishedFolders(m_folder);
    if (!system::isLink(m_folder)) {
        repair();
    }
}

// Whoever cut it short, nothing is deleted: what lies in an old folder may be the last copy.
void SamplesFolderSwap::repair()
{
    const std::vector<OldFolder> old = oldFoldersOf(m_folder);
    if (isMissing(m_folder)) {
        if (const OldFolder* const newest = newestOf(old)) {
            if (!moveSafely(newest->path, newest->name)) {
                m_folder = newest->name;
                m_repaired = true;
            }
        }
    }
    for (const OldFolder& left : old) {
        if (isTrueFolder(left.path) && isTrueFolder(m_folder)) {
            m_repaired |= moveOver(left.path, m_folder);
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
    if (system::isLink(m_folder)) {
        return failedCopies(
            wrongContent(m_folder, {"Samples are not written through a link to another folder.",
                                    "Les samples ne sont pas écrits à travers un lien vers un "
                                    "autre répertoire."}));
    }
    if (!isMissing(m_folder) && !isTrueFolder(m_folder)) {
        return failedCopies(cannotWrite(m_folder, std::make_error_code(std::errc::not_a_directory)));
    }
    std::error_code error;
    if (fs::equivalent(m_folder, source, error)) {
        return failedCopies(
            wrongContent(m_folder, {"This is the folder of the level editor's own samples.",
                                    "C'est le répertoire des samples de l'éditeur de niveaux."}));
    }
    m_hasSource = !isMissing(source);
    const Result<FolderIndex> from = m_hasSource ? FolderIndex::of(source) : FolderIndex();
    if (!from) {
        return failedCopies(from.failure());
    }
    if (Problem problem = m_new.create(unfinishedName(m_folder), m_folder)) {
        return failedCopies(*problem);
    }
    const std::size_t steps = 2 * names.size(); // a copy and a flush for each
    const auto put = [this](const fs::path& sample, const std::string& file) {
        return m_new.copyIn(sample, nativePath(file));
    };
    SampleCopies copies = copySamples(names, *from, put, steps, progress);
    if (copies.end != CopyEnd::Complete) {
        return copies;
    }
    const Result<bool> flushed =
        m_new.flush([&](std::size_t left) { return progress.show(steps - left, steps); });
    if (!flushed) {
        return failedCopies(flushed.failure());
    }
    if (!*flushed || !progress.show(steps, steps)) {
        copies.end = CopyEnd::Cancelled;
        return copies;
    }
    const Problem problem = keepWhatIsLacking(names, copies);
    return problem ? failedCopies(*problem) : copies;
}

// The old folder may hold the only copy of a sample that the level editor has no more.
Problem SamplesFolderSwap::keepWhatIsLacking(std::span<const std::string> names, SampleCopies& copies)
{
    m_kept = filesOf(names);
    for (const std::string& file : copies.copied) {
        m_kept.erase(upperCase(file));
    }
    if (isMissing(m_folder)) {
        return std::nullopt;
    }
    const Result<std::vector<FolderEntry>> old = listFolder(m_folder);
    if (!old) {
        return old.failure();
    }
    for (const FolderEntry& entry : *old) {
        if (isSample(entry) && entry.exactName && m_kept.contains(upperCase(entry.name))) {
            copies.kept.push_back(entry.name);
        }
    }
    std::ranges::sort(copies.kept);
    std::erase_if(copies.missing, [&copies](const std::string& file) {
        return std::ranges::any_of(copies.kept,
                                   [&file](const std::string& kept) { return sameName(kept, file); });
    });
    return std::nullopt;
}

Problem SamplesFolderSwap::putInPlace()
{
    const bool replaces = !isMissing(m_folder);
    if (replaces && !m_hasSource) {
        return std::nullopt; // the old samples go only for new ones
    }
    const fs::path old = freeOldFolder(m_folder);
    Moves moves;
    Problem problem;
    if (replaces) {
        copyPermissions(m_folder, m_new.path());
        problem = moves.move(m_folder, old);
    }
    if (!problem) {
        problem = moves.move(m_new.path(), m_folder);
    }
    if (problem) {
        moves.takeBack(); // else it is a leftover, and the next swap tries again
        return problem;
    }
    m_new.release();
    if (replaces) {
        removeSamples(old, m_kept);
        (void)moveOver(old, m_folder);
    }
    return std::nullopt;
}

std::vector<fs::path> samplesLostToSwap(std::span<const std::string> names, const fs::path& source,
                                        const fs::path& folder)
{
    const std::optional<fs::path> old = isMissing(source) ? std::nullopt : samplesFolderToRead(folder);
    const Result<std::vector<FolderEntry>> entries = old ? listFolder(*old) : std::vector<FolderEntry>();
    return entries ? otherSamples(*entries, filesOf(names)) : std::vector<fs::path>();
}

std::optional<fs::path> samplesFolderToRead(const fs::path& folder)
{
    if (isFolder(folder)) {
        return folder;
    }
    const std::vector<OldFolder> old = oldFoldersOf(folder);
    const OldFolder* const newest = isMissing(folder) ? newestOf(old) : nullptr;
    return newest != nullptr ? std::optional(newest->path) : std::nullopt;
}

} // namespace tavrel
