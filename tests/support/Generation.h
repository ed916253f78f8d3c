// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BatchRunner.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

// Keeps a batch file from being run, and plays its end.
class HeldBatchRunner : public BatchRunner
{
public:
    Problem whatIsMissing() const override { return missing; }
    Result<std::unique_ptr<RunningBatch>> start(const std::filesystem::path& batchFile,
                                                const std::filesystem::path& output) override;

    Problem missing;
    bool succeeds = true;
    std::vector<std::string> started; // what the batch files said
    std::filesystem::path output;
    std::shared_ptr<bool> ended; // of the last one
};

// Lets Wine work in a prefix of the tests' own.
void useWineOfTheTests();

// Puts the stand-in for the level editor's tool into the folder.
void installTool(const std::filesystem::path& creatorFolder);

// An environment variable that tells the stand-in how to behave, for as long as this lives.
class ToolSetting
{
public:
    ToolSetting(const char* name, const std::string& value);
    ToolSetting(const ToolSetting&) = delete;
    ToolSetting& operator=(const ToolSetting&) = delete;
    ~ToolSetting();

private:
    const char* m_name;
};

} // namespace tavrel
