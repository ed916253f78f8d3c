// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// A fresh folder, removed with everything in it at the end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

// Both throw when the file cannot be read or written; writing makes the folders on the way.
std::string readBytes(const std::filesystem::path& file);
void writeBytes(const std::filesystem::path& file, std::string_view bytes);

// The names in a folder, sorted, without the lock files that stay for ever; none when there is no such
// folder.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

// New folders that were to take the place of others in this one.
void removeStagedFolders(const std::filesystem::path& folder);

// Every file and folder below this one with its content ("folder" for a folder), without the lock files.
std::map<std::filesystem::path, std::string> everyFile(const std::filesystem::path& folder);

// Runs a program to its end, with what it says in a file. Returns its exit status.
int runProgram(std::filesystem::path program, const std::vector<std::filesystem::path>& arguments,
               const std::filesystem::path& output);

// Spells a TAB as ">", so that tables of lines stay readable.
std::string withTabs(std::string text);

// The name and so many samples "s", a blank behind each.
std::string withSamples(const std::string& name, int count);

// Lines, CR LF after each.
std::string textOf(const std::vector<std::string>& lines);

// The first line in which two texts differ, as "old" against "new"; empty when they are the same.
std::string firstDifference(const std::string& text, const std::string& expected);

// The 370 lines of the stock catalogue.
const std::vector<std::string>& stockLines();

std::filesystem::path dataFolder();

// A level editor and a program folder as a user has them, without samples.
struct DemoFolders
{
    TemporaryFolder root;
    std::filesystem::path levelEditor = root / "trle";
    std::filesystem::path program = root / "program";
    std::filesystem::path creator = levelEditor / "sound" / "LevelSFX Creator";
    std::filesystem::path sounds = creator / "Sounds.txt";

    DemoFolders();
};

} // namespace tavrel
