// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FolderReplacement.h"
#include "generation/ReferenceCopies.h"
#include "generation/RestoreDefaults.h"
#include "support/Files.h"
#include "support/Generation.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

constexpr int samplesBytes = 12886344;
constexpr int samplesFiles = 497;

const std::string aborted = "Restore function aborted";

// Acts at one step of a long command.
class MeddlingProgress : public Progress
{
public:
    bool show(std::size_t done, std::size_t /*total*/) override
    {
        if (done == 100 && meddle) {
            meddle();
        }
        return true;
    }

    std::function<void()> meddle;
};

class RestoreDefaultsTest : public testing::Test
{
protected:
    RestoreDefaultsTest()
    {
        writeBytes(creator / "SOUNDS.TXT", "the user's");
        writeBytes(samples / "mine.wav", "mine");
        writeBytes(samples / "F1.WAV", "an old one");
        fs::permissions(samples / "F1.WAV", fs::perms::owner_read);
        writeBytes(wads / "KARNAK.sam", "changed");
        writeBytes(wads / "oasis.sam", "another level's");
        writeBytes(program / "TAVREL.TOS", "STOCK:one");
    }

    void installSamples(int files = samplesFiles, int bytes = samplesBytes)
    {
        for (int i = 1; i <= files; ++i) {
            const int size = i < files ? bytes / files : bytes - (files - 1) * (bytes / files);
            writeBytes(program / "samples_orig" / ("f" + std::to_string(i) + ".wav"),
                       std::string(static_cast<std::size_t>(size), 'x'));
        }
    }
    void installSfx(int bytes = 43145)
    {
        for (const std::string_view level : stockLevels) {
            const bool last = level == "tut1";
            writeBytes(program / "SFX_ORIG" / (std::string(level) + ".sam"), "stock");
            writeBytes(program / "SFX_ORIG" / (std::string(level) + ".sfx"),
                       std::string(last ? static_cast<std::size_t>(bytes - 11 * 5) : 0, 'x'));
        }
    }

    RestoreResult restore(const RestoreChoice& choice)
    {
        return restoreDefaults(
            choice, {{program, {}, creator, samples, wads}, [this] { ++stops; }, progress, dialogs});
    }
    // Each disk lists its files in an order of its own.
    std::string notYetCopied() const
    {
        const std::vector<std::string> copied = namesIn(samples.parent_path() / "Samples_incoming");
        const std::vector<std::string> all = namesIn(program / "samples_orig");
        return *std::ranges::find_if(
            all, [&](const std::string& name) { return std::ranges::count(copied, name) == 0; });
    }
    std::string lastSaid(Language language = Language::English) const
    {
        return dialogs.conversation(language).back();
    }
    void expectUntouched() const
    {
        EXPECT_EQ(namesIn(samples), (std::vector<std::string>{"F1.WAV", "mine.wav"}));
        EXPECT_EQ(namesIn(samples.parent_path()), (std::vector<std::string>{"LevelSFX Creator", "Samples"}));
        EXPECT_EQ(namesIn(wads), (std::vector<std::string>{"KARNAK.sam", "oasis.sam"}));
    }

    TemporaryFolder root;
    fs::path program = root / "program";
    fs::path creator = root / "sound" / "LevelSFX Creator";
    fs::path samples = root / "sound" / "Samples";
    fs::path wads = root / "graphics" / "wads";
    MeddlingProgress progress;
    ScriptedDialogs dialogs;
    int stops = 0;
};

constexpr RestoreChoice everything{true, true, true};
constexpr RestoreChoice catalogueOnly{true, false, false};
constexpr RestoreChoice samplesOnly{false, true, false};
constexpr RestoreChoice sfxOnly{false, false, true};

