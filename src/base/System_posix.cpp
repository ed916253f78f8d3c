// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/System.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace tavrel::system {

namespace {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

// Closes the file on every way out.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    // Network disks report a failed write as late as here.
    std::error_code close()
    {
        const int number = std::exchange(m_number, -1);
        return ::close(number) == 0 || errno == EINTR ? std::error_code() : lastError();
    }

private:
    int m_number;
};

std::error_code writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return lastError();
        }
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    return {};
}

constexpr mode_t rightsOfMode = 07777;

// False where the access list cannot be carried over; without one there is nothing to carry.
bool copyAccessList(const std::filesystem::path& model, int descriptor)
{
    constexpr const char* name = "system.posix_acl_access";
    std::array<char, 4096> list = {};
    const ssize_t size = ::getxattr(model.c_str(), name, list.data(), list.size());
    if (size < 0) {
        return errno == ENODATA || errno == ENOTSUP;
    }
    return ::fsetxattr(descriptor, name, list.data(), static_cast<std::size_t>(size), 0) == 0;
}

// Until here nobody but the owner could open the file. What the model's group may do, another group may not.
std::error_code takeRights(int descriptor, const std::filesystem::path& model, const struct stat& rights)
{
    constexpr auto same = static_cast<uid_t>(-1);
    mode_t mode = rights.st_mode & rightsOfMode;
    if (::fchown(descriptor, rights.st_uid, rights.st_gid) != 0) {
        mode &= static_cast<mode_t>(S_IRWXU | S_IRWXG | S_IRWXO);
        if (::fchown(descriptor, same, rights.st_gid) != 0) {
            mode &= ~static_cast<mode_t>(S_IRWXG) | ((mode & S_IRWXO) << 3U);
            return ::fchmod(descriptor, mode) == 0 ? std::error_code() : lastError();
        }
    }
    if (!copyAccessList(model, descriptor)) {
        mode &= ~static_cast<mode_t>(S_IRWXG); // the group's part stood for the list
    }
    return ::fchmod(descriptor, mode) == 0 ? std::error_code() : lastError();
}

// For everybody who may write in the folder: it is theirs to wait, too.
mode_t lockRights(const std::filesystem::path& folder)
{
    struct stat status = {};
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    const mode_t writers = ::stat(folder.c_str(), &status) == 0 ? status.st_mode & anyWrite : 0;
    return S_IRUSR | S_IWUSR | writers | (writers << 1U);
}

// Network disks give their locks for writing alone. Where a lock file is not ours to write, reading is tried:
// other disks lock all the same.
int openLockFile(const std::filesystem::path& file)
{
    constexpr int always = O_CLOEXEC | O_NONBLOCK; // it might be a pipe
    int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | always, S_IRUSR | S_IWUSR);
    if (descriptor >= 0) {
        static_cast<void>(::fchmod(descriptor, lockRights(file.parent_path()))); // else it is the owner's
        return descriptor;
    }
    const int whyNotMade = errno;
    descriptor = ::open(file.c_str(), O_RDWR | always);
    if (descriptor < 0 && (errno == EACCES || errno == EPERM || errno == EROFS)) {
        descriptor = ::open(file.c_str(), O_RDONLY | always);
    }
    if (descriptor < 0 && errno == ENOENT && whyNotMade != EEXIST) {
        errno = whyNotMade;
    }
    return descriptor;
}

// One meaning, one word.
std::error_code lockError(int error)
{
    switch (error) {
    case ENOLCK:
    case ENOSYS:
    case EOPNOTSUPP:
    case EINVAL:
        return std::make_error_code(std::errc::not_supported);
    case EPERM:
    case EROFS:
    case EBADF: // a network disk, and a file that is open for reading alone
        return std::make_error_code(std::errc::permission_denied);
    default:
        return {error, std::generic_category()};
    }
}

} // namespace

bool readStart(const std::filesystem::path& file, std::span<char> buffer)
{
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    return descriptor.isOpen() && ::read(descriptor.number(), buffer.data(), buffer.size()) >= 0;
}

std::error_code writeNewFile(const std::filesystem::path& file, std::string_view bytes,
                             const std::optional<std::filesystem::path>& model, Flush flush)
{
    struct stat rights = {};
    if (model && ::stat(model->c_str(), &rights) != 0) {
        return lastError();
    }
    const mode_t mode = model ? S_IRUSR | S_IWUSR : 0666;
    Descriptor descriptor(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!descriptor.isOpen()) {
        return lastError();
    }
    if (const std::error_code error =
            model ? takeRights(descriptor.number(), *model, rights) : std::error_code()) {
        return error;
    }
    if (const std::error_code error = writeAll(descriptor.number(), bytes)) {
        return error;
    }
    if (flush == Flush::Now && ::fsync(descriptor.number()) != 0) {
        return lastError();
    }
    return descriptor.close();
}

