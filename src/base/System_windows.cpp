// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/System.h"

#include <windows.h>

#include <aclapi.h>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <shellapi.h>

namespace tavrel::system {

namespace {

std::error_code lastError()
{
    return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code writeAll(HANDLE file, std::string_view bytes)
{
    constexpr std::size_t largestStep = 1U << 20U;
    while (!bytes.empty()) {
        const auto step = static_cast<DWORD>(std::min(bytes.size(), largestStep));
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), step, &written, nullptr) == 0) {
            return lastError();
        }
        bytes.remove_prefix(written);
    }
    return {};
}

bool hasAttribute(const std::filesystem::path& file, DWORD attributes)
{
    const DWORD found = GetFileAttributesW(file.c_str());
    return found != INVALID_FILE_ATTRIBUTES && (found & attributes) != 0;
}

// Who may do what with a file. Empty where the disk keeps no such list.
class AccessList
{
public:
    explicit AccessList(const std::filesystem::path& file)
    {
        std::wstring name = file.native();
        if (GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                  &m_list, nullptr, &m_descriptor) != ERROR_SUCCESS) {
            m_descriptor = nullptr;
        }
    }
    AccessList(const AccessList&) = delete;
    AccessList& operator=(const AccessList&) = delete;
    ~AccessList() { LocalFree(m_descriptor); }

    PSECURITY_DESCRIPTOR descriptor() const { return m_descriptor; }

    // Given at its creation, the file has the list from the first moment; given again, it inherits from its
    // folder what the model does. Without that, it is no less private.
    void letInheritAlike(const std::filesystem::path& file) const
    {
        SECURITY_DESCRIPTOR_CONTROL control = 0;
        DWORD revision = 0;
        if (m_descriptor == nullptr || GetSecurityDescriptorControl(m_descriptor, &control, &revision) == 0) {
            return;
        }
        const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                                     ? PROTECTED_DACL_SECURITY_INFORMATION
                                                     : UNPROTECTED_DACL_SECURITY_INFORMATION;
        std::wstring name = file.native();
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr,
                              nullptr, m_list, nullptr);
    }

private:
    PACL m_list = nullptr;
    PSECURITY_DESCRIPTOR m_descriptor = nullptr;
};

std::error_code createFile(const std::filesystem::path& file, std::string_view bytes, DWORD attributes,
                           PSECURITY_DESCRIPTOR rights, Flush flush)
{
    SECURITY_ATTRIBUTES security = {sizeof(SECURITY_ATTRIBUTES), rights, FALSE};
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, &security, CREATE_NEW, attributes, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    std::error_code error = writeAll(handle, bytes);
    if (!error && flush == Flush::Now && FlushFileBuffers(handle) == 0) {
        error = lastError();
    }
    CloseHandle(handle);
    return error;
}

HANDLE openLockFile(const std::filesystem::path& file)
{
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_HIDDEN, nullptr);
    // Not ours to write: reading locks as well.
    return handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_ACCESS_DENIED
               ? CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                             nullptr)
               : handle;
}

} // namespace

bool readStart(const std::filesystem::path& file, std::span<char> buffer)
{
    constexpr DWORD othersMay = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, othersMay, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    DWORD count = 0;
    const BOOL read = ReadFile(handle, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr);
    CloseHandle(handle);
    return read != FALSE;
}

std::error_code writeNewFile(const std::filesystem::path& file, std::string_view bytes,
                             const std::optional<std::filesystem::path>& model, Flush flush)
{
    if (!model) {
        return createFile(file, bytes, FILE_ATTRIBUTE_NORMAL, nullptr, flush);
    }
    constexpr DWORD keptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const DWORD attributes = GetFileAttributesW(model->c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return lastError();
    }
    const AccessList rights(*model);
    const DWORD kept = attributes & keptAttributes;
    const std::error_code error =
        createFile(file, bytes, kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL, rights.descriptor(), flush);
    if (!error) {
        rights.letInheritAlike(file);
    }
    return error;
}

std::error_code flushFile(const std::filesystem::path& file)
{
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    const std::error_code error = FlushFileBuffers(handle) == 0 ? lastError() : std::error_code();
    CloseHandle(handle);
    return error;
}

void flushFolder(const std::filesystem::path& /*folder*/) {} // moves are written through

std::error_code giveSecondName(const std::filesystem::path& file, const std::filesystem::path& name)
{
    const HANDLE handle = CreateFileW(file.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    BY_HANDLE_FILE_INFORMATION information = {};
    const bool isKnown = GetFileInformationByHandle(handle, &information) != 0;
    CloseHandle(handle);
    if (!isKnown || information.nNumberOfLinks > 1) {
        return std::make_error_code(std::errc::too_many_links);
    }
    return CreateHardLinkW(name.c_str(), file.c_str(), nullptr) != 0 ? std::error_code() : lastError();
}

std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to)
{
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return MoveFileExW(from.c_str(), to.c_str(), flags) != 0 ? std::error_code() : lastError();
}

std::error_code moveToNewName(const std::filesystem::path& from, const std::filesystem::path& to)
{
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0 ? std::error_code()
                                                                              : lastError();
}

AppendFile::~AppendFile()
{
    close();
}

std::error_code AppendFile::create(const std::filesystem::path& file)
{
    close();
    // Others may read it; that they may not write tells that it has an owner.
    const HANDLE handle = CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    m_handle = reinterpret_cast<std::intptr_t>(handle);
    return {};
}