TEST_F(RestoreDefaultsTest, PutsEverythingBackAndKeepsWhatWasThere)
{
    installSamples();
    installSfx();
    writeBytes(samples / "sub" / "deep.wav", "not of this folder");
    writeBytes(samples / ".hidden", "");
    writeBytes(program / "samples_orig" / ".hidden", "counts for nothing");
    const RestoreResult result = restore(everything);
    EXPECT_TRUE(result.complete && result.catalogueReplaced);
    EXPECT_EQ(lastSaid(), "information | Restore | Restore of following elements :\n- [Sounds.txt] File\n"
                          "- [\\Samples] Directory\n- [SAM/SFX] Files\ncomplete.");
    EXPECT_EQ(lastSaid(Language::French),
              "information | Restaurer | Restauration des éléments suivants :\n- Fichier [Sounds.txt]\n"
              "- Répertoire [\\Samples]\n- Fichiers [SAM/SFX]\nTerminée.");
    EXPECT_EQ(dialogs.said().size(), 1U);
    EXPECT_EQ(stops, 1);

    EXPECT_EQ(namesIn(creator), (std::vector<std::string>{"SOUNDS.TXT", "Sounds_replaced.txt"}));
    EXPECT_EQ(readBytes(creator / "SOUNDS.TXT"), "STOCK:one");
    EXPECT_EQ(readBytes(creator / "Sounds_replaced.txt"), "the user's");

    EXPECT_EQ(namesIn(samples).size(), 497U + 2U);
    EXPECT_EQ(readBytes(samples / "f1.wav"), readBytes(program / "samples_orig" / "f1.wav"));
    EXPECT_FALSE(fs::exists(samples / "mine.wav"));
    EXPECT_EQ(std::ranges::count(namesIn(samples), "F1.WAV"), 0);
    EXPECT_TRUE(fs::exists(samples / "sub" / "deep.wav") && fs::exists(samples / ".hidden"));
    EXPECT_EQ(readBytes(samples.parent_path() / "Samples_replaced" / "mine.wav"), "mine");

    EXPECT_EQ(namesIn(wads).size(), 22U + 1U);
    EXPECT_EQ(readBytes(wads / "oasis.sam"), "another level's");
    EXPECT_EQ(readBytes(wads / "karnak.sam"), "stock");
    EXPECT_EQ(namesIn(wads.parent_path() / "wads_replaced"), std::vector<std::string>{"KARNAK.sam"});

    restore(catalogueOnly);
    EXPECT_EQ(readBytes(creator / "Sounds_replaced.txt"), "the user's") << "not pushed out by the stock one";
    writeBytes(creator / "SOUNDS.TXT", "later work");
    restore(catalogueOnly);
    EXPECT_EQ(readBytes(creator / "Sounds_replaced.txt"), "later work");
    EXPECT_EQ(readBytes(creator / "Sounds_replaced_1.txt"), "the user's");
    restore(samplesOnly);
    EXPECT_EQ(namesIn(samples.parent_path()),
              (std::vector<std::string>{"LevelSFX Creator", "Samples", "Samples_replaced"}))
        << "the original samples are not put aside";
}

TEST_F(RestoreDefaultsTest, NumbersWhatWasPutAsideByItsAge)
{
    installSfx();
    const fs::path beside = wads.parent_path();
    for (const std::string user : {"first", "second", "third", "fourth", "fourth"}) {
        writeBytes(wads / "karnak.sam", user == "fourth" ? "stock" : user);
        writeBytes(creator / "SOUNDS.TXT", user);
        EXPECT_TRUE(restore({true, false, true}).complete);
        if (user == "second") {
            fs::remove_all(beside / "wads_replaced_1");
            writeBytes(beside / "wads_replaced_6" / "karnak.sam", "of a year ago");
        }
    }
    EXPECT_EQ(namesIn(beside),
              (std::vector<std::string>{"wads", "wads_replaced", "wads_replaced_6", "wads_replaced_7"}))
        << "a number that has become free is not used again, and the original files are not put aside";
    EXPECT_EQ(readBytes(beside / "wads_replaced_7" / "karnak.sam"), "second");
    EXPECT_EQ(namesIn(creator),
              (std::vector<std::string>{"SOUNDS.TXT", "Sounds_replaced.txt", "Sounds_replaced_1.txt",
                                        "Sounds_replaced_2.txt", "Sounds_replaced_3.txt"}));
    EXPECT_EQ(readBytes(creator / "Sounds_replaced_1.txt"), "first");
    EXPECT_EQ(readBytes(creator / "Sounds_replaced.txt"), "fourth");
}

