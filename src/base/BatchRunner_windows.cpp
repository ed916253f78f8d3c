// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BatchRunner.h"
#include "base/FailureTexts.h"

#include <windows.h>

#include <string>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

class ConsoleProcess : public RunningBatch
{
public:
    explicit ConsoleProcess(HANDLE process) : m_process(process) {}
    ~ConsoleProcess() override { CloseHandle(m_process); }

    bool hasEnded() override { return WaitForSingleObject(m_process, 0) != WAIT_TIMEOUT; }

private:
    HANDLE m_process;
};

fs::path commandInterpreter()
{
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
    return fs::path(folder) / L"cmd.exe";
}

// A file that the child may use.
class InheritedFile
{
public:
    InheritedFile(const wchar_t* path, DWORD access, DWORD disposition)
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        m_handle = CreateFileW(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    InheritedFile(const InheritedFile&) = delete;
    InheritedFile& operator=(const InheritedFile&) = delete;
    ~InheritedFile()
    {
        if (m_handle != INVALID_HANDLE_VALUE) {
            CloseHandle(m_handle);
        }
    }

    HANDLE handle() const { return m_handle; }

private:
    HANDLE m_handle;
};

Result<std::unique_ptr<RunningBatch>> startInterpreter(const fs::path& batchFile, DWORD flags,
                                                       STARTUPINFOW& startup)
{
    const fs::path interpreter = commandInterpreter();
    // With /s only the outermost quotes are taken off, whatever the path holds.
    std::wstring line = L"cmd.exe /s /c \"\"" + batchFile.native() + L"\"\"";
    const BOOL inherits = (startup.dwFlags & STARTF_USESTDHANDLES) != 0 ? TRUE : FALSE;
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(interpreter.c_str(), line.data(), nullptr, nullptr, inherits, flags, nullptr,
                       batchFile.parent_path().c_str(), &startup, &process) == 0) {
        return cannotRead(batchFile, {static_cast<int>(GetLastError()), std::system_category()});
    }
    CloseHandle(process.hThread);
    return std::unique_ptr<RunningBatch>(std::make_unique<ConsoleProcess>(process.hProcess));
}

class ConsoleRunner : public BatchRunner
{
public:
    explicit ConsoleRunner(BatchConsole console) : m_console(console) {}

    Problem whatIsMissing() const override { return std::nullopt; }

    Result<std::unique_ptr<RunningBatch>> start(const fs::path& batchFile, const fs::path& output) override
    {
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        if (m_console == BatchConsole::Window) {
            startup.dwFlags = STARTF_USESHOWWINDOW;
            startup.wShowWindow = SW_SHOWNORMAL;
            return startInterpreter(batchFile, CREATE_NEW_CONSOLE, startup);
        }
        const InheritedFile nothing(L"NUL", GENERIC_READ, OPEN_EXISTING);
        const InheritedFile kept(output.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = nothing.handle();
        startup.hStdOutput = kept.handle();
        startup.hStdError = kept.handle();
        return startInterpreter(batchFile, CREATE_NO_WINDOW, startup);
    }

private:
    BatchConsole m_console;
};

} // namespace

std::unique_ptr<BatchRunner> makeSystemBatchRunner(BatchConsole console)
{
    return std::make_unique<ConsoleRunner>(console);
}

} // namespace tavrel
