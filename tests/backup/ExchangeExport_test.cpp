// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeExport.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;
using Saved = std::vector<std::pair<std::size_t, std::string>>;

SoundCatalogue catalogueOf(const std::vector<std::pair<std::string, std::string>>& currentAndOriginal)
{
    SoundCatalogue catalogue;
    for (const auto& [current, original] : currentAndOriginal) {
        catalogue.append(withTabs(current), withTabs(original), catalogue.size() + 1);
    }
    return catalogue;
}

Saved savedLines(const std::vector<ExportRow>& rows)
{
    Saved saved;
    for (const ExportRow& row : rows) {
        saved.emplace_back(row.number, row.savedLine);
    }
    return saved;
}

const SoundCatalogue& sample()
{
    static const SoundCatalogue catalogue = catalogueOf({
        {"A:>foot>VOL44>>#g #oa", "A:>foot>VOL44>>#g"},         // letters alone
        {"B:>foot>VOL50>>#g #oa", "B:>foot>VOL44>>#g #ab"},     // a value
        {"C:>boat>VOL44>>#x", "C:>moat>VOL44>>#x"},             // no letter, but "oa" in a sample
        {"D:>bell>P>", "D:>bell>"},                             // not the WAD's
        {"NEWoa:>bell>VOL44>", "OLD:>bell>VOL44>"},             // no "#", another name
        {"F:>roar>VOL44>>#b>tail #oa", "F:>roar>VOL44>>#b #c"}, // a text among the letters
    });
    return catalogue;
}

TEST(Export, EachModeListsAndSavesItsLines)
{
    const auto listed = [](ExportMode mode, const char* letter) {
        return savedLines(listForExport(sample(), mode, letter));
    };
    const auto line = [](const char* text) { return withTabs(text); };
    EXPECT_EQ(listed(ExportMode::Modified, "oa"),
              (Saved{{1, line("B:>foot>VOL50>>#g #ab")}, {2, line("C:>boat>VOL44>>#x")}}));
    EXPECT_EQ(listed(ExportMode::ModifiedAndAdded, "oa"), (Saved{{0, line("A:>foot>VOL44>>#g")},
                                                                 {1, line("B:>foot>VOL50>>#g #ab")},
                                                                 {2, line("C:>boat>VOL44>>#x")},
                                                                 {4, line("NEWoa:>bell>VOL44>")},
                                                                 {5, line("F:>roar>VOL44>>#b #c")}}));
    EXPECT_EQ(listed(ExportMode::Modified, "zz"), Saved());
    EXPECT_EQ(listed(ExportMode::Modified, "").size(), 3U) << "every line holds an empty letter";
    Saved all;
    for (std::size_t i = 0; i < sample().size(); ++i) {
        all.emplace_back(i, i == 5 ? line("F:>roar>VOL44>>#b #oa") : sample().currentLine(i));
    }
    EXPECT_EQ(listed(ExportMode::All, "oa"), all);
}

TEST(Export, RowsShowTheLettersThatAreSaved)
{
    EXPECT_TRUE(listForExport(sample(), ExportMode::Modified, "oa")[0].text.ends_with("   #g #ab"));
    EXPECT_TRUE(listForExport(sample(), ExportMode::All, "oa")[1].text.starts_with("1    B:  "));
    EXPECT_TRUE(listForExport(sample(), ExportMode::All, "oa")[1].text.ends_with("   #g #oa"));
    EXPECT_EQ(countOfLines(370, 12).english, "370 lines listed - 12 lines selected");
    EXPECT_EQ(countOfLines(0, 0).french, "0 lignes listées - 0 lignes sélectionnées");
}

class ExportFile : public testing::Test
{
protected:
    ExportRequest request(ExportMode mode, const fs::path& name)
    {
        return {mode, listForExport(sample(), mode, "oa"), root / name, false, root / "samples", {}, {}};
    }

    TemporaryFolder root;
    ScriptedProgress progress;
};

TEST_F(ExportFile, AsksWhereToSave)
{
    ScriptedDialogs dialogs;
    dialogs.prepareFile(std::nullopt);
    dialogs.prepareFile(root / "x.tob");
    EXPECT_FALSE(chooseExportFile(ExportMode::Modified, "oasis", root.path(), dialogs));
    EXPECT_EQ(chooseExportFile(ExportMode::All, "", root.path(), dialogs), root / "x.tob");
    const OpenFileQuestion& exchange = dialogs.fileQuestions()[0];
    EXPECT_EQ(exchange.title.english, "Export only modified lines");
    EXPECT_EQ(exchange.filterName.french, "Fichiers d'échange (*.tox)");
    EXPECT_EQ(exchange.folder, root / "Backups");
    EXPECT_TRUE(fs::is_directory(root / "Backups"));
    EXPECT_EQ(exchange.proposedName, "oasis.tox");
    EXPECT_TRUE(exchange.forSaving && !exchange.fileMustExist);
    EXPECT_EQ(dialogs.fileQuestions()[1].proposedName, "sounds_backup.tob");
    EXPECT_EQ(dialogs.fileQuestions()[1].fileNames, Names{"*.tob"});
}

