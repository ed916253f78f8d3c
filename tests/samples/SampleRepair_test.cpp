// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"
#include "samples/SampleConversion.h"
#include "samples/SampleRepair.h"
#include "samples/SamplesFolder.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

const std::string stereo = wavBytes({.channels = 2, .seconds = 0.01});
const std::string chunked = wavBytes({.listChunk = true, .seconds = 0.01});
const std::string right = wavBytes({.seconds = 0.01});

class SampleRepair : public testing::Test
{
protected:
    fs::path sample(const std::string& name, const std::string& bytes) const
    {
        writeBytes(folder / name, bytes);
        return folder / name;
    }

    TemporaryFolder root;
    fs::path folder = root / "Samples";
    fs::path originals = root / "Samples_originals";
};

} // namespace

TEST_F(SampleRepair, KeepsEachOriginalAndPutsTheLastOneBack)
{
    const fs::path foot = sample("foot.wav", chunked);
    const auto time = fs::last_write_time(foot) - std::chrono::hours(24 * 365);
    fs::last_write_time(foot, time);
    EXPECT_EQ(repairSample(foot).line().english, "foot.wav: was WAV, PCM, 22050 Hz, mono, 16 bits, 0.01 s");
    EXPECT_EQ(readBytes(foot), right);
    EXPECT_EQ(readBytes(originals / "foot.wav"), chunked);
    EXPECT_EQ(fs::last_write_time(originals / "foot.wav"), time);
    EXPECT_TRUE(repairSample(foot).done);
    EXPECT_EQ(namesIn(originals), Names{"foot.wav"}) << "what is right already has no original";

    sample("foot.wav", chunked);
    repairSample(foot);
    EXPECT_EQ(namesIn(originals), Names{"foot.wav"}) << "the same original again";
    sample("foot.wav", stereo);
    repairSample(foot);
    EXPECT_EQ(readBytes(originals / "2" / "foot.wav"), stereo);
    sample("foot.wav", chunked);
    repairSample(foot);
    EXPECT_EQ(readBytes(originals / "3" / "foot.wav"), chunked);

    for (const auto& [bytes, left] :
         {std::pair{chunked, Names{"2", "foot.wav"}}, {stereo, Names{"foot.wav"}}, {chunked, Names{}}}) {
        repairSample(foot); // what was put back is wrong again, and its copy is kept again
        EXPECT_TRUE(putOriginalBack(foot).done);
        EXPECT_EQ(readBytes(foot), bytes);
        EXPECT_EQ(namesIn(originals), left);
        if (!left.empty()) {
            sample("foot.wav", right); // as if the earlier repair had been the last
        }
    }
    EXPECT_EQ(fs::last_write_time(foot), time);
    EXPECT_FALSE(putOriginalBack(foot).done);
}

TEST_F(SampleRepair, AnOriginalIsNoFileThatAnotherNameLeadsTo)
{
    const fs::path foot = sample("foot.wav", chunked);
    fs::create_hard_link(foot, root / "elsewhere.wav");
    EXPECT_TRUE(repairSample(foot).done);
    std::ofstream(root / "elsewhere.wav", std::ios::binary) << "written in place";
    EXPECT_EQ(readBytes(originals / "foot.wav"), chunked);
}

TEST_F(SampleRepair, WhatWasChangedSinceIsKeptToo)
{
    const fs::path foot = sample("foot.wav", stereo);
    repairSample(foot);
    sample("foot.wav", "of the user");
    const SampleOutcome outcome = putOriginalBack(foot);
    EXPECT_TRUE(outcome.done);
    EXPECT_NE(outcome.text.french.find("ce qui s'y trouvait est conservé sous "), std::string::npos);
    EXPECT_EQ(readBytes(foot), stereo);
    EXPECT_EQ(readBytes(originals / "changed" / "foot.wav"), "of the user");
    EXPECT_FALSE(lastOriginal(foot));

    repairSample(foot);
    fs::remove(foot);
    EXPECT_TRUE(putOriginalBack(foot).done);
    EXPECT_EQ(readBytes(foot), stereo) << "a sample that is gone comes back";
}

TEST_F(SampleRepair, WhatCannotBeRepairedStaysAndIsNamed)
{
    const fs::path locked = sample("locked.wav", stereo);
    fs::permissions(locked, fs::perms::owner_read);
    const fs::path blocked = sample("blocked.wav", stereo);
    writeBytes(root / "other" / "Samples_originals", "a file in the way");
    writeBytes(root / "other" / "Samples" / "blocked.wav", stereo);
    for (const fs::path& file : {locked, sample("text.wav", "no sound"), sample("empty.wav", ""),
                                 root / "other" / "Samples" / "blocked.wav", folder / "missing.wav"}) {
        const std::string before = fs::exists(file) ? readBytes(file) : "";
        const SampleOutcome outcome = repairSample(file);
        EXPECT_FALSE(outcome.done) << file;
        EXPECT_NE(outcome.line().english, outcome.line().french);
        EXPECT_EQ(fs::exists(file) ? readBytes(file) : "", before);
    }
    EXPECT_FALSE(fs::exists(originals));
    EXPECT_EQ(originalsFolder("/"), fs::path());
    EXPECT_EQ(originalsFolder(folder / ""), originals);
    EXPECT_EQ(originalsFolder(folder / "sub" / ".."), originals);
}

TEST_F(SampleRepair, ManyAtOnceAreReportedInTheirOrder)
{
    std::vector<fs::path> samples;
    for (int i = 0; i < 60; ++i) {
        samples.push_back(sample("s" + std::to_string(100 + i) + ".wav", i == 30 ? "no sound" : stereo));
    }
    SilentProgress silent;
    const SampleReport report = runOnSamples(SampleTask::Repair, samples, silent);
    EXPECT_FALSE(report.cancelled);
    ASSERT_EQ(report.outcomes.size(), samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        EXPECT_EQ(report.outcomes[i].sample, samples[i]);
        EXPECT_EQ(report.outcomes[i].done, i != 30);
        EXPECT_EQ(CheckSampleFormatDetailed(samples[i]).valid(), i != 30);
    }
    EXPECT_EQ(namesIn(originals).size(), 59U);
    const std::string text = report.text().english;
    EXPECT_TRUE(text.starts_with("59 samples repaired, 1 not\nThe originals are in " + originals.string() +
                                 "\ns130.wav: "))
        << text;
    const SampleReport back = runOnSamples(SampleTask::PutBack, samples, silent);
    EXPECT_EQ(back.failures(), 1U);
    EXPECT_FALSE(fs::exists(originals));
    EXPECT_EQ(readBytes(samples[0]), stereo);

    class Impatient : public Progress
    {
    public:
        bool show(std::size_t /*done*/, std::size_t /*total*/) override { return false; }
    } impatient;
    for (int i = 0; i < 3000; ++i) {
        samples.push_back(folder / "missing.wav");
    }
    const SampleReport cancelled = runOnSamples(SampleTask::Repair, samples, impatient);
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_NE(cancelled.text().french.find("annulé avant "), std::string::npos);
}
