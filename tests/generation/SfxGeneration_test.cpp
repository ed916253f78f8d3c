// SPDX-License-Identifier: GPL-3.0-or-later
// The rules around a generation; SfxGenerationRun_test runs it.
#include "base/CodePage.h"
#include "demo/WavFile.h"
#include "generation/SfxGeneration.h"
#include "support/Files.h"
#include "support/Generation.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

using namespace tavrel;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

using Begun = SfxGeneration::Begun;
using Phase = SfxGeneration::Phase;

const std::string confirmation = "OK/Cancel | Generate SFX | Confirm generation\n"
                                 "oasis.SAM and .SFX files will be created from [sounds.txt]";

class SfxGenerationTest : public testing::Test
{
protected:
    SfxGenerationTest()
    {
        fs::create_directories(creator);
        fs::create_directories(wads);
        fs::create_directories(samples);
    }

    void addSample(const std::string& name, const std::string& bytes = wavBytes({.seconds = 0.001}))
    {
        writeBytes(samples / (name + ".wav"), bytes);
    }
    GenerationRequest request()
    {
        return {catalogue, wad, hasUnappliedChanges, {root / "program", root.path(), creator, samples, wads}};
    }
    Begun begin() { return generation.begin(request(), progress, start); }
    Begun beginWith(std::initializer_list<Answer> answers)
    {
        for (const Answer answer : answers) {
            dialogs.prepareAnswer(answer);
        }
        return begin();
    }
    Phase pollAfter(std::chrono::milliseconds time) { return generation.poll(start + time); }
    std::string lastSaid() const { return dialogs.conversation(Language::English).back(); }

    TemporaryFolder root;
    fs::path creator = root / "sound" / "LevelSFX Creator";
    fs::path wads = root / "graphics" / "wads";
    fs::path samples = root / "sound" / "Samples";
    fs::path batchFile = creator / "CreateSFX.bat";
    SoundCatalogue catalogue;
    CurrentWad wad{"oasis", "a", "The oasis"};
    bool hasUnappliedChanges = false;
    SfxGeneration::Clock::time_point start = SfxGeneration::Clock::now();
    ScriptedProgress progress;
    ScriptedDialogs dialogs;
    HeldBatchRunner runner;
    SfxGeneration generation{runner, dialogs};
};

TEST_F(SfxGenerationTest, ErrorsOfTheLevelAreToldBeforeTheConfirmation)
{
    GenerationRequest asked = request();
    asked.acceptsErrors = [] { return false; };
    EXPECT_EQ(generation.begin(asked, progress, start), Begun::NotStarted);
    EXPECT_TRUE(dialogs.conversation(Language::English).empty());
    EXPECT_FALSE(fs::exists(batchFile));
}

TEST_F(SfxGenerationTest, ChecksTheSamplesOfTheWadInTheirOrder)
{
    const std::string wrong = wavBytes({.channels = 2});
    catalogue.append("OTHER:\t\tother\t\t#b", "", 1);
    catalogue.append("OURS:\t\tours missing Second\t\t#a", "", 2);
    catalogue.append("LONGER:\t\tlonger\t\t#ab", "", 3); // starts like ours
    catalogue.append("ALL:\t\tall\t\tVOL10\t#g", "", 4);
    addSample("other", wrong);
    for (const char* name : {"ours", "SECOND", "longer", "all"}) {
        addSample(name);
    }
    EXPECT_EQ(findWrongSample(catalogue, wad, samples, progress), std::nullopt);
    EXPECT_EQ(progress.steps, (std::vector<std::pair<std::size_t, std::size_t>>{
                                  {0, 5}, {1, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}}));
    EXPECT_EQ(progress.said[2], "Generating oasis] SFX files - checking sample integrity : [Second.wav]...");
    for (const char* name : {"all", "longer", "SECOND"}) {
        addSample(name, wrong);
        EXPECT_TRUE(sameName(findWrongSample(catalogue, wad, samples, progress).value_or(""), name)) << name;
    }
    wad.letter = "b";
    EXPECT_EQ(findWrongSample(catalogue, wad, samples, progress), "other");
    fs::remove(samples / "other.wav");
#ifndef _WIN32 // where links take a right that users lack
    fs::create_symlink("nowhere", samples / "other.wav");
    EXPECT_EQ(findWrongSample(catalogue, wad, samples, progress), "all") << "a link to nothing is no file";
#endif
    EXPECT_EQ(findWrongSample(catalogue, wad, root / "none", progress), std::nullopt);
}