TEST_F(ExportFile, AsksBeforeItReplacesOrDropsOrMisnames)
{
    const std::string title = "Yes/No | Save all lines | ";
    const std::string dropped = title +
                                "These lines contain text among or after their letters that the backup does "
                                "not keep: 5\nSave the backup without it?";
    writeBytes(root / "OLD.TOB", "old");
    const struct
    {
        ExportMode mode;
        const char* name;
        std::vector<Answer> answers;
        bool confirmed;
        Names conversation;
    } cases[] = {
        {ExportMode::Modified, "a.tox", {}, true, {}},
        {ExportMode::All, "a.tob", {Answer::No}, false, {dropped}},
        {ExportMode::All, "a.tob", {Answer::Yes}, true, {dropped}},
        {ExportMode::All,
         "old.tob",
         {Answer::Yes, Answer::No},
         false,
         {dropped, title + "The file old.tob already exists.\n\rReplace it."}},
        {ExportMode::All,
         "a.tox",
         {Answer::Yes, Answer::No},
         false,
         {dropped, title + "The name of a backup ends with \".tob\". [a.tox] will be read as an exchange "
                           "file.\nSave under this name?"}},
        {ExportMode::Modified,
         "OLD.TOB",
         {Answer::Yes, Answer::Yes},
         true,
         {"Yes/No | Export only modified lines | The name of an exchange file ends with \".tox\". [OLD.TOB] will "
          "be read as a backup.\nSave under this name?",
          "Yes/No | Export only modified lines | The file OLD.TOB already exists.\n\rReplace it."}},
    };
    for (const auto& [mode, name, answers, confirmed, conversation] : cases) {
        ScriptedDialogs dialogs;
        for (const Answer answer : answers) {
            dialogs.prepareAnswer(answer);
        }
        EXPECT_EQ(confirmExchangeExport(request(mode, name), dialogs), confirmed) << name;
        EXPECT_EQ(dialogs.conversation(Language::English), conversation);
    }
}

#ifndef _WIN32 // where the name of a file depends on more than its bytes
TEST_F(ExportFile, AsksBeforeItReplacesAFileWhoseNameTheCodePageLacks)
{
    const fs::path name = u8"\u03A9.tox";
    writeBytes(root / name, "old");
    ScriptedDialogs dialogs{Answer::No};
    EXPECT_FALSE(confirmExchangeExport(request(ExportMode::Modified, name), dialogs));
    EXPECT_EQ(dialogs.conversation(Language::French),
              Names{"Yes/No | Exporter uniquement les lignes modifiées | Le fichier \u03A9.tox existe "
                    "déjà.\n\rLe remplacer."});
}
#endif

TEST_F(ExportFile, AsksBeforeItDeletesForeignSamples)
{
    writeBytes(root / "samples" / "foot.wav", "foot");
    for (const char* name : {"song.WAV", "foot.wav", "boat.wav", "notes.txt"}) {
        writeBytes(root / "city_Samples" / name, "the user's");
    }
    ExportRequest asked = request(ExportMode::Modified, "city.tox");
    const auto conversation = [&asked](std::initializer_list<Answer> answers, bool confirmed) {
        ScriptedDialogs dialogs(answers);
        EXPECT_EQ(confirmExchangeExport(asked, dialogs), confirmed);
        for (const ScriptedDialogs::Said& said : dialogs.said()) {
            EXPECT_TRUE(said.refusalIsDefault);
        }
        return dialogs.conversation(Language::English);
    };
    EXPECT_EQ(conversation({}, true), Names()) << "without samples";
    asked.withSamples = true;
    EXPECT_EQ(conversation({Answer::No}, false),
              Names{"Yes/No | Export only modified lines | The folder [" + (root / "city_Samples").string() +
                    "] contains 1 WAV file that does not belong to this export. It will be deleted.\nSave "
                    "anyway?"});
    EXPECT_EQ(conversation({Answer::Yes}, true).size(), 1U);
    writeBytes(root / "CITY.tox", "old");
    EXPECT_EQ(
        conversation({Answer::Yes}, true),
        Names{"Yes/No | Export only modified lines | The file city.tox already exists.\n\rReplace it."});
    fs::remove(root / "CITY.tox");
    fs::remove(root / "city_Samples" / "song.WAV");
    EXPECT_EQ(conversation({}, true), Names()) << "one is written anew, the other stays";
}

