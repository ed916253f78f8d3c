// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SampleTransfer.h"

#include "base/CodePage.h"
#include "base/Counted.h"
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

constexpr std::size_t mostNamed = 8; // in a text

Problem copyFile(const fs::path& source, const fs::path& target)
{
    const Result<FileContent> content = readFile(source);
    if (!content) {
        return content.failure();
    }
    return system::isLink(target) ? replaceLinkSafely(target, content->bytes)
                                  : writeFileSafely(target, content->bytes);
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
    return isPlainFileName(name) && isPlainFileName(sampleFileName(name));
}

BilingualText unsafeSampleNames(std::span<const std::string> names)
{
    std::vector<Failure> shown;
    std::unordered_set<std::string> known;
    for (const std::string& name : names) {
        if (known.insert(name).second) {
            shown.push_back({BilingualText::same(bracketed(name))});
        }
    }
    return BilingualText(
               "These samples have names that are not plain file names. They were not copied.\n\n",
               "Ces samples ont des noms qui ne sont pas de simples noms de fichiers. Ils n'ont pas "
               "été copiés.\n\n") +
           listOf(shown);
}

BilingualText listOfFiles(std::span<const std::string> files)
{
    std::string list;
    for (const std::string& file : files.first(std::min(files.size(), mostNamed))) {
        list += "\n" + shownText(file);
    }
    if (files.size() <= mostNamed) {
        return BilingualText::same(list);
    }
    const std::string rest = std::to_string(files.size() - mostNamed);
    return {list + "\n... and " + rest + " more", list + "\n... et " + rest + " de plus"};
}

void addListedFiles(const BilingualText& one, const BilingualText& several,
                    std::span<const std::string> files, Message& message)
{
    if (files.empty()) {
        return;
    }
    message.text += message.text.empty() ? "" : "\n\n";
    message.text += counted(files.size(), one, several);
    if (files.size() <= mostNamed) {
        message.text += listOfFiles(files);
        return;
    }
    for (const std::string& file : files) {
        message.details += (message.details.empty() ? "" : "\n") + shownText(file);
    }
}

BilingualText keptSamples(std::span<const std::string> files)
{
    return BilingualText("These samples are not in the level editor's samples folder; the copies of the "
                         "earlier export were kept:",
                         "Ces samples ne sont pas dans le répertoire des samples de l'éditeur de niveaux ; "
                         "les copies de l'export précédent ont été conservées :") +
           listOfFiles(files);
}

SampleCopies failedCopies(Failure failure)
{
    SampleCopies copies;
    copies.end = CopyEnd::Failed;
    copies.failure = std::move(failure);
    return copies;
}

SampleCopies copySamples(std::span<const std::string> names, const FolderIndex& source, const PutSample& put,
                         std::size_t steps, Progress& progress)
{
    SampleCopies copies;
    std::unordered_set<std::string> done;
    std::unordered_map<std::string, std::string> spellings = lastSpellings(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!progress.show(i, steps)) {
            copies.end = CopyEnd::Cancelled;
            return copies;
        }
        if (!isSafeSampleName(names[i])) {
            copies.refused.push_back(names[i]);
            continue;
        }
        const std::string file = sampleFileName(spellings[upperCase(names[i])]);
        const FolderEntry* const sample = sampleIn(source, file);
        if (sample == nullptr) {
            if (done.insert(file).second) {
                copies.missing.push_back(file);
            }
            continue;
        }
        const std::string shown = shownText(file);
        progress.say({"Copying sample [" + shown + "]...", "Copie du sample [" + shown + "] en cours..."});
        if (!done.insert(file).second) {
            continue; // the same bytes again
        }
        if (Problem problem = put(sample->path, file)) {
            copies.end = CopyEnd::Failed;
            copies.failure = std::move(problem);
            return copies;
        }
        copies.copied.push_back(file);
    }
    return copies;
}

SampleCopies replaceSamples(std::span<const std::string> names, const fs::path& source,
                            const fs::path& target, Progress& progress)
{
    removeUnfinishedWrites(target, Unfinished::OlderThanADay);
    const Result<FolderIndex> from = FolderIndex::of(source);
    if (!from) {
        return failedCopies(from.failure());
    }
    const Result<FolderIndex> to = FolderIndex::of(target);
    if (!to) {
        return failedCopies(to.failure());
    }
    const auto put = [&](const fs::path& sample, const std::string& file) {
        const fs::path written = target / nativePath(file);
        Problem problem = checkOtherSpellings(*to, written);
        if (!problem) {
            problem = copyFile(sample, written);
        }
        if (!problem) {
            removeOtherSpellings(*to, written);
        }
        return problem;
    };
    SampleCopies copies = copySamples(names, *from, put, names.size(), progress);
    if (copies.end == CopyEnd::Complete) {
        progress.show(names.size(), names.size());
    }
    return copies;
}

} // namespace tavrel
