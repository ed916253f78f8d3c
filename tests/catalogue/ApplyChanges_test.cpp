// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const char* const confirmation = "Yes/No | Modification | Confirm modification\n"
                                 "All the changes will be applied to the [sounds.txt] file";
const char* const confirmationFrench = "Yes/No | Modification | Confirmer la modification\n"
                                       "Tous les changements seront appliqués au fichier [sounds.txt]";

class ApplyChanges : public testing::Test
{
protected:
    ApplyChanges() { reload(); }

    void reload()
    {
        Result<LoadedCatalogue> loaded = loadCatalogue({demo.program, demo.creator, false});
        if (!loaded) {
            throw std::runtime_error(loaded.failure().text.english);
        }
        catalogue = std::move(loaded->catalogue);
    }
    // sounds.txt with nothing but sounds, so that the confirmation is all that is said.
    void loadPlain()
    {
        writeBytes(demo.sounds, textOf(stockLines()));
        reload();
    }
    void change(std::size_t number, const char* line)
    {
        ASSERT_FALSE(catalogue.setCurrentLine(number, withTabs(line)));
        lines.at(number) = withTabs(line);
    }
    bool apply(Dialogs& dialogs, const std::string& wad = "oasis")
    {
        return applyChanges(catalogue, {demo.program, wad}, dialogs);
    }
    fs::path tor(const fs::path& name = "oasis.tor") const { return demo.program / "sounds" / name; }

    DemoFolders demo;
    SoundCatalogue catalogue;
    std::vector<std::string> lines = stockLines();
    fs::path firstBackup = demo.creator / "Orig_Sounds.txt";
};

TEST_F(ApplyChanges, WritesEveryLineAndKeepsTheFileOfTheFirstTime)
{
    const std::string before = readBytes(demo.sounds);
    change(3, "LARA_SLIPPING:>>other>>>>VOL11>>>>RAD13>#g #\xE9x");
    change(7, "VALUES_ONLY:>x>");
    change(7, stockLines()[7].c_str());
    ScriptedDialogs dialogs{Answer::Ok, Answer::Yes};
    EXPECT_TRUE(apply(dialogs));

    ASSERT_EQ(dialogs.said().size(), 2U); // the comment lines of the demo file come first
    EXPECT_EQ(dialogs.conversation(Language::English)[0].find("OK/Cancel | Modification | 4 lines"), 0U);
    EXPECT_EQ(dialogs.conversation(Language::French)[0].find("OK/Cancel | Modification | 4 lignes"), 0U);
    EXPECT_EQ(dialogs.said()[0].details.english,
              "1: ; Sounds of the level editor\n77: ; Animals and enemies");
    EXPECT_EQ(dialogs.conversation(Language::English)[1], confirmation);
    EXPECT_EQ(dialogs.conversation(Language::French)[1], confirmationFrench);
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
    EXPECT_EQ(firstDifference(readBytes(firstBackup), before), "");
    EXPECT_EQ(readBytes(tor()), "3,\"" + lines[3] + "\"\r\n");
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(catalogue.isModified(3));

    change(0, "LARA_FEET:>>one two>>>VOL44>>>>>");
    ScriptedDialogs again{Answer::Yes};
    EXPECT_TRUE(apply(again));
    EXPECT_EQ(again.conversation(Language::English), std::vector<std::string>{confirmation});
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
    EXPECT_EQ(firstDifference(readBytes(firstBackup), before), "");
    EXPECT_EQ(readBytes(tor()), "0,\"" + lines[0] + "\"\r\n3,\"" + lines[3] + "\"\r\n");
    EXPECT_EQ(namesIn(demo.creator), (std::vector<std::string>{"Orig_Sounds.txt", "Sounds.txt"}));
}

TEST_F(ApplyChanges, LeavesNoRecordWhereNoSamplesDiffer)
{
    loadPlain();
    writeBytes(tor(), "old");
    writeBytes(tor("other.tor"), "other");
    change(1, "LARA_CLIMB2:>clim_up2>VOL99>>#ab"); // values and letters, not samples
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(apply(dialogs));
    EXPECT_EQ(namesIn(tor().parent_path()), std::vector<std::string>{"other.tor"});
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
}

