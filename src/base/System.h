// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// What the standard library has no words for. One implementation for each operating system.
namespace tavrel::system {

// Fills the buffer from the start of the file, with a single read; what lies beyond its end stays as it is.
// False when the file cannot be opened or read.
bool readStart(const std::filesystem::path& file, std::span<char> buffer);

// Creates a file that must not exist yet, and returns once its bytes are on the disk; or earlier, when the
// caller flushes it himself. With a model, the file has the model's rights in the end, and wider ones at no
// moment.
enum class Flush { Now, Later };
std::error_code writeNewFile(const std::filesystem::path& file, std::string_view bytes,
                             const std::optional<std::filesystem::path>& model = std::nullopt,
                             Flush flush = Flush::Now);

// Returns once the bytes of an existing file are on the disk.
std::error_code flushFile(const std::filesystem::path& file);
// Makes new names in a folder last. Some file systems cannot; the files themselves are safe by then.
void flushFolder(const std::filesystem::path& folder);
// A hard link: the file's bytes can be reached by both names, on the disk too once this returns. Fails where
// the name is taken, the file has a second name already, or the file system has no such links.
std::error_code giveSecondName(const std::filesystem::path& file, const std::filesystem::path& name);

// Puts `from` in the place of `to` in one step: at every moment `to` is the old file or the new one.
std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives `from` the name `to` in one step; fails when there is a `to` already.
std::error_code moveToNewName(const std::filesystem::path& from, const std::filesystem::path& to);

// One process at a time has the lock of a file. The system ends it with the process, however that ends; the
// file itself stays.
class FileLock
{
public:
    FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    // Makes the file if need be, for everybody who may write in its folder. The error is
    // std::errc::resource_unavailable_try_again while another process has the lock, std::errc::not_supported
    // where the system has no locks, std::errc::permission_denied where the file cannot be opened or made.
    std::error_code take(const std::filesystem::path& file);

private:
    static constexpr std::intptr_t none = -1;
    std::intptr_t m_handle = none;
};

// A file that grows, record by record, and belongs to the process that made it.
class AppendFile
{
public:
    AppendFile() = default;
    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;
    ~AppendFile();

    // Makes the file, which must not exist yet.
    std::error_code create(const std::filesystem::path& file);
    bool isOpen() const { return m_handle != none; }
    // Returns once the bytes are on the disk.
    std::error_code append(std::string_view bytes) const;
    void close();

private:
    static constexpr std::intptr_t none = -1;
    std::intptr_t m_handle = none;
};
// Whether the process that made it as an AppendFile lives and has not closed it.
bool isOpenForAppending(const std::filesystem::path& file);

// Another program holds the file right now; it may let go of it in a moment.
bool isPassing(const std::error_code& error);

// Whether an existing file may be rewritten: its read-only mark counts even for an administrator.
bool isWritable(const std::filesystem::path& file);

// Whether files may be created in the folder.
bool isWritableFolder(const std::filesystem::path& folder);

// A symbolic link or a junction, wherever it leads.
bool isLink(const std::filesystem::path& path);

// Marked hidden or as the system's own.
bool isHidden(const std::filesystem::path& file);

// The private copy that the system keeps for programs which may not write to the real file; empty where there
// is none.
std::filesystem::path redirectedCopy(const std::filesystem::path& file);

// In the words of the system, UTF-8.
std::string errorText(const std::error_code& error);

// The program's arguments, UTF-8, without the program itself.
std::vector<std::string> utf8Arguments(int argc, char* argv[]);

// As long as it lives, the console shows UTF-8. Others share the console and find it as it was.
class Utf8Console
{
public:
    Utf8Console();
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;
    ~Utf8Console(); // NOLINT(performance-trivially-destructible): it has work to do on Windows

private:
    [[maybe_unused]] unsigned m_before = 0; // on Windows
};

// The standard streams, byte for byte. Reading fills the front of the buffer: 0 bytes at the end of the
// input.
struct ReadBytes
{
    std::size_t count = 0;
    std::error_code error;
};
ReadBytes readInput(std::span<char> buffer);
// std::errc::broken_pipe when the reader has gone.
std::error_code writeOutput(std::string_view bytes);
// Somebody sits there and can answer.
bool inputIsTerminal();
// A reader that goes away, or a file that reaches its largest size, fails the write and does not end the
// program.
void surviveFailedWrites();

// Whether the console window was opened for this program alone, and closes with it before anyone can read it.
bool consoleClosesWithProgram();

// Tells running processes of one machine apart.
unsigned long processNumber();

// The file of the running program.
std::filesystem::path ownProgram();

// Where the user's own files of programs belong that are installed for everybody; empty where programs keep
// their files beside themselves.
std::filesystem::path usersDataFolder();

} // namespace tavrel::system
