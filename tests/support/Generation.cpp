// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Generation.h"

#include "support/Files.h"

#include <cstdlib>

namespace tavrel {

namespace {

class HeldBatch : public RunningBatch
{
public:
    explicit HeldBatch(std::shared_ptr<bool> ended) : m_ended(std::move(ended)) {}
    bool hasEnded() override { return *m_ended; }

private:
    std::shared_ptr<bool> m_ended;
};

} // namespace

Result<std::unique_ptr<RunningBatch>> HeldBatchRunner::start(const std::filesystem::path& batchFile,
                                                             const std::filesystem::path& outputFile)
{
    if (!succeeds) {
        return Failure{{"no", "non"}};
    }
    started.push_back(readBytes(batchFile));
    output = outputFile;
    ended = std::make_shared<bool>(false);
    return std::unique_ptr<RunningBatch>(std::make_unique<HeldBatch>(ended));
}

void useWineOfTheTests()
{
    ::setenv("WINEPREFIX", TAVREL_WINE_PREFIX, 1);
    ::setenv("WINEDEBUG", "-all", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::unsetenv("DISPLAY"); // no window of Wine's own
}

void installTool(const std::filesystem::path& creatorFolder)
{
    std::filesystem::copy_file(TAVREL_STAND_IN, creatorFolder / "pcwadsfx.exe");
}

ToolSetting::ToolSetting(const char* name, const std::string& value) : m_name(name)
{
    ::setenv(name, value.c_str(), 1);
}

ToolSetting::~ToolSetting()
{
    ::unsetenv(m_name);
}

} // namespace tavrel