TEST_F(RestoreDefaultsTest, FillsWhatIsMissing)
{
    installSamples();
    fs::remove(creator / "SOUNDS.TXT");
    fs::permissions(program / "samples_orig" / "f7.wav", fs::perms::owner_read);
    fs::permissions(samples / "F1.WAV", fs::perms::owner_write, fs::perm_options::add);
    fs::remove_all(samples);
    EXPECT_TRUE(restore({true, true, false}).complete);
    EXPECT_EQ(namesIn(creator), std::vector<std::string>{"Sounds.txt"});
    EXPECT_EQ(namesIn(samples).size(), 497U);
    EXPECT_NE(fs::status(samples / "f7.wav").permissions() & fs::perms::owner_write, fs::perms::none)
        << "a copy is not read-only";
}

TEST_F(RestoreDefaultsTest, RefusesDamagedReferenceCopies)
{
    const std::string samplesNeeded =
        "critical | Restore | You must have a \\Samples_ORIG directory installed in "
        "Tavrel directory with 497 files and 12886344 bytes.\n"
        "Check Your Tavrel installation.\n" +
        aborted;
    const std::string sfxNeeded =
        "critical | Restore | You must have a \\SFX_ORIG directory installed in Tavrel "
        "directory with 22 files and 43145 bytes.\nCheck Your Tavrel installation.\n" +
        aborted;
    const struct
    {
        const char* what;
        std::function<void()> damage;
        RestoreChoice choice;
        std::string said;
    } cases[] = {
        {"none", [] {}, samplesOnly, samplesNeeded},
        {"one byte more", [this] { installSamples(samplesFiles, samplesBytes + 1); }, samplesOnly,
         samplesNeeded},
        {"one file less", [this] { installSamples(samplesFiles - 1, samplesBytes); }, samplesOnly,
         samplesNeeded},
        {"none", [] {}, sfxOnly, sfxNeeded},
        {"one byte less", [this] { installSfx(43144); }, sfxOnly, sfxNeeded},
        {"an empty catalogue", [this] { writeBytes(program / "TAVREL.TOS", ""); }, everything,
         "critical | Restore | No defaults found. Check your installation of Tavrel.\n" + aborted},
        {"no catalogue", [this] { fs::remove(program / "TAVREL.TOS"); }, everything,
         "critical | Restore | No defaults found. Check your installation of Tavrel.\n" + aborted},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fs::remove_all(program / "samples_orig");
        fs::remove_all(program / "SFX_ORIG");
        c.damage();
        const RestoreResult result = restore(c.choice);
        EXPECT_FALSE(result.complete || result.catalogueReplaced);
        EXPECT_EQ(lastSaid(), c.said);
        expectUntouched();
    }
    EXPECT_EQ(lastSaid(Language::French), "critical | Restaurer | Aucun fichier d'origine trouvé. Vérifier "
                                          "l'installation de Tavrel.\nFonction de restauration annulée");
    EXPECT_EQ(
        dialogs.said()[0].text.french,
        "Vous devriez avoir un répertoire \\Samples_ORIG installé dans le même répertoire que Tavrel avec 497 "
        "fichiers et 12886344 octets.\nVérifiez votre installation de Tavrel.\nFonction de restauration annulée");
}

TEST_F(RestoreDefaultsTest, WhatCameBeforeAFailureStaysRestored)
{
    installSfx();
    const RestoreResult result = restore(everything);
    EXPECT_TRUE(result.catalogueReplaced) << "the main window has to know";
    EXPECT_FALSE(result.complete);
    EXPECT_EQ(readBytes(creator / "SOUNDS.TXT"), "STOCK:one");
    EXPECT_EQ(dialogs.said().size(), 1U);
    expectUntouched();
}