std::error_code AppendFile::append(std::string_view bytes) const
{
    const auto handle = reinterpret_cast<HANDLE>(m_handle);
    if (const std::error_code error = writeAll(handle, bytes)) {
        return error;
    }
    return FlushFileBuffers(handle) != 0 ? std::error_code() : lastError();
}

void AppendFile::close()
{
    if (isOpen()) {
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
        m_handle = none;
    }
}

bool isOpenForAppending(const std::filesystem::path& file)
{
    const HANDLE handle = CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        CloseHandle(handle);
        return false;
    }
    return GetLastError() == ERROR_SHARING_VIOLATION;
}

FileLock::~FileLock()
{
    if (m_handle != none) {
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
    }
}

std::error_code FileLock::take(const std::filesystem::path& file)
{
    const HANDLE handle = openLockFile(file);
    if (handle != INVALID_HANDLE_VALUE) {
        m_handle = reinterpret_cast<std::intptr_t>(handle);
        return {};
    }
    switch (GetLastError()) {
    case ERROR_SHARING_VIOLATION:
        return std::make_error_code(std::errc::resource_unavailable_try_again);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return std::make_error_code(std::errc::permission_denied);
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return std::make_error_code(std::errc::no_such_file_or_directory);
    default:
        return lastError();
    }
}

bool isPassing(const std::error_code& error)
{
    // A virus scanner or indexer that looks at a fresh file shows as either.
    return error.value() == ERROR_SHARING_VIOLATION || error.value() == ERROR_LOCK_VIOLATION ||
           error.value() == ERROR_ACCESS_DENIED;
}

bool isWritable(const std::filesystem::path& file)
{
    if (hasAttribute(file, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) {
        return false;
    }
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION; // in use is not forbidden
    }
    CloseHandle(handle);
    return true;
}

bool isWritableFolder(const std::filesystem::path& folder)
{
    // Access lists and redirection make every answer but a try a guess.
    const std::filesystem::path probe = folder / L"Tavrel_write_test.tavrel-new";
    const HANDLE handle = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    CloseHandle(handle);
    return true;
}

bool isLink(const std::filesystem::path& path)
{
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    // Files that are kept in a cloud are reparse points as well.
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

bool isHidden(const std::filesystem::path& file)
{
    return hasAttribute(file, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
}

std::filesystem::path redirectedCopy(const std::filesystem::path& file)
{
    const wchar_t* local = _wgetenv(L"LOCALAPPDATA");
    if (local == nullptr || !file.has_root_name()) {
        return {};
    }
    const std::filesystem::path copy = std::filesystem::path(local) / L"VirtualStore" / file.relative_path();
    std::error_code ignored;
    return std::filesystem::is_regular_file(copy, ignored) ? copy : std::filesystem::path();
}

std::string errorText(const std::error_code& error)
{
    // The standard library's text is in the code page of the system, which may be none of a catalogue's.
    std::array<wchar_t, 512> text = {};
    const DWORD length = error.category() != std::system_category()
                             ? 0
                             : FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                              nullptr, static_cast<DWORD>(error.value()), 0, text.data(),
                                              static_cast<DWORD>(text.size()), nullptr);
    if (length == 0) {
        return utf8FromCodePage(error.message());
    }
    const std::wstring wide(text.data(), length);
    return displayPath(std::filesystem::path(wide.substr(0, wide.find_last_not_of(L"\r\n ") + 1)));
}

std::vector<std::string> utf8Arguments(int /*argc*/, char* /*argv*/[])
{
    // The ones that come with main() have lost what the code page lacks.
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        arguments.push_back(displayPath(std::filesystem::path(wide[i])));
    }
    LocalFree(wide);
    return arguments;
}

Utf8Console::Utf8Console() : m_before(GetConsoleOutputCP())
{
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Console::~Utf8Console()
{
    if (m_before != 0) {
        SetConsoleOutputCP(m_before);
    }
}

ReadBytes readInput(std::span<char> buffer)
{
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(buffer.size());
    if (ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer.data(), wanted, &count, nullptr) != 0) {
        return {count, {}};
    }
    const std::error_code error = lastError();
    return {0, error.value() == ERROR_BROKEN_PIPE ? std::error_code() : error}; // the writer has ended
}

std::error_code writeOutput(std::string_view bytes)
{
    const std::error_code error = writeAll(GetStdHandle(STD_OUTPUT_HANDLE), bytes);
    constexpr std::array<int, 3> whenReaderHasGone = {ERROR_NO_DATA, ERROR_BROKEN_PIPE,
                                                      ERROR_PIPE_NOT_CONNECTED};
    const bool readerHasGone = std::ranges::find(whenReaderHasGone, error.value()) != whenReaderHasGone.end();
    return readerHasGone ? std::make_error_code(std::errc::broken_pipe) : error;
}

bool inputIsTerminal()
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

void surviveFailedWrites() {}

bool consoleClosesWithProgram()
{
    DWORD processes[2] = {};
    return GetConsoleProcessList(processes, 2) == 1;
}

unsigned long processNumber()
{
    return GetCurrentProcessId();
}

std::filesystem::path ownProgram()
{
    constexpr DWORD longestPath = 32768;
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), longestPath));
    return path;
}

std::filesystem::path usersDataFolder()
{
    return {};
}

} // namespace tavrel::system
