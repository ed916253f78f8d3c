// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StagedFolder.h"

#include "base/FailureTexts.h"
#include "base/SafeFile.h"
#include "base/System.h"

#include <fstream>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

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

} // namespace

StagedFolder::~StagedFolder()
{
    if (!m_path.empty()) {
        removeFolder(m_path);
    }
}

Problem StagedFolder::create(const fs::path& path)
{
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error)) && !system::isLink(path)) {
        removeFolder(path);
    }
    if (!fs::create_directory(path, error)) {
        return cannotWrite(path, error ? error : std::make_error_code(std::errc::file_exists));
    }
    m_path = path;
    m_names.clear();
    return std::nullopt;
}

Problem StagedFolder::copyIn(const fs::path& file, const fs::path& name)
{
    const fs::path copy = m_path / name;
    std::error_code error;
    fs::copy_file(file, copy, error);
    std::error_code ignored;
    if (error && !(fs::is_regular_file(file, ignored) && std::ifstream(file))) {
        return cannotRead(file, error);
    }
    if (!error) {
        fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, error);
    }
    if (error) {
        return cannotWrite(copy, error);
    }
    m_names.push_back(name);
    return std::nullopt;
}

Problem StagedFolder::flush(const std::function<void(std::size_t)>& told)
{
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        if (told) {
            told(m_names.size() - i);
        }
        if (const std::error_code error = system::flushFile(m_path / m_names[i])) {
            return cannotWrite(m_path / m_names[i], error);
        }
    }
    system::flushFolder(m_path);
    return std::nullopt;
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