TEST_F(ApplyChanges, KeepsRecordsOfPlainWadNamesOnly)
{
    loadPlain();
    change(1, "LARA_CLIMB2:>new>VOL99>>#ab");
    writeBytes(demo.program / "evil.tor", "outside");
    writeBytes(tor(".tor"), "nameless");
    const auto outside = [this] {
        auto files = everyFile(demo.root.path());
        std::erase_if(files, [this](const auto& file) {
            return file.first == demo.sounds || file.first == firstBackup;
        });
        return files;
    };
    const auto before = outside();
    for (const char* wad :
         {"", "..", ".", "../evil", "..\\evil", "a/b", "C:evil", "con", "nul.x", "evil*", "a\nb"}) {
        SCOPED_TRACE(wad);
        ScriptedDialogs dialogs{Answer::Yes, Answer::Yes};
        EXPECT_TRUE(apply(dialogs, wad));
        change(1, stockLines()[1].c_str()); // with nothing to record, none is deleted either
        EXPECT_TRUE(apply(dialogs, wad));
        change(1, "LARA_CLIMB2:>new>VOL99>>#ab");
        EXPECT_EQ(outside(), before);
    }
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(apply(dialogs, "caf\xE9"));
    EXPECT_TRUE(fs::exists(tor(u8"caf\u00E9.tor")));
}

TEST_F(ApplyChanges, ChangesNothingWithoutAYes)
{
    change(3, "N:>other>");
    const auto before = everyFile(demo.root.path());
    ScriptedDialogs dialogs{Answer::Cancel, Answer::Ok, Answer::No};
    EXPECT_FALSE(apply(dialogs)) << "the comments are worth more";
    EXPECT_FALSE(apply(dialogs));
    EXPECT_EQ(everyFile(demo.root.path()), before);
    EXPECT_TRUE(catalogue.differsFromFile());
}

TEST_F(ApplyChanges, AsksBeforeItOverwritesAFileThatChangedSince)
{
    loadPlain();
    change(3, "N:>other>");
    fs::last_write_time(demo.sounds, fs::last_write_time(demo.sounds) + std::chrono::hours(1));
    ScriptedDialogs touched{Answer::Yes};
    EXPECT_TRUE(apply(touched)) << "a file that was only touched is the same";
    fs::remove(firstBackup);

    for (const char* const copy : {"Orig_Sounds.txt", "Sounds_copy1.txt", "Sounds_copy2.txt"}) {
        SCOPED_TRACE(copy);
        // The same size and time: only the content tells.
        const fs::file_time_type time = fs::last_write_time(demo.sounds);
        std::string changed = readBytes(demo.sounds);
        ++changed[0];
        writeBytes(demo.sounds, changed);
        fs::last_write_time(demo.sounds, time);
        const auto before = everyFile(demo.root.path());

        ScriptedDialogs dialogs{Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
        EXPECT_FALSE(apply(dialogs));
        EXPECT_EQ(everyFile(demo.root.path()), before);
        ASSERT_EQ(dialogs.said().size(), 2U);
        EXPECT_TRUE(dialogs.said()[1].refusalIsDefault);
        EXPECT_NE(dialogs.said()[1].text.english.find(copy), std::string::npos);
        EXPECT_NE(dialogs.said()[1].text.french.find(copy), std::string::npos);

        EXPECT_TRUE(apply(dialogs));
        EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
        EXPECT_EQ(firstDifference(readBytes(demo.creator / copy), changed), "");
        // Its own write is no change by another program.
        ScriptedDialogs again{Answer::Yes};
        EXPECT_TRUE(apply(again));
    }
}

TEST_F(ApplyChanges, KeepsTheReplacedFileAsAVersionWhereThatIsWanted)
{
    loadPlain();
    ApplyTarget target{demo.program, "oasis"};
    target.keepVersion = true;
    const std::string before = readBytes(demo.sounds);
    change(3, "N:>other>");
    ScriptedDialogs refused{Answer::No};
    EXPECT_FALSE(applyChanges(catalogue, target, refused));
    EXPECT_EQ(namesIn(demo.creator), std::vector<std::string>{"Sounds.txt"});

    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(applyChanges(catalogue, target, dialogs));
    const fs::path versions = demo.creator / "Sounds_versions";
    ASSERT_EQ(namesIn(versions).size(), 1U);
    EXPECT_EQ(readBytes(versions / namesIn(versions)[0]), before);

    fs::remove_all(versions);
    writeBytes(versions, "a file where the folder belongs");
    change(3, "N:>more>");
    ScriptedDialogs without{Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
    EXPECT_FALSE(applyChanges(catalogue, target, without));
    EXPECT_TRUE(without.said().back().refusalIsDefault);
    EXPECT_TRUE(applyChanges(catalogue, target, without));
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
}

TEST_F(ApplyChanges, AnotherProgramsChangesCanBeComparedFirst)
{
    loadPlain();
    change(3, "N:>other>");
    ApplyTarget target{demo.program, "oasis"};
    target.keepVersion = true;
    std::vector<std::string> theirs = lines;
    theirs[3] = stockLines()[3];
    theirs[4] = withTabs("N:>theirs>");
    writeBytes(demo.sounds, textOf(theirs));
    int looks = 0;
    target.compare = [&](const fs::path& file) {
        EXPECT_EQ(file, demo.sounds);
        if (++looks == 2) {
            change(4, "N:>theirs>");
        }
        return looks == 2;
    };
    ScriptedDialogs dialogs{Answer::Yes, Answer::Other, Answer::Other};
    EXPECT_TRUE(applyChanges(catalogue, target, dialogs)) << "what was taken over is the agreement";
    EXPECT_EQ(looks, 2);
    EXPECT_EQ(dialogs.said().back().otherChoice.english, "Compare");
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
    const fs::path versions = demo.creator / "Sounds_versions";
    ASSERT_EQ(namesIn(versions).size(), 1U);
    EXPECT_EQ(firstDifference(readBytes(versions / namesIn(versions)[0]), textOf(theirs)), "");
    EXPECT_NE(dialogs.said().back().text.english.find(namesIn(versions)[0]), std::string::npos)
        << "the question names the version";
}

// The editor in another window saves while the confirmation stands.
TEST_F(ApplyChanges, AsksAboutAChangeInTheLastMoment)
{
    loadPlain();
    change(3, "N:>other>");
    const std::string changed = textOf(stockLines()) + "NEW:\ta\t\r\n";
    ScriptedDialogs dialogs{Answer::Yes, Answer::No};
    dialogs.whileAsking([&] { writeBytes(demo.sounds, changed); });
    EXPECT_FALSE(apply(dialogs));
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), changed), "");
    EXPECT_TRUE(catalogue.differsFromFile());
}

