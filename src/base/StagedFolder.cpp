// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StagedFolder.h"

#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// With the read-only files in it, for systems that keep these.
void removeFolder(const fs::path& folder)
{
    std::error_code error;
    fs::remove_all(folder, error);
    if (!error) {
        return;
    }
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        std::error_code ignored;
        if (!it->is_symlink(ignored)) { // what it leads to is not ours
            fs::permissions(it->path(), fs::perms::owner_write, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(folder, error);
}

} // namespace

StagedFolder::~StagedFolder()
{
    if (!m_path.empty()) {
        removeFolder(m_path);
    }
}

Problem StagedFolder::create(const fs::path& path, const fs::path& target)
{
    if (!m_path.empty()) {
        removeFolder(m_path);
    }
    if (isTrueFolder(path)) {
        removeFolder(path);
    }
    std::error_code error;
    std::error_code ignored;
    // One that cannot go, because somebody has it open, may be empty all the same.
    if (!fs::create_directory(path, error) && !(isTrueFolder(path) && fs::is_empty(path, ignored))) {
        return cannotWrite(target, error ? error : std::make_error_code(std::errc::file_exists));
    }
    m_path = path;
    m_target = target;
    m_names.clear();
    return std::nullopt;
}

Problem StagedFolder::copyIn(const fs::path& file, const fs::path& name)
{
    const Result<FileContent> content = readFile(file);
    if (!content) {
        return content.failure();
    }
    if (const std::error_code error =
            system::writeNewFile(m_path / name, content->bytes, std::nullopt, system::Flush::Later)) {
        return cannotWrite(m_target / name, error);
    }
    m_names.push_back(name);
    return std::nullopt;
}

Result<bool> StagedFolder::flush(const std::function<bool(std::size_t)>& goOn)
{
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        if (!goOn(m_names.size() - i)) {
            return false;
        }
        if (const std::error_code error = flushSafely(m_path / m_names[i])) {
            return cannotWrite(m_target / m_names[i], error);
        }
    }
    system::flushFolder(m_path);
    return true;
}

Problem Moves::move(const fs::path& from, const fs::path& to)
{
    Problem problem = moveSafely(from, to);
    if (!problem) {
        m_moves.push_back({from, to});
    }
    return problem;
}

void Moves::takeBack()
{
    for (; !m_moves.empty(); m_moves.pop_back()) {
        static_cast<void>(moveSafely(m_moves.back().to, m_moves.back().from));
    }
}

} // namespace tavrel
