// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <filesystem>
#include <memory>

namespace tavrel {

// A batch file that runs beside this program, and goes on when this program ends.
class RunningBatch
{
public:
    RunningBatch() = default;
    RunningBatch(const RunningBatch&) = delete;
    RunningBatch& operator=(const RunningBatch&) = delete;
    virtual ~RunningBatch() = default;

    virtual bool hasEnded() = 0;
};

// Runs batch files of the level editor with the system's command interpreter.
class BatchRunner
{
public:
    BatchRunner() = default;
    BatchRunner(const BatchRunner&) = delete;
    BatchRunner& operator=(const BatchRunner&) = delete;
    virtual ~BatchRunner() = default;

    // Why this machine can run none; nothing when it can.
    [[nodiscard]] virtual Problem whatIsMissing() const = 0;

    // Does not wait for the end. The folder of the batch file is the current one for it, and for it alone.
    // What it says goes to the file `output`, or to a console window of its own.
    virtual Result<std::unique_ptr<RunningBatch>> start(const std::filesystem::path& batchFile,
                                                        const std::filesystem::path& output) = 0;
};

// Only Windows has console windows for them. Without one, a batch file that waits for a key goes on at once.
enum class BatchConsole { Window, None };

// cmd.exe on Windows; elsewhere that of Wine, under which the level editor itself runs there.
std::unique_ptr<BatchRunner> makeSystemBatchRunner(BatchConsole console = BatchConsole::Window);

} // namespace tavrel