TEST_F(ApplyChanges, AsksBeforeItWritesAFileThatIsGone)
{
    change(3, "N:>other>");
    fs::remove(demo.sounds);
    ScriptedDialogs dialogs{Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
    EXPECT_FALSE(apply(dialogs));
    EXPECT_TRUE(namesIn(demo.creator).empty());
    EXPECT_TRUE(apply(dialogs));
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
    EXPECT_FALSE(fs::exists(firstBackup));
}

TEST_F(ApplyChanges, KeepsLaterCommentsInACopy)
{
    const std::string first = "the first one";
    writeBytes(firstBackup, first);
    writeBytes(demo.creator / "Sounds_copy1.txt", "taken");
    const std::string before = readBytes(demo.sounds);
    ScriptedDialogs dialogs{Answer::Ok, Answer::Yes};
    EXPECT_TRUE(apply(dialogs));
    EXPECT_EQ(readBytes(firstBackup), first);
    EXPECT_EQ(readBytes(demo.creator / "Sounds_copy1.txt"), "taken");
    EXPECT_EQ(firstDifference(readBytes(demo.creator / "Sounds_copy2.txt"), before), "");
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
}

TEST_F(ApplyChanges, TakesABackupOfAnyLetterCase)
{
    loadPlain();
    writeBytes(demo.creator / "ORIG_SOUNDS.TXT", "first");
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(apply(dialogs));
    EXPECT_EQ(namesIn(demo.creator), (std::vector<std::string>{"ORIG_SOUNDS.TXT", "Sounds.txt"}));
    EXPECT_EQ(readBytes(demo.creator / "ORIG_SOUNDS.TXT"), "first");
}

TEST_F(ApplyChanges, SaysWhenTheFileCannotBeWrittenAndLeavesNoCopy)
{
    change(3, "N:>other>");
    for (const bool appliedBefore : {false, true}) {
        if (appliedBefore) {
            writeBytes(firstBackup, "first");
        }
        fs::permissions(demo.sounds, fs::perms::owner_read);
        const auto before = everyFile(demo.root.path());
        ScriptedDialogs dialogs{Answer::Ok, Answer::Yes};
        EXPECT_FALSE(apply(dialogs));
        ASSERT_EQ(dialogs.said().size(), 3U);
        EXPECT_EQ(dialogs.said()[2].kind, "critical");
        EXPECT_NE(dialogs.said()[2].text.english.find(demo.sounds.string()), std::string::npos);
        EXPECT_EQ(everyFile(demo.root.path()), before);
        EXPECT_TRUE(catalogue.differsFromFile());
    }
    fs::permissions(demo.sounds, fs::perms::owner_write, fs::perm_options::add);
    fs::remove(demo.sounds);
    fs::create_directory(demo.sounds);
    ScriptedDialogs folder;
    EXPECT_FALSE(apply(folder));
    ASSERT_EQ(folder.said().size(), 1U);
    EXPECT_NE(folder.said()[0].text.french.find(demo.sounds.string()), std::string::npos);
    EXPECT_TRUE(fs::is_directory(demo.sounds));
    EXPECT_TRUE(catalogue.differsFromFile());
}

TEST_F(ApplyChanges, ReportsAFailedRecordOnItsOwn)
{
    loadPlain();
    change(3, "N:>other>");
    fs::create_directories(tor() / "in the way");
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(apply(dialogs));
    ASSERT_EQ(dialogs.said().size(), 2U);
    EXPECT_EQ(dialogs.said()[1].text.english.find("[sounds.txt] is written, but"), 0U);
    EXPECT_NE(dialogs.said()[1].text.english.find("oasis.tor"), std::string::npos);
    EXPECT_EQ(firstDifference(readBytes(demo.sounds), textOf(lines)), "");
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(fs::is_directory(tor()));
}

TEST_F(ApplyChanges, TakesNoFolderForABackup)
{
    fs::create_directory(firstBackup);
    ScriptedDialogs dialogs;
    EXPECT_FALSE(apply(dialogs));
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_NE(dialogs.said()[0].text.english.find(firstBackup.string()), std::string::npos);
}

// Nobody who waits for the locks waits for an answer, and what happened meanwhile is asked about.
TEST_F(ApplyChanges, TakesTheLocksWhenAllQuestionsAreAnswered)
{
    loadPlain();
    change(3, "N:>other>");
    ChangeLocks locks({demo.program, demo.sounds}, std::chrono::seconds(0));
    ScriptedDialogs dialogs{Answer::Yes, Answer::Yes};
    int questions = 0;
    dialogs.whileAsking([&] {
        EXPECT_FALSE(locks.take());
        locks.release();
        writeBytes(demo.sounds, ++questions == 1 ? "A:\ta\r\n" : "B:\tb\r\n");
        if (questions == 2) {
            dialogs.prepareAnswer(Answer::Yes);
        } else if (questions == 3) {
            dialogs.whileAsking({});
        }
    });
    EXPECT_TRUE(apply(dialogs));
    EXPECT_EQ(dialogs.said().size(), 3U);
    EXPECT_EQ(readBytes(firstBackup), "B:\tb\r\n");

    ASSERT_FALSE(locks.take());
    ScriptedDialogs refused{Answer::Yes};
    EXPECT_FALSE(apply(refused));
    EXPECT_NE(refused.said().back().text.english.find("at work on the same files"), std::string::npos);
    ScriptedDialogs own;
    bool asked = false;
    const ApplyTarget target{demo.program, "oasis", &locks, [&](const Question& question) {
                                 asked = question.text.english.starts_with("Confirm modification");
                                 return asked;
                             }};
    EXPECT_TRUE(applyChanges(catalogue, target, own)) << "with the caller's locks and the caller's question";
    EXPECT_TRUE(asked && locks.areTaken());
}

#ifndef _WIN32
// In a child process, as a user who may not write there: ends with 0 when the apply said so and failed.
void applyAsAnotherUser(SoundCatalogue& catalogue, const fs::path& program)
{
    if (::geteuid() == 0 && ::setuid(65'534) != 0) {
        ::_exit(2);
    }
    ScriptedDialogs dialogs{Answer::Yes};
    const bool applied = applyChanges(catalogue, {program, "oasis"}, dialogs);
    const bool said = dialogs.said().size() == 2 && dialogs.said()[1].kind == "critical";
    ::_exit(!applied && said && catalogue.differsFromFile() ? 0 : 1);
}

TEST_F(ApplyChanges, LeavesEverythingInAFolderThatIsNotOurs)
{
    loadPlain();
    change(3, "N:>other>");
    const auto before = everyFile(demo.root.path());
    fs::permissions(demo.creator, fs::perms(0555));
    EXPECT_EXIT(applyAsAnotherUser(catalogue, demo.program), testing::ExitedWithCode(0), "");
    fs::permissions(demo.creator, fs::perms(0755));
    EXPECT_EQ(everyFile(demo.root.path()), before);
}
#endif

} // namespace