std::error_code flushFile(const std::filesystem::path& file)
{
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    return descriptor.isOpen() && ::fsync(descriptor.number()) == 0 ? std::error_code() : lastError();
}

void flushFolder(const std::filesystem::path& folder)
{
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) {
        ::fsync(descriptor.number());
    }
}

std::error_code giveSecondName(const std::filesystem::path& file, const std::filesystem::path& name)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) == 0 && status.st_nlink > 1) {
        return std::make_error_code(std::errc::too_many_links);
    }
    if (::link(file.c_str(), name.c_str()) != 0) {
        return lastError();
    }
    flushFolder(name.parent_path());
    return {};
}

std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (::rename(from.c_str(), to.c_str()) != 0) {
        return lastError();
    }
    flushFolder(to.parent_path());
    return {};
}

std::error_code moveToNewName(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        flushFolder(to.parent_path());
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return lastError();
    }
    // A file system without such a rename: look first.
    struct stat status = {};
    if (::lstat(to.c_str(), &status) == 0) {
        return std::make_error_code(std::errc::file_exists);
    }
    return errno == ENOENT ? replaceFile(from, to) : lastError();
}

AppendFile::~AppendFile()
{
    close();
}

std::error_code AppendFile::create(const std::filesystem::path& file)
{
    close();
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return lastError();
    }
    ::flock(descriptor, LOCK_EX | LOCK_NB); // where the disk knows no locks, it has one owner all the same
    m_handle = descriptor;
    return {};
}

std::error_code AppendFile::append(std::string_view bytes) const
{
    const int descriptor = static_cast<int>(m_handle);
    if (const std::error_code error = writeAll(descriptor, bytes)) {
        return error;
    }
    return ::fdatasync(descriptor) == 0 ? std::error_code() : lastError();
}

void AppendFile::close()
{
    if (isOpen()) {
        ::close(static_cast<int>(std::exchange(m_handle, none)));
    }
}

bool isOpenForAppending(const std::filesystem::path& file)
{
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    return descriptor.isOpen() && ::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0 &&
           errno == EWOULDBLOCK;
}

FileLock::~FileLock()
{
    if (m_handle != none) {
        ::close(static_cast<int>(m_handle));
    }
}

std::error_code FileLock::take(const std::filesystem::path& file)
{
    const int descriptor = openLockFile(file);
    if (descriptor < 0) {
        return lockError(errno);
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const std::error_code error = lockError(errno);
        ::close(descriptor);
        return error;
    }
    m_handle = descriptor;
    return {};
}

bool isPassing(const std::error_code& error)
{
    return error == std::errc::device_or_resource_busy || error == std::errc::text_file_busy ||
           error == std::errc::resource_unavailable_try_again;
}

bool isWritable(const std::filesystem::path& file)
{
    struct stat status = {};
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    return ::stat(file.c_str(), &status) == 0 && (status.st_mode & anyWrite) != 0 &&
           ::access(file.c_str(), W_OK) == 0;
}

bool isWritableFolder(const std::filesystem::path& folder)
{
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

bool isLink(const std::filesystem::path& path)
{
    std::error_code ignored;
    return std::filesystem::is_symlink(path, ignored);
}

bool isHidden(const std::filesystem::path& file)
{
    return file.filename().native().starts_with('.');
}

std::filesystem::path redirectedCopy(const std::filesystem::path& /*file*/)
{
    return {};
}

std::string errorText(const std::error_code& error)
{
    return error.message();
}

std::vector<std::string> utf8Arguments(int argc, char* argv[])
{
    return {argv + 1, argv + argc};
}

Utf8Console::Utf8Console() = default;

Utf8Console::~Utf8Console() = default;

ReadBytes readInput(std::span<char> buffer)
{
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count >= 0) {
            return {static_cast<std::size_t>(count), {}};
        }
        if (errno != EINTR) {
            return {0, lastError()};
        }
    }
}

std::error_code writeOutput(std::string_view bytes)
{
    return writeAll(STDOUT_FILENO, bytes);
}

bool inputIsTerminal()
{
    return ::isatty(STDIN_FILENO) == 1;
}

void surviveFailedWrites()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool consoleClosesWithProgram()
{
    return false;
}

unsigned long processNumber()
{
    return static_cast<unsigned long>(::getpid());
}

std::filesystem::path ownProgram()
{
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored);
}

std::filesystem::path usersDataFolder()
{
    const char* const data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && std::filesystem::path(data).is_absolute()) {
        return data;
    }
    const char* const home = std::getenv("HOME");
    const bool known = home != nullptr && std::filesystem::path(home).is_absolute();
    return known ? std::filesystem::path(home) / ".local" / "share" : std::filesystem::path();
}

} // namespace tavrel::system
