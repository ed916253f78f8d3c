// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

// What replacing the files of a folder as a whole is made of: the new ones stand complete on the disk before
// an old one moves, and what has moved can move back.
namespace tavrel {

// A new folder beside the one that is to get its files. It goes with all that is left in it.
class StagedFolder
{
public:
    StagedFolder() = default;
    StagedFolder(const StagedFolder&) = delete;
    StagedFolder& operator=(const StagedFolder&) = delete;
    ~StagedFolder();

    // In the place of a folder that an earlier run has left there; the caller is sure that it is one.
    // Messages name the target, where the files are to go.
    [[nodiscard]] Problem create(const std::filesystem::path& path, const std::filesystem::path& target);

    // The copy has the rights of any new file. What readFile() refuses is refused. After an error the folder
    // is of no use.
    [[nodiscard]] Problem copyIn(const std::filesystem::path& file, const std::filesystem::path& name);

    // After the last copy: all of them reach the disk. In a row, since one flush behind each copy takes many
    // times as long. False when `goOn`, which is told how many are left, ends it.
    Result<bool> flush(const std::function<bool(std::size_t left)>& goOn);

    const std::filesystem::path& path() const { return m_path; }
    // It has become somebody's folder under another name.
    void release() { m_path.clear(); }

private:
    std::filesystem::path m_path;
    std::filesystem::path m_target;
    std::vector<std::filesystem::path> m_names;
};

// Files and folders that get other names, all of them or none.
class Moves
{
public:
    // The new name must be free. After a failure the caller takes all back.
    [[nodiscard]] Problem move(const std::filesystem::path& from, const std::filesystem::path& to);

    // The last one first. What cannot move back stays where it is: nothing is ever replaced or deleted.
    void takeBack();

private:
    struct Move
    {
        std::filesystem::path from;
        std::filesystem::path to;
    };

    std::vector<Move> m_moves;
};

} // namespace tavrel
