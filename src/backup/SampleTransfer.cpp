// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SampleTransfer.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

fs::path withEnding(fs::path folder, const char* ending)
{
    return folder += ending;
}

fs::path newBeside(const fs::path& folder)
{
    return withEnding(folder, ".tavrel-new");
}

fs::path oldBeside(const fs::path& folder)
{
    return withEnding(folder, ".tavrel-old");
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
        if (Problem problem = copyFile(sample->path, written)) {
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
    for (const std::string& name : names) {
        shown.push_back({BilingualText::same("[" + utf8FromCodePage(name) + "]")});
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
    std::error_code error;
    if (fs::is_symlink(folder, error)) {
        const fs::path linked = fs::canonical(folder, error);
        m_folder = error ? folder : linked;
    }
    m_new = newBeside(m_folder);
    m_old = oldBeside(m_folder);
    finishSamplesSwap(m_folder);
}

SamplesFolderSwap::~SamplesFolderSwap()
{
    std::error_code ignored;
    fs::remove_all(m_new, ignored);
}

SampleCopies SamplesFolderSwap::copy(std::span<const std::string> names, const fs::path& source,
                                     Progress& progress)
{
    std::error_code error;
    if (fs::exists(m_folder, error) && !fs::is_directory(m_folder, error)) {
        return failed(cannotWrite(m_folder, std::make_error_code(std::errc::not_a_directory)));
    }
    if (fs::equivalent(m_folder, source, error)) {
        return failed(wrongContent(m_folder, {"This is the folder of the level editor's own samples.",
                                              "C'est le répertoire des samples de l'éditeur de niveaux."}));
    }
    const Result<FolderIndex> from = FolderIndex::of(source);
    if (!from) {
        return failed(from.failure());
    }
    fs::remove_all(m_new, error);
    if (!fs::create_directory(m_new, error)) {
        return failed(cannotWrite(m_new, error));
    }
    return copyAll(names, *from, m_new, FolderIndex(), progress);
}

Problem SamplesFolderSwap::putInPlace()
{
    std::error_code ignored;
    const bool replaces = fs::exists(m_folder, ignored);
    if (replaces) {
        if (Problem problem = moveSafely(m_folder, m_old)) {
            return problem;
        }
    }
    if (Problem problem = moveSafely(m_new, m_folder)) {
        if (replaces) {
            finishSamplesSwap(m_folder);
        }
        return problem;
    }
    finishSamplesSwap(m_folder);
    return std::nullopt;
}

void finishSamplesSwap(const fs::path& folder)
{
    std::error_code ignored;
    const fs::path old = oldBeside(folder);
    if (!fs::is_directory(old, ignored)) {
        return;
    }
    if (!fs::exists(folder, ignored)) {
        (void)moveSafely(old, folder); // tried again the next time
        return;
    }
    const Result<std::vector<FolderEntry>> entries = listFolder(old);
    if (!entries) {
        return;
    }
    for (const FolderEntry& entry : *entries) {
        if (isSample(entry)) {
            fs::remove(entry.path, ignored);
        } else {
            (void)moveSafely(entry.path, folder / entry.path.filename()); // else it stays where it is
        }
    }
    fs::remove(old, ignored); // when nothing is left in it
}

} // namespace tavrel
