// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"
#include "samples/SamplePlayer.h"
#include "samples/SampleUsers.h"
#include "samples/SamplesFolder.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <set>

using namespace tavrel;
namespace fs = std::filesystem;

TEST(SamplesFolder, ListsRegularWavFilesOfAnyLetterCase)
{
    const TemporaryFolder root;
    for (const char* name :
         {"a.wav", "B.WAV", "c.Wav", "d.wav.bak", "e.wavold", "wav", "f.mp3", ".hidden.wav"}) {
        writeBytes(root / name, "");
    }
    fs::create_directory(root / "folder.wav");
    const auto samples = listSamples(root.path());
    ASSERT_TRUE(samples);
    std::set<std::string> names;
    for (const SampleFile& sample : *samples) {
        names.insert(sample.name);
        EXPECT_TRUE(fs::exists(sample.path));
    }
    EXPECT_EQ(names, (std::set<std::string>{"a.wav", "B.WAV", "c.Wav"}));
    EXPECT_FALSE(listSamples(root / "missing"));
}

TEST(SamplesFolder, NamesNeverLeaveTheFolder)
{
    const TemporaryFolder root;
    writeBytes(root / "outside.wav", "");
    writeBytes(root / "samples" / ".dot.wav", "");
    writeBytes(root / "samples" / "\xE6\x97\xA5.wav", ""); // one character that the code page lacks
    writeBytes(root / "samples" / "Step.WAV", "");
    const fs::path samples = root / "samples";
    EXPECT_EQ(findSample(samples, "step"), samples / "Step.WAV");
    for (const char* name :
         {"../outside", "..\\outside", "sub/../../outside", "step.wav", "st*", "", ".", ".dot", "?"}) {
        EXPECT_FALSE(findSample(samples, name)) << name;
    }
    EXPECT_FALSE(findSample(samples, (root / "outside").string()));
}

TEST(SamplesFolder, SoundsWithoutOneOfTheirSamplesAreFound)
{
    const TemporaryFolder root;
    writeBytes(root / "a.WAV", "");
    SoundCatalogue catalogue;
    for (const char* line : {"ONE:\tA\t", "TWO:\ta b\t", "NONE:\t\t"}) {
        catalogue.append(line, line, 0);
    }
    const auto missing = soundsWithMissingSamples(catalogue, root.path());
    ASSERT_TRUE(missing);
    EXPECT_EQ(*missing, std::set<std::size_t>{1});
    EXPECT_FALSE(soundsWithMissingSamples(catalogue, root / "missing"));
}

TEST(SamplesFolder, NamesOfFiles)
{
    struct Case
    {
        const char* file;
        const char* played;
        std::optional<std::string> chosen;
    };
    for (const Case& c :
         {Case{"a.wav", "a", "a"},
          {"a.wav.wav", "a", "a"},
          {"A.WAV", "A.WAV", std::nullopt},
          {"a.Wav", "a.Wav", std::nullopt},
          {".WAV", ".WAV", ""}}) { // found in itself: the test for capitals looks the other way
        EXPECT_EQ(sampleNameOf(c.file), c.played);
        EXPECT_EQ(chosenSampleName(c.file), c.chosen) << c.file;
    }
}

TEST(SamplesFolder, ChecksEveryFileInTheOrderOfTheListing)
{
    const TemporaryFolder root;
    writeBytes(root / "good.wav", wavBytes({}));
    writeBytes(root / "stereo.wav", wavBytes({.channels = 2}));
    writeBytes(root / "gone.wav", wavBytes({}));
    const auto files = listSamples(root.path());
    ASSERT_TRUE(files);
    SamplesCheck check(*files);
    fs::remove(root / "gone.wav");
    for (const SampleFile& file : *files) {
        ASSERT_FALSE(check.finished());
        EXPECT_EQ(check.next().name, file.name);
        EXPECT_EQ(check.checkNext().valid(), file.name == "good.wav") << file.name;
    }
    EXPECT_TRUE(check.finished());
    EXPECT_EQ(check.checked(), 3U);
}

namespace {

class RecordedPlayer : public SamplePlayer
{
public:
    Problem start(const fs::path& file) override
    {
        played.push_back(file.filename().string());
        return std::nullopt;
    }
    void end() override {}

    std::vector<std::string> played;
};

} // namespace

TEST(SamplesFolder, PlaysWhatIsThereAndNamesWhatIsNot)
{
    const TemporaryFolder root;
    writeBytes(root / "Step.WAV", wavBytes({}));
    RecordedPlayer player;
    ScriptedDialogs dialogs;
    EXPECT_FALSE(PlaySample(player, root.path(), "", dialogs));
    EXPECT_FALSE(PlaySample(player, root.path(), "step", dialogs));
    EXPECT_TRUE(dialogs.said().empty());
    EXPECT_FALSE(PlaySample(player, root.path(), "other", dialogs));
    EXPECT_EQ(player.played, std::vector<std::string>{"Step.WAV"});
    const std::string folder = (root.path() / "").string();
    EXPECT_EQ(
        dialogs.conversation(Language::English),
        std::vector<std::string>{"exclamation | Play | The sample [other.wav] doesn't exist\nin " + folder});
    EXPECT_EQ(
        dialogs.conversation(Language::French),
        std::vector<std::string>{"exclamation | Jouer | Le sample [other.wav] n'existe pas\ndans " + folder});
}