TEST_F(SfxGenerationTest, WritesSixLinesAndStartsThem)
{
    wad.letter = "ab";
    writeBytes(batchFile, "left by a crash");
    ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
    EXPECT_EQ(dialogs.conversation(Language::English), std::vector{confirmation});
    EXPECT_EQ(
        dialogs.said()[0].text.french,
        "Confirmer la génération\nLes fichiers oasis.SAM et .SFX seront créés en fonction de [sounds.txt]");
    EXPECT_EQ(runner.started,
              std::vector{textOf({"pcwadsfx oasis ab", R"(copy *.sam ..\..\graphics\wads)",
                                  R"(copy *.sfx ..\..\graphics\wads)", "del *.sam", "del *.sfx", "pause"})});
    EXPECT_EQ(generation.phase(), Phase::Waiting);
}

TEST_F(SfxGenerationTest, CancelChangesNothing)
{
    hasUnappliedChanges = true;
    EXPECT_EQ(beginWith({Answer::Cancel}), Begun::NotStarted);
    EXPECT_EQ(
        dialogs.conversation(Language::English),
        (std::vector<std::string>{"exclamation | Generate SFX | Modifications not applied.", confirmation}));
    EXPECT_EQ(dialogs.said()[0].text.french, "Modifications non appliquées.");
    EXPECT_TRUE(progress.steps.empty());
    EXPECT_TRUE(namesIn(creator).empty());
    EXPECT_EQ(pollAfter(10s), Phase::Idle);
}

TEST_F(SfxGenerationTest, AWrongSampleEndsItBeforeAnythingIsWritten)
{
    catalogue.append("OURS:\t\tours\t\t#a", "", 1);
    addSample("ours", "");
    EXPECT_EQ(beginWith({Answer::Ok}), Begun::WrongSample);
    EXPECT_TRUE(namesIn(creator).empty());
    EXPECT_EQ(generation.phase(), Phase::Idle);
    EXPECT_EQ(wrongSamplesMessage().text.english,
              "Some samples are in the wrong format\nGenerating SFX Files aborted\n"
              "Please check the entire \\Samples directory. Click on [OK] to proceed");
}

TEST_F(SfxGenerationTest, RefusesWhatTheInterpreterWouldMisread)
{
    struct Case
    {
        const char* wadName;
        const char* letter;
    };
    for (const Case c : {Case{"a&b", "a"},
                         {"a|b", "a"},
                         {"a<b", "a"},
                         {"a>b", "a"},
                         {"a^b", "a"},
                         {"%PATH%", "a"},
                         {"a\"b", "a"},
                         {"a'b", "a"},
                         {"a b", "a"},
                         {"a\tb", "a"},
                         {"\xE9t\xE9", "a"},
                         {"..\\x", "a"},
                         {"con", "a"},
                         {"oasis", "&"},
                         {"oasis", "%"},
                         {"oasis", "\xE9"},
                         {"oasis", " "}}) {
        wad = {c.wadName, c.letter, ""};
        EXPECT_EQ(begin(), Begun::NotStarted) << c.wadName << " " << c.letter;
        EXPECT_TRUE(lastSaid().starts_with(
            "exclamation | Generate SFX | The tool of the level editor cannot be called for"));
    }
    EXPECT_NE(dialogs.said().back().text.french.find("\n[oasis] [ ]\n"), std::string::npos);
}

