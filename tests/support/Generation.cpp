// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Generation.h"

#include "support/Files.h"

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

} // namespace tavrel
