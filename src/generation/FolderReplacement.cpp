// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FolderReplacement.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/SafeFile.h"
#include "base/StagedFolder.h"
#include "generation/FolderFiles.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view incomingSuffix = "_incoming";
constexpr std::string_view replacedSuffix = "_replaced";

fs::path freeName(const fs::path& folder)
{
    std::error_code ignored;
    fs::path name;
    int number = 0;
    do {
        name = withEnding(folder, "_" + std::to_string(++number));
    } while (fs::exists(fs::symlink_status(name, ignored)));
    return name;
}

bool isAmong(const std::vector<FolderEntry>& entries, const std::string& name)
{
    return std::ranges::any_of(entries, [&](const FolderEntry& entry) { return sameName(entry.name, name); });
}

// One run of replaceFiles().
class Replacement
{
public:
    Replacement(const std::vector<FolderEntry>& files, const fs::path& folder)
        : m_files(files), m_folder(folder), m_replaced(withEnding(folder, replacedSuffix))
    {}

    Problem stage(Progress& progress)
    {
        const Result<FolderSize> wanted = sizeOf(m_files);
        if (!wanted) {
            return wanted.failure();
        }
        if (Problem problem = m_incoming.create(freeIncoming(), m_folder)) {
            return problem;
        }
        for (std::size_t i = 0; i < m_files.size(); ++i) {
            progress.show(i, steps());
            if (Problem problem = m_incoming.copyIn(m_files[i].path, m_files[i].path.filename())) {
                return problem;
            }
        }
        const Result<bool> flushed = m_incoming.flush([&](std::size_t left) {
            progress.show(steps() - left, steps());
            return true;
        });
        if (!flushed) {
            return flushed.failure();
        }
        return checkCopies(*wanted);
    }

    // A copy and a flush for each file.
    std::size_t steps() const { return 2 * m_files.size(); }

    Problem moveIn(const std::vector<FolderEntry>& oldFiles)
    {
        Problem problem = moveAll(oldFiles);
        if (problem) {
            moveBack();
        }
        return problem; // what was kept before stays aside: it may be the only copy of a user's file
    }

private:
    // That of a run that was cut short, or a new one.
    fs::path freeIncoming() const
    {
        const fs::path incoming = withEnding(m_folder, incomingSuffix);
        std::error_code ignored;
        const bool isTaken = fs::exists(fs::symlink_status(incoming, ignored)) && !holdsOnlyOurs(incoming);
        return isTaken ? freeName(incoming) : incoming;
    }

    // Copies of the files that are to come in, and nothing that somebody else put there.
    bool holdsOnlyOurs(const fs::path& folder) const
    {
        if (!isTrueFolder(folder)) {
            return false;
        }
        const Result<std::vector<FolderEntry>> entries = listFolder(folder);
        return entries && std::ranges::all_of(*entries, [this](const FolderEntry& entry) {
                   return entry.isFile && isAmong(m_files, entry.name);
               });
    }

    Problem checkCopies(const FolderSize& wanted) const
    {
        const Result<std::vector<FolderEntry>> copies = filesIn(m_incoming.path());
        if (!copies) {
            return copies.failure();
        }
        const Result<FolderSize> size = sizeOf(*copies);
        if (!size || *size != wanted) {
            return cannotWrite(m_folder, std::make_error_code(std::errc::io_error));
        }
        return std::nullopt;
    }

    Problem moveAll(const std::vector<FolderEntry>& oldFiles)
    {
        std::error_code error;
        fs::create_directory(m_folder, error);
        if (!error && fs::exists(m_replaced, error)) {
            m_setAside = nextNumberedName(m_replaced);
            if (Problem problem = moveSafely(m_replaced, m_setAside)) {
                m_setAside.clear();
                return problem;
            }
        }
        if (!error && !oldFiles.empty()) {
            fs::create_directory(m_replaced, error);
        }
        if (error) {
            return cannotWrite(m_folder, error);
        }
        Problem problem;
        for (std::size_t i = 0; i < oldFiles.size() && !problem; ++i) {
            problem = m_moves.move(oldFiles[i].path, m_replaced / oldFiles[i].path.filename());
        }
        for (std::size_t i = 0; i < m_files.size() && !problem; ++i) {
            const fs::path name = m_files[i].path.filename();
            problem = m_moves.move(m_incoming.path() / name, m_folder / name);
        }
        return problem;
    }

    void moveBack()
    {
        m_moves.takeBack(); // what cannot stays aside
        std::error_code ignored;
        fs::remove(m_replaced, ignored); // stays when something is left in it
        if (!m_setAside.empty() && !fs::exists(m_replaced, ignored)) {
            static_cast<void>(moveSafely(m_setAside, m_replaced));
        }
    }

    const std::vector<FolderEntry>& m_files;
    fs::path m_folder;
    StagedFolder m_incoming;
    fs::path m_replaced;
    fs::path m_setAside; // what was replaced the time before
    Moves m_moves;
};

// The old files, and whatever else has the name of a new one: hidden files, too, must not be written over.
Result<std::vector<FolderEntry>> allThatLeave(const std::vector<FolderEntry>& files, const fs::path& folder,
                                              const std::vector<FolderEntry>& oldFiles)
{
    std::vector<FolderEntry> leaving = oldFiles;
    std::error_code error;
    if (!fs::exists(folder, error) && !error) {
        return leaving;
    }
    const Result<std::vector<FolderEntry>> present = listFolder(folder);
    if (!present) {
        return present.failure();
    }
    std::ranges::copy_if(*present, std::back_inserter(leaving), [&](const FolderEntry& entry) {
        return entry.isFile && isAmong(files, entry.name) && !isAmong(oldFiles, entry.name);
    });
    return leaving;
}

} // namespace

Problem replaceFiles(const std::vector<FolderEntry>& files, const fs::path& folder,
                     const std::vector<FolderEntry>& oldFiles, Progress& progress)
{
    // Beside the folder itself, not beside a link to it: a move must stay on its disk.
    std::error_code error;
    const fs::path real = fs::weakly_canonical(folder, error);
    if (error) {
        return cannotWrite(folder, error);
    }
    Result<std::vector<FolderEntry>> leaving = allThatLeave(files, real, oldFiles);
    if (!leaving) {
        return leaving.failure();
    }
    Replacement replacement(files, real);
    Problem problem = replacement.stage(progress);
    if (!problem) {
        problem = replacement.moveIn(*leaving);
    }
    progress.show(replacement.steps(), replacement.steps());
    return problem;
}

Problem cutShortReplacement(const fs::path& folder)
{
    const fs::path incoming = withEnding(folder, incomingSuffix);
    const fs::path replaced = withEnding(folder, replacedSuffix);
    std::error_code ignored;
    if (!fs::is_directory(incoming, ignored) || fs::is_empty(incoming, ignored) ||
        !fs::is_directory(replaced, ignored)) {
        return std::nullopt;
    }
    return Failure{
        filled({"A restore of the original files was cut short:\n{}\nRestore them again. What was taken "
                "away lies in\n{}",
                "Une restauration des fichiers d'origine a été interrompue :\n{}\nRelancez-la. Ce qui "
                "avait été retiré se trouve dans\n{}"},
               {displayPath(folder), displayPath(replaced)})};
}

} // namespace tavrel