TEST_F(ExportFile, NamesTheLinesThatAreCut)
{
    const SoundCatalogue cut = catalogueOf({{"A#oa:>a>VOL44>>#g", "A#oa:>a>VOL11>>#g"},
                                            {"B:>b>VOL44>>#oa", "B:>b>VOL11>>"},
                                            {"C:>c#1>VOL44>>#oa", "C:>c>VOL11>>"},
                                            {"D:>d>#oa>VOL44", "D:>d>#oa>VOL11"}});
    for (const ExportMode mode : {ExportMode::Modified, ExportMode::ModifiedAndAdded, ExportMode::All}) {
        const ExportRequest asked{mode, listForExport(cut, mode, "oa"), root / "a.tox", false, {}, {}, {}};
        ScriptedDialogs dialogs{Answer::No};
        EXPECT_FALSE(confirmExchangeExport(asked, dialogs));
        EXPECT_EQ(
            dialogs.conversation(Language::English),
            Names{"Yes/No | " + captionOf(mode).english +
                  " | These lines are cut at their first \"#\", which does not open their letters: values "
                  "are lost.\n0, 2, 3\nSave them like this?"});
    }
}

TEST_F(ExportFile, WritesTheTickedLinesToTheByte)
{
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    EXPECT_TRUE(saveExport(modified, progress).saved);
    EXPECT_EQ(readBytes(root / "city.tox"),
              withTabs("\"1\",\"B:>foot>VOL50>>#g #ab\"\r\n\"2\",\"C:>boat>VOL44>>#x\"\r\n"));
    modified.rows.clear();
    EXPECT_TRUE(saveExport(modified, progress).saved);
    EXPECT_EQ(readBytes(root / "city.tox"), "");
    EXPECT_EQ(namesIn(root.path()), Names{"city.tox"});
}

TEST_F(ExportFile, TakesTheSamplesAlong)
{
    writeBytes(root / "samples" / "FOOT.wav", "foot");
    writeBytes(root / "city_Samples" / "stale.wav", "stale");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    const ExportOutcome outcome = saveExport(modified, progress);
    EXPECT_EQ(outcome.samplesCopied, 1U);
    EXPECT_EQ(outcome.report->text.english,
              "1 sample is not in the level editor's samples folder and was not saved:\nboat.wav");
    EXPECT_EQ(namesIn(root / "city_Samples"), Names{"foot.wav"});
    EXPECT_EQ(progress.said, Names{"Copying sample [foot.wav]..."});
    EXPECT_EQ(namesIn(root.path()), (Names{"city.tox", "city_Samples", "samples"}));
}

TEST_F(ExportFile, SaysWhichSamplesAreNotNew)
{
    writeBytes(root / "samples" / "foot.wav", "foot");
    writeBytes(root / "city_Samples" / "boat.wav", "the only copy");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    modified.rows.front().savedLine = withTabs("B:>foot con>VOL50>");
    const ExportOutcome outcome = saveExport(modified, progress);
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(
        outcome.report->text.english,
        "These samples have names that are not plain file names. They were not copied.\n\n[con]\n\nThese "
        "samples are not in the level editor's samples folder; the copies of the earlier export were "
        "kept:\nboat.wav");
    EXPECT_EQ(readBytes(root / "city_Samples" / "boat.wav"), "the only copy");
}

TEST_F(ExportFile, SavesAllOrNothing)
{
    writeBytes(root / "samples" / "foot.wav", "foot");
    writeBytes(root / "samples" / "boat.wav", "boat");
    writeBytes(root / "city_Samples" / "old.wav", "old");
    writeBytes(root / "city.tox", "old");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    const auto expectNothingSaved = [&](const ExportOutcome& outcome, const char* why) {
        EXPECT_FALSE(outcome.saved);
        EXPECT_TRUE(outcome.report->text.english.ends_with(
            "\n\nNothing was saved. Files that were there are as they were."))
            << outcome.report->text.english;
        EXPECT_TRUE(outcome.report->text.english.find(why) != std::string::npos)
            << outcome.report->text.english;
        EXPECT_EQ(namesIn(root / "city_Samples"), Names{"old.wav"});
    };
    ScriptedProgress stopping(1);
    expectNothingSaved(saveExport(modified, stopping), "Cancelled.");
    EXPECT_EQ(readBytes(root / "city.tox"), "old");

    fs::permissions(root / "city.tox", fs::perms::owner_read);
    expectNothingSaved(saveExport(modified, progress), "Cannot write");
    fs::permissions(root / "city.tox", fs::perms::owner_write, fs::perm_options::add);
    fs::remove(root / "city.tox");
    fs::create_directory(root / "city.tox");
    expectNothingSaved(saveExport(modified, progress), "Cannot write");
    modified.file = root / "none" / "city.tox";
    modified.withSamples = false;
    expectNothingSaved(saveExport(modified, progress), "Cannot write");
    EXPECT_EQ(namesIn(root.path()), (Names{"city.tox", "city_Samples", "samples"}));
}