TEST_F(RestoreDefaultsTest, AFailureInTheMiddleLeavesTheOldFiles)
{
    const std::string samplesTrouble =
        "critical | Restore | A problem occured when restoring original samples directory.\n"
        "You must have a \\Samples_ORIG directory installed in Tavrel directory.\n" +
        aborted;
    installSamples();
    progress.meddle = [this] { fs::remove(program / "samples_orig" / notYetCopied()); };
    EXPECT_FALSE(restore(samplesOnly).complete) << "a source that vanishes";
    EXPECT_EQ(lastSaid(), samplesTrouble);
    expectUntouched();

    installSamples();
    progress.meddle = [this] { writeBytes(program / "samples_orig" / notYetCopied(), "shorter"); };
    EXPECT_FALSE(restore(samplesOnly).complete) << "a source that changes";
    expectUntouched();

    installSamples();
    std::string inTheWay;
    progress.meddle = [&] { fs::create_directory(samples / (inTheWay = notYetCopied())); };
    EXPECT_FALSE(restore(samplesOnly).complete) << "a target that is in the way";
    EXPECT_EQ(lastSaid(), samplesTrouble);
    fs::remove(samples / inTheWay);
    expectUntouched();

    installSfx();
    fs::create_directory(wads / "tut1.sfx");
    EXPECT_FALSE(restore(sfxOnly).complete);
    EXPECT_EQ(lastSaid(), "critical | Restore | A problem occured when restoring original SAM/SFX files.\n"
                          "You must have a \\SFX_ORIG directory installed in Tavrel directory.\n" +
                              aborted);
    EXPECT_EQ(
        dialogs.said().back().text.french,
        "Un problème a été rencontré durant la restauration des fichiers SAM/SFX d'origine.\nVous devriez avoir "
        "un répertoire \\SFX_ORIG installé dans le même répertoire que Tavrel\nFonction de restauration annulée");
    fs::remove(wads / "tut1.sfx");
    expectUntouched();
}

TEST_F(RestoreDefaultsTest, FilesOfOthersBesideTheFolderStay)
{
    installSfx();
    const fs::path incoming = wads.parent_path() / "wads_incoming";
    writeBytes(incoming / "karnak.sam", "of a run that was cut short");
    EXPECT_FALSE(cutShortReplacement(wads)) << "nothing was taken away yet";
    fs::create_directory(wads.parent_path() / "wads_replaced");
    const Problem problem = cutShortReplacement(wads);
    ASSERT_TRUE(problem);
    EXPECT_NE(problem->text.english.find("wads_replaced"), std::string::npos);

    writeBytes(incoming / "mine.txt", "the user's");
    EXPECT_TRUE(restore(sfxOnly).complete);
    EXPECT_EQ(namesIn(incoming), (std::vector<std::string>{"karnak.sam", "mine.txt"}));
    fs::remove(incoming / "mine.txt");
    writeBytes(wads / "karnak.sam", "of another run");
    EXPECT_TRUE(restore(sfxOnly).complete);
    EXPECT_FALSE(fs::exists(incoming));
}

TEST_F(RestoreDefaultsTest, ACatalogueThatCannotBeWrittenIsNoRestore)
{
    writeBytes(creator / "Sounds_replaced.txt", "of the first restore");
    fs::permissions(creator / "SOUNDS.TXT", fs::perms::owner_read);
    const RestoreResult result = restore(catalogueOnly);
    EXPECT_FALSE(result.complete || result.catalogueReplaced);
    EXPECT_EQ(readBytes(creator / "SOUNDS.TXT"), "the user's");
    EXPECT_EQ(readBytes(creator / "Sounds_replaced.txt"), "of the first restore");
    EXPECT_TRUE(lastSaid().starts_with("critical | Restore | Cannot write"));
    EXPECT_TRUE(lastSaid().ends_with("\n" + aborted));
}

TEST_F(RestoreDefaultsTest, NothingChosenIsSaid)
{
    EXPECT_FALSE(requireChoice({}, dialogs));
    EXPECT_EQ(lastSaid(), "exclamation | Restore | Choose what to restore");
    EXPECT_TRUE(requireChoice(sfxOnly, dialogs));
    EXPECT_EQ(dialogs.said().size(), 1U);
}

} // namespace
