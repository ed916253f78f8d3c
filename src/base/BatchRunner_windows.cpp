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

class ConsoleRunner : public BatchRunner
{
public:
    Problem whatIsMissing() const override { return std::nullopt; }

    Result<std::unique_ptr<RunningBatch>> start(const fs::path& batchFile,
                                                const fs::path& /*output*/) override
    {
        const fs::path interpreter = commandInterpreter();
        // With /s only the outermost quotes are taken off, whatever the path holds.
        std::wstring line = L"cmd.exe /s /c \"\"" + batchFile.native() + L"\"\"";
        STARTUPINFOW window = {};
        window.cb = sizeof window;
        window.dwFlags = STARTF_USESHOWWINDOW;
        window.wShowWindow = SW_SHOWNORMAL;
        PROCESS_INFORMATION process = {};
        if (CreateProcessW(interpreter.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE,
                           nullptr, batchFile.parent_path().c_str(), &window, &process) == 0) {
            return cannotRead(batchFile, {static_cast<int>(GetLastError()), std::system_category()});
        }
        CloseHandle(process.hThread);
        return std::unique_ptr<RunningBatch>(std::make_unique<ConsoleProcess>(process.hProcess));
    }
};

} // namespace

std::unique_ptr<BatchRunner> makeSystemBatchRunner()
{
    return std::make_unique<ConsoleRunner>();
}

} // namespace tavrel