TEST_F(ExportFile, WithoutASamplesFolder)
{
    writeBytes(root / "city_Samples" / "old.wav", "old");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    const ExportOutcome outcome = saveExport(modified, progress);
    EXPECT_TRUE(outcome.saved);
    EXPECT_TRUE(outcome.report->text.english.ends_with("\nboat.wav\nfoot.wav") ||
                outcome.report->text.english.ends_with("\nfoot.wav\nboat.wav"))
        << outcome.report->text.english;
    EXPECT_EQ(namesIn(root / "city_Samples"), Names{"old.wav"}) << "it goes for new ones alone";
}

TEST_F(ExportFile, SaysThatItRepairedThoughNothingWasSaved)
{
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    for (const char* left : {"city_Samples.tavrel-old", "city_Samples.tavrel-old2"}) {
        writeBytes(root / left / (std::string(left) + ".wav"), "old");
        ScriptedProgress stopping(0);
        writeBytes(root / "samples" / "foot.wav", "foot");
        EXPECT_EQ(
            saveExport(modified, stopping).report->text.english,
            "Cancelled.\n\nNothing was saved. Samples of an earlier save that was cut short are back in "
            "their folder.");
    }
    EXPECT_EQ(namesIn(root / "city_Samples").size(), 2U);
}

class LosesTheNewFolder : public ScriptedProgress
{
public:
    explicit LosesTheNewFolder(fs::path parent) : m_parent(std::move(parent)) {}

    bool show(std::size_t done, std::size_t total) override
    {
        if (done == total) {
            removeStagedFolders(m_parent);
        }
        return true;
    }

private:
    fs::path m_parent;
};

TEST_F(ExportFile, SaysWhenTheSamplesDoNotReachTheirPlace)
{
    writeBytes(root / "samples" / "foot.wav", "foot");
    writeBytes(root / "city_Samples" / "old.wav", "old");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    LosesTheNewFolder losing(root.path());
    const ExportOutcome outcome = saveExport(modified, losing);
    EXPECT_FALSE(outcome.saved);
    const std::string& text = outcome.report->text.english;
    EXPECT_TRUE(text.starts_with("Cannot write [" + (root / "city_Samples").string() + "]")) << text;
    EXPECT_TRUE(text.ends_with("\n\n[city.tox] was saved, its samples were not.")) << text;
    EXPECT_EQ(namesIn(root / "city_Samples"), Names{"old.wav"});
}

#ifndef _WIN32 // where links take a right that users lack
TEST_F(ExportFile, WritesNoSamplesThroughALink)
{
    writeBytes(root / "elsewhere" / "old.wav", "old");
    fs::create_directory_symlink(root / "elsewhere", root / "city_Samples");
    writeBytes(root / "samples" / "foot.wav", "foot");
    writeBytes(root / "city.tox", "old");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    EXPECT_FALSE(saveExport(modified, progress).saved);
    EXPECT_EQ(readBytes(root / "city.tox"), "old");
    EXPECT_EQ(namesIn(root / "elsewhere"), Names{"old.wav"});
}
#endif

TEST_F(ExportFile, SaysWhatStaysOfTheOldSamples)
{
    writeBytes(root / "samples" / "foot.wav", "foot");
    writeBytes(root / "city_Samples" / "notes.txt", "notes");
    writeBytes(root / "city_Samples.tavrel-old" / "notes.txt", "older");
    ExportRequest modified = request(ExportMode::Modified, "city.tox");
    modified.withSamples = true;
    const ExportOutcome outcome = saveExport(modified, progress);
    EXPECT_TRUE(outcome.saved);
    EXPECT_NE(outcome.report->text.english.find("city_Samples.tavrel-old]"), std::string::npos);
    EXPECT_EQ(namesIn(root / "city_Samples"), (Names{"foot.wav", "notes.txt"}));
}

TEST(Export, ObjectsComeInGroupsOfTheirType)
{
    std::vector<SoundObject> objects;
    for (int i = 0; i < 50; ++i) {
        objects.push_back({"Animals", "A" + std::to_string(i), {1}});
    }
    for (int i = 0; i < 12; ++i) {
        objects.push_back({"Type " + std::to_string(i), "T", {2}});
    }
    objects.push_back({"Type 1", "late", {}});
    const std::vector<ObjectGroup> groups = objectGroups(objects);
    ASSERT_EQ(groups.size(), 10U);
    EXPECT_EQ(groups[0].objects.size(), 41U);
    EXPECT_EQ(groups[2].objects.back()->name, "late");
    EXPECT_EQ(groups[9].type, "Type 8");
}

} // namespace
