// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FolderReplacement.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/SafeFile.h"
#include "base/System.h"
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

// With the read-only files in it.
void removeFolder(const fs::path& folder)
{
    std::error_code ignored;
    for (fs::directory_iterator it(folder, ignored); it != fs::directory_iterator(); it.increment(ignored)) {
        if (ignored) {
            break;
        }
        if (!it->is_symlink(ignored)) { // what it leads to is not ours
            fs::permissions(it->path(), fs::perms::owner_write, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(folder, ignored);
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
        : m_files(files), m_folder(folder), m_incoming(withEnding(folder, incomingSuffix)),
          m_replaced(withEnding(folder, replacedSuffix))
    {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() { removeFolder(m_incoming); }

    Problem stage(Progress& progress)
    {
        const Result<FolderSize> wanted = sizeOf(m_files);
        if (!wanted) {
            return wanted.failure();
        }
        std::error_code error;
        if (holdsOnlyOurs(m_incoming)) {
            removeFolder(m_incoming); // of a run that was cut short
        } else if (fs::exists(fs::symlink_status(m_incoming, error))) {
            m_incoming = freeName(m_incoming);
        }
        fs::create_directory(m_incoming, error);
        if (error) {
            return cannotWrite(m_incoming, error);
        }
        for (std::size_t i = 0; i < m_files.size() && !error; ++i) {
            progress.show(i, steps());
            error = copyIn(m_files[i].path);
        }
        // All in a row: one after each copy would take many times as long.
        for (std::size_t i = 0; i < m_files.size() && !error; ++i) {
            progress.show(m_files.size() + i, steps());
            error = system::flushFile(m_incoming / m_files[i].path.filename());
        }
        if (error) {
            return cannotWrite(m_incoming, error);
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
    // Copies of the files that are to come in, and nothing that somebody else put there.
    bool holdsOnlyOurs(const fs::path& folder) const
    {
        std::error_code error;
        if (!fs::is_directory(fs::symlink_status(folder, error))) {
            return false;
        }
        const Result<std::vector<FolderEntry>> entries = listFolder(folder);
        return entries && std::ranges::all_of(*entries, [this](const FolderEntry& entry) {
                   return entry.isFile && isAmong(m_files, entry.name);
               });
    }

    // Without the read-only mark that the file may have.
    std::error_code copyIn(const fs::path& file) const
    {
        const fs::path copy = m_incoming / file.filename();
        std::error_code error;
        fs::copy_file(file, copy, error);
        if (!error) {
            fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, error);
        }
        return error;
    }

    Problem checkCopies(const FolderSize& wanted) const
    {
        const Result<std::vector<FolderEntry>> copies = filesIn(m_incoming);
        if (!copies) {
            return copies.failure();
        }
        const Result<FolderSize> size = sizeOf(*copies);
        if (!size || *size != wanted) {
            return cannotWrite(m_incoming, std::make_error_code(std::errc::io_error));
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
            problem = move(oldFiles[i].path, m_replaced / oldFiles[i].path.filename());
        }
        for (std::size_t i = 0; i < m_files.size() && !problem; ++i) {
            const fs::path name = m_files[i].path.filename();
            problem = move(m_incoming / name, m_folder / name);
        }
        return problem;
    }

    Problem move(const fs::path& from, const fs::path& to)
    {
        Problem problem = moveSafely(from, to);
        if (!problem) {
            m_moved.push_back({from, to});
        }
        return problem;
    }

    void moveBack()
    {
        for (; !m_moved.empty(); m_moved.pop_back()) {
            static_cast<void>(moveSafely(m_moved.back().to, m_moved.back().from)); // else it stays aside
        }
        std::error_code ignored;
        fs::remove(m_replaced, ignored); // stays when something is left in it
        if (!m_setAside.empty() && !fs::exists(m_replaced, ignored)) {
            static_cast<void>(moveSafely(m_setAside, m_replaced));
        }
    }

    struct Move
    {
        fs::path from;
        fs::path to;
    };

    const std::vector<FolderEntry>& m_files;
    fs::path m_folder;
    fs::path m_incoming;
    fs::path m_replaced;
    fs::path m_setAside; // what was replaced the time before
    std::vector<Move> m_moved;
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