TEST_F(SfxGenerationTest, RefusesWhenSomethingIsMissing)
{
    wad.letter.clear();
    EXPECT_EQ(begin(), Begun::NotStarted);
    EXPECT_EQ(lastSaid(), "exclamation | Generate SFX | Select a WAD/Letter reference first");
    wad.letter = "a";
    runner.missing = Failure{{"no Wine", "pas de Wine"}};
    EXPECT_EQ(begin(), Begun::NotStarted);
    EXPECT_EQ(lastSaid(), "exclamation | Generate SFX | no Wine");
    runner.missing.reset();
    fs::remove(wads);
    EXPECT_EQ(begin(), Begun::NotStarted);
    EXPECT_TRUE(lastSaid().starts_with("exclamation | Generate SFX | There is no folder for the results:\n"));
    EXPECT_TRUE(namesIn(creator).empty());
}

TEST_F(SfxGenerationTest, SaysWhenTheFolderCannotBeUsed)
{
    const auto expectImpossible = [this](const fs::path& folder) {
        EXPECT_EQ(lastSaid(), "critical | Generate SFX | Impossible to create SFX files from folder\n" +
                                  (folder / "").string() +
                                  "\nCheck your user authorizations for this folder");
        EXPECT_EQ(generation.phase(), Phase::Idle);
        EXPECT_TRUE(runner.started.empty());
    };
    const fs::path usual = creator;
    for (const fs::path& folder : {fs::path("relative"), fs::path("/" + usual.string()), usual / "none"}) {
        creator = folder;
        EXPECT_EQ(beginWith({Answer::Ok}), Begun::NotStarted);
        expectImpossible(folder);
    }
    creator = usual;
    fs::create_directory(batchFile);
    EXPECT_EQ(beginWith({Answer::Ok}), Begun::NotStarted);
    expectImpossible(usual);
    fs::remove(batchFile);
    runner.succeeds = false;
    EXPECT_EQ(beginWith({Answer::Ok}), Begun::NotStarted);
    expectImpossible(usual);
    EXPECT_TRUE(namesIn(creator).empty()) << "a batch file that was not started goes again";
}

TEST_F(SfxGenerationTest, AsksBeforeFilesOfOtherLevelsAreMoved)
{
    writeBytes(creator / "OASIS.sfx", "our own");
    writeBytes(creator / "karnak.SAM", "");
    writeBytes(creator / "city.sfx", "");
    EXPECT_EQ(beginWith({Answer::Ok, Answer::No}), Begun::NotStarted);
    const ScriptedDialogs::Said& asked = dialogs.said().back();
    EXPECT_TRUE(asked.refusalIsDefault);
    EXPECT_NE(asked.text.english.find("karnak.SAM\ncity.sfx\n"), std::string::npos) << asked.text.english;
    EXPECT_EQ(asked.text.english.find("OASIS"), std::string::npos);
    EXPECT_FALSE(fs::exists(batchFile));
    EXPECT_EQ(beginWith({Answer::Ok, Answer::Yes}), Begun::Started);
}

TEST_F(SfxGenerationTest, TheBatchFileStaysUntilTheConsoleIsClosed)
{
    ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
    EXPECT_EQ(pollAfter(3s), Phase::ConsoleOpen);
    EXPECT_TRUE(fs::exists(batchFile));
    EXPECT_EQ(begin(), Begun::NotStarted);
    EXPECT_TRUE(lastSaid().starts_with(
        "exclamation | Generate SFX | The last generation is still running. Wait until it "
        "has ended."));
    *runner.ended = true;
    EXPECT_EQ(beginWith({Answer::Cancel}), Begun::NotStarted) << "noticed by the next generation";
    EXPECT_FALSE(fs::exists(batchFile));
    EXPECT_EQ(generation.phase(), Phase::Idle);
}

TEST_F(SfxGenerationTest, OffersToStopWaitingInVain)
{
    ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
    const fs::path bank = creator / "Oasis.SFX";
    writeBytes(bank, "first");
    EXPECT_EQ(pollAfter(3s), Phase::Waiting);
    EXPECT_EQ(pollAfter(30s), Phase::Waiting);
    writeBytes(bank, "it grows");
    EXPECT_EQ(pollAfter(33s), Phase::Waiting) << "not in vain: it has changed";
    EXPECT_EQ(pollAfter(62s), Phase::Waiting);
    dialogs.prepareAnswer(Answer::No);
    EXPECT_EQ(pollAfter(63s), Phase::Waiting);
    EXPECT_NE(lastSaid().find(bank.string()), std::string::npos);
    EXPECT_EQ(pollAfter(95s), Phase::Waiting) << "the time for the answer does not count";
    *runner.ended = true;
    EXPECT_EQ(pollAfter(97s), Phase::Waiting);
    EXPECT_EQ(dialogs.said().size(), 2U);
    dialogs.prepareAnswer(Answer::Yes);
    EXPECT_EQ(pollAfter(98s), Phase::Idle) << "sooner, when nothing runs any more";
    EXPECT_EQ(namesIn(creator), std::vector<std::string>{"Oasis.SFX"});
    EXPECT_EQ(generation.summary().english, "No new .SAM and .SFX files of [oasis]");
}

TEST_F(SfxGenerationTest, OneAtATimeEvenInTwoWindows)
{
    fs::create_directory(root / "program");
    ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
    HeldBatchRunner secondRunner;
    SfxGeneration second(secondRunner, dialogs);
    dialogs.prepareAnswer(Answer::Ok);
    EXPECT_EQ(second.begin(request(), progress, start), Begun::NotStarted);
    EXPECT_TRUE(lastSaid().starts_with("exclamation | Generate SFX | Another window or command of Tavrel"));
    GenerationRequest fromElsewhere = request(); // another installation, the same level editor
    fromElsewhere.places.program = root / "other program";
    fs::create_directory(fromElsewhere.places.program);
    dialogs.prepareAnswer(Answer::Ok);
    EXPECT_EQ(second.begin(fromElsewhere, progress, start), Begun::NotStarted);
    *runner.ended = true;
    EXPECT_EQ(pollAfter(3s), Phase::Idle);
    dialogs.prepareAnswer(Answer::Ok);
    EXPECT_EQ(second.begin(request(), progress, start), Begun::Started);
}

TEST_F(SfxGenerationTest, FilesThatAnEarlierRunLeftAreNoResults)
{
    for (const bool isNew : {false, true}) {
        for (const char* name : {"oasis.sam", "oasis.sfx"}) {
            writeBytes(creator / name, "left");
            fs::remove(wads / name);
        }
        ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
        for (const char* name : {"oasis.sam", "oasis.sfx"}) {
            if (isNew) {
                writeBytes(creator / name, "of the tool");
            }
            fs::rename(creator / name, wads / name); // keeps the time, as the copies of the batch file do
        }
        *runner.ended = true;
        EXPECT_EQ(pollAfter(3s), Phase::Idle);
        EXPECT_EQ(generation.hasResults(), isNew);
    }
}

TEST_F(SfxGenerationTest, AFolderThatCannotBeListedIsNoResult)
{
    ASSERT_EQ(beginWith({Answer::Ok}), Begun::Started);
    fs::rename(creator, root / "away");
    EXPECT_EQ(pollAfter(3s), Phase::Waiting);
    dialogs.prepareAnswer(Answer::No);
    EXPECT_EQ(pollAfter(34s), Phase::Waiting);
    EXPECT_EQ(pollAfter(35s), Phase::Waiting) << "asked anew only after a while";
    EXPECT_EQ(dialogs.said().size(), 2U);
    fs::rename(root / "away", creator);
    EXPECT_EQ(pollAfter(36s), Phase::ConsoleOpen);
}

TEST_F(SfxGenerationTest, QuittingTakesTheBatchFileAwayWhenItHasDoneItsWork)
{
    writeBytes(wads / "oasis.sam", "");
    writeBytes(wads / "oasis.sfx", "old");
    for (const bool copied : {false, true}) {
        ScriptedDialogs ok{Answer::Ok};
        {
            SfxGeneration quit(runner, ok);
            ASSERT_EQ(quit.begin(request(), progress, start), Begun::Started);
            if (copied) {
                writeBytes(wads / "oasis.sam", "new");
                writeBytes(wads / "oasis.sfx", "new one");
            }
        }
        EXPECT_EQ(fs::exists(batchFile), !copied);
    }
}

} // namespace
