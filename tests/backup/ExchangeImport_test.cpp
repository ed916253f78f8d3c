// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeExport.h"
#include "backup/ExchangeImport.h"
#include "base/CodePage.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

TEST(Import, MergesTheLetters)
{
    const struct
    {
        const char* file;
        const char* current;
        const char* letter;
        const char* expected;
    } cases[] = {
        {"A:>new>VOL10>", "A:>old>#b", "g", "A:>new>VOL10>#b #g"},
        {"A:>new>VOL10>", "A:>old>#b #g", "g", "A:>new>VOL10>#b #g"},
        {"A:>new>VOL10>#x", "A:>old>", "g", "A:>new>VOL10>#x #g"},
        {"A:>new>VOL10 #x #y", "A:>old>#b", "g", "A:>new>VOL10 #b #g"}, // the blank stays
        {"A:>new>#oa", "A:>old>#b", "oa", "A:>new>#b #oa"},             // only the current line is looked at
        {"A:>new>#oa", "A:>old>", "oa", "A:>new>#oa #oa"},
        {"A:>new>", "A:>old>#ab", "a", "A:>new>#ab"}, // a piece of a letter counts
        {"A:>new>", "A:>old>#A", "a", "A:>new>#A #a"},
        {"A:>new", "A:>old>#b>tail", "a", "A:>new#b>tail #a"},
        {"A:>new>", "A:>old>", "", "A:>new>"},
    };
    for (const auto& [file, current, letter, expected] : cases) {
        EXPECT_EQ(mergedLine(withTabs(file), withTabs(current), letter), withTabs(expected));
    }
}

class ImportFiles : public testing::Test
{
protected:
    ImportFiles()
    {
        for (const char* line :
             {"A:>foot>VOL44>#g", "B:>bell>VOL44>#b", "C:>door>VOL44>", "D#1:>d>VOL44>#d"}) {
            catalogue.append(withTabs(line), withTabs(line), catalogue.size() + 1);
        }
    }

    ImportFile read(const char* name, const Names& records)
    {
        writeBytes(root / name, withTabs(textOf(records)));
        Result<ImportFile> file = readImportFile(root / name, catalogue, wad.letter);
        if (!file) {
            throw std::runtime_error(file.failure().text.english);
        }
        return std::move(*file);
    }

    ImportRequest request(const ImportFile& file) { return {file, wad, false, {}, root / "target"}; }

    Names lines() const
    {
        Names result;
        for (std::size_t i = 0; i < catalogue.size(); ++i) {
            result.push_back(catalogue.currentLine(i));
        }
        return result;
    }

    TemporaryFolder root;
    SoundCatalogue catalogue;
    CurrentWad wad{"oasis", "oa", "Oasis"};
    ScriptedProgress progress;
};

TEST_F(ImportFiles, MarksWhatCannotBeAppliedAndWhatIsOdd)
{
    std::string manySamples = "\"1\",\"B:>";
    for (int i = 0; i < 51; ++i) {
        manySamples += i < 50 ? "s " : "s";
    }
    const Names records = {
        "\"1\",\"B:>other>VOL10>#z\"",
        "\"4\",\"E:>e>\"",
        "\"-1\",\"A:>a>\"",
        "\"99999999999999999999\",\"A:\"",
        "\"0\",\"no colon\"",
        "\"3\",\"D#1:>d>VOL44>#d\"",
        "\"1\",\"B:>a#b>VOL10>\"",
        manySamples + " \"",
        "\"2\",\"OTHER:>e>VOL10>\"",
        "\"1\",\"B:>bell\"",
        "\"2\",\"C:>#b #c\"",
        "\"0\",\"A:>a>#b>VOL10\"",
        "\"3\",\"D:>d>VOL44>\"",
        manySamples + "\"",
    };
    const struct
    {
        const char* refusal;
        const char* remark;
    } imported[] = {{"", ""},
                    {"The catalogue has no line 4", ""},
                    {"The catalogue has no line -1", ""},
                    {"The catalogue has no line 99999999999999999999:", ""},
                    {"A sound line needs a name", ""},
                    {"A \"#\" stands in a name", ""},
                    {"A \"#\" stands in a name", ""},
                    {"A sound line cannot hold more than 50", ""},
                    {"", "The catalogue has [C] here"},
                    {"", "With the letters after it"},
                    {"", ""},
                    {"\"VOL\" stands behind the first", ""},
                    {"A \"#\" stands in a name", ""},               // of the catalogue's line
                    {"A sound line cannot hold more than 50", ""}}; // once letters stand behind the last
    const ImportFile file = read("a.tox", records);
    ASSERT_EQ(file.rows(), std::size(imported));
    for (std::size_t i = 0; i < file.rows(); ++i) {
        const auto& [refusal, remark] = imported[i];
        EXPECT_TRUE(file.whyRefused(i).english.starts_with(refusal)) << file.whyRefused(i).english;
        EXPECT_EQ(file.isApplicable(i), *refusal == '\0') << i;
        EXPECT_EQ(file.isTicked(i), *refusal == '\0') << i;
        EXPECT_TRUE(file.remark(i).english.starts_with(remark)) << file.remark(i).english;
        EXPECT_EQ(file.hasRemark(i), *remark != '\0') << i << file.remark(i).english;
    }
    // A backup does not cut its lines.
    const ImportFile backup = read("a.tob", records);
    EXPECT_TRUE(backup.isApplicable(5) && backup.isApplicable(6));
    EXPECT_FALSE(backup.isApplicable(1) || backup.isApplicable(4) || backup.isApplicable(7));
}

TEST_F(ImportFiles, AppliesTheTickedRows)
{
    ImportFile file = read("a.tox", {"\"1\",\"B:>one>VOL10>\"", "\"2\",\"C:>x>VOL10>#z\"",
                                     "\"1\",\"B:>two>VOL20>#q\"", "\"9\",\"Z:>z>\""});
    const Names before = lines();
    file.tick({});
    EXPECT_TRUE(applyImport(catalogue, request(file), progress).complete);
    EXPECT_FALSE(catalogue.differsFromFile());

    const std::vector<std::size_t> ticked = {0, 2, 3}; // the second builds on the first, the last cannot be
    file.tick(ticked);
    EXPECT_EQ(file.tickedRows(), 2U);
    EXPECT_TRUE(applyImport(catalogue, request(file), progress).complete);
    EXPECT_EQ(catalogue.currentLine(1), withTabs("B:>two>VOL20>#b #oa"));
    EXPECT_EQ(catalogue.currentLine(2), before[2]);
    EXPECT_TRUE(catalogue.differsFromFile());

    const ImportFile backup = read("a.TOB", {"\"2\",\"C:>x>VOL10>#z>behind \""});
    EXPECT_TRUE(applyImport(catalogue, request(backup), progress).complete);
    EXPECT_EQ(catalogue.currentLine(2), withTabs("C:>x>VOL10>#z>behind "));
}

// The other way to the same lines: one row after the other, each merged with what stands in the catalogue.
TEST_F(ImportFiles, WhatIsShownIsWhatAnImportRowByRowMakes)
{
    const Names lineTexts = {"B:>one>VOL10>", "B:>two>VOL20>#q", "C:>x>VOL10>#z", "C:>y#", "A:>a>"};
    std::mt19937 random(7);
    for (int run = 0; run < 200; ++run) {
        Names records;
        std::vector<std::size_t> ticked;
        for (std::size_t i = 0; i < 8; ++i) {
            records.push_back("\"" + std::to_string(random() % 4) + "\",\"" +
                              lineTexts[random() % lineTexts.size()] + "\"");
            if (random() % 2 == 0) {
                ticked.push_back(i);
            }
        }
        ImportFile file = read("a.tox", records);
        file.tick(ticked);
        SoundCatalogue expected = catalogue;
        for (std::size_t i = 0; i < file.rows(); ++i) {
            if (!file.isApplicable(i)) {
                continue;
            }
            const auto number = static_cast<std::size_t>(file.id(i));
            const std::string merged = mergedLine(file.line(i), expected.currentLine(number), "oa");
            EXPECT_EQ(file.result(i), merged) << records[i];
            if (file.isTicked(i)) {
                ASSERT_FALSE(expected.setCurrentLine(number, merged));
            }
        }
        SoundCatalogue imported = catalogue;
        ASSERT_TRUE(importTickedLines(imported, request(file)).linesApplied);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(imported.currentLine(i), expected.currentLine(i));
        }
    }
}

TEST_F(ImportFiles, TheRemarksFollowTheTicks)
{
    ImportFile file = read("b.tox", {"\"2\",\"C:>x>VOL10>#z\"", "\"2\",\"C:>y>VOL20>P\""});
    EXPECT_TRUE(file.remark(1).english.starts_with("With the letters after it"));
    const std::vector<std::size_t> second = {1};
    file.tick(second);
    EXPECT_EQ(file.remark(1).english, "");
}

TEST_F(ImportFiles, WhatIsAppliedIsNotMergedAgain)
{
    ImportFile file = read("a.tox", {"\"2\",\"C:>x>VOL10>P\"", "\"1\",\"B:>y>VOL20>\""});
    const std::vector<std::size_t> first = {0};
    const std::vector<std::size_t> both = {0, 1};
    file.tick(first);
    ASSERT_TRUE(importTickedLines(catalogue, request(file)).linesApplied);
    file.markApplied();
    file.tick(both);
    ASSERT_TRUE(importTickedLines(catalogue, request(file)).linesApplied);
    EXPECT_EQ(catalogue.currentLine(2), withTabs("C:>x>VOL10>P #oa"));
    EXPECT_EQ(file.result(0), catalogue.currentLine(2));
    EXPECT_EQ(catalogue.currentLine(1), withTabs("B:>y>VOL20>#b #oa")) << "what was ticked later comes in";
}

TEST_F(ImportFiles, AsksFirst)
{
    const ImportFile exchange = read("a.tox", {"\"1\",\"B:>one>VOL10>\""});
    const ImportFile backup = read("a.tob", {"\"1\",\"B:>one>VOL10>\""});
    const auto conversation = [](const ImportRequest& asked, Answer answer, bool expected,
                                 Language language) {
        ScriptedDialogs dialogs{answer};
        EXPECT_EQ(confirmExchangeImport(asked, dialogs), expected);
        EXPECT_EQ(dialogs.said().front().details.english, "1: B");
        return dialogs.conversation(language).front();
    };
    EXPECT_EQ(conversation(request(backup), Answer::No, false, Language::French),
              "Yes/No | Restaurer | Restaurer toutes les lignes.");
    EXPECT_EQ(conversation(request(exchange), Answer::Yes, true, Language::English),
              "Yes/No | Import | Import lines and apply [#oa] letter");
    ImportRequest withSamples = request(exchange);
    withSamples.withSamples = true;
    EXPECT_EQ(
        conversation(withSamples, Answer::Yes, true, Language::French),
        "Yes/No | Importer | Importer les lignes et appliquer la lettre [#oa]\r\n\r\nCopier les Fichiers "
        "Samples sélectionnés dans\r\n" +
            (root / "target" / "").string());
    wad = {};
    EXPECT_EQ(conversation(request(backup), Answer::Yes, true, Language::English),
              "Yes/No | Restore | Restore all lines.");
    ScriptedDialogs dialogs;
    EXPECT_FALSE(confirmExchangeImport(request(exchange), dialogs));
    EXPECT_EQ(dialogs.conversation(Language::English),
              Names{"exclamation | Import | Select a WAD/Letter reference first"});
}

TEST_F(ImportFiles, CopiesTheSamplesBehindTheLines)
{
    writeBytes(root / "A_SAMPLES" / "one.wav", "new");
    writeBytes(root / "A_SAMPLES" / "two.wav", "new");
    writeBytes(root / "target" / "ONE.wav", "old");
    ImportFile file = read("a.tox", {"\"1\",\"B:>one two con>VOL10>\"", "\"7\",\"Z:>gone>\""});
    ASSERT_TRUE(file.samplesFolder());
    EXPECT_TRUE(fs::equivalent(*file.samplesFolder(), root / "A_SAMPLES"));
    EXPECT_EQ(offeredSamples(file, 0), (Names{"one", "two", "con"}));
    EXPECT_EQ(offeredSamples(file, 1), Names());
    EXPECT_FALSE(read("a.tob", {}).samplesFolder());
    const ImportFile alone = read("ab.tox", {});
    EXPECT_FALSE(alone.samplesFolder());
    ImportRequest inVain = request(alone);
    inVain.withSamples = true;
    EXPECT_FALSE(applyImport(catalogue, inVain, progress).complete);

    ImportRequest asked = request(file);
    asked.withSamples = true;
    asked.samples = offeredSamples(file, 0);
    ScriptedProgress stopping(1);
    const ImportOutcome cancelled = applyImport(catalogue, asked, stopping);
    EXPECT_TRUE(cancelled.linesApplied && !cancelled.complete);
    EXPECT_EQ(cancelled.report->text.english,
              "Cancelled.\n\nThe lines were imported. These samples were copied before:\none.wav");
    EXPECT_TRUE(catalogue.differsFromFile());
    const auto expectTarget = [this](const Names& expected) { // Wine keeps the spelling of a replaced file
        EXPECT_TRUE(std::ranges::equal(namesIn(root / "target"), expected, sameName));
    };
    expectTarget({"one.wav"});

    file.markApplied();
    const ImportOutcome complete = applyImport(catalogue, asked, progress);
    EXPECT_TRUE(complete.complete);
    EXPECT_TRUE(complete.report->text.english.ends_with("[con]"));
    expectTarget({"one.wav", "two.wav"});
    EXPECT_EQ(catalogue.currentLine(1), withTabs("B:>one two con>VOL10>#b #oa")) << "the letter came once";
}

#ifndef _WIN32 // where links take a right that users lack
TEST_F(ImportFiles, ReadingChangesNothingOnTheDisk)
{
    const auto tree = [this] {
        Names entries;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root.path())) {
            entries.push_back(entry.path().string() + "|" +
                              (entry.is_regular_file() ? readBytes(entry.path()) : std::string()));
        }
        std::ranges::sort(entries);
        return entries;
    };
    // A stranger's file comes with a link to the level editor's samples, and with what a swap leaves.
    writeBytes(root / "target" / "one.wav", "the user's");
    for (const char* name : {"linked_Samples", "a_Samples.tavrel-old", "a_Samples.tavrel-new"}) {
        fs::create_directory_symlink(root / "target", root / name);
    }
    writeBytes(root / "a_Samples" / "one.wav", "theirs");
    writeBytes(root / "b_Samples.tavrel-old" / "one.wav", "theirs");
    for (const char* name : {"a.tox", "b.tox", "linked.tox", "a.tob"}) {
        writeBytes(root / name, withTabs(textOf({"\"1\",\"B:>one>VOL10>\""})));
    }
    const Names before = tree();
    for (const char* name : {"a.tox", "b.tox", "linked.tox", "a.tob"}) {
        const Result<ImportFile> file = readImportFile(root / name, catalogue, "oa");
        ASSERT_TRUE(file);
        EXPECT_EQ(file->samplesFolder().has_value(), file->kind() == ExchangeKind::Exchange) << name;
    }
    EXPECT_EQ(tree(), before);
}
#endif

TEST_F(ImportFiles, ComparesAFileLineWithTheCataloguesLine)
{
    const ImportFile file = read("a.tox", {"\"1\",\"B:>bell two>VOL10>>#z\"", "\"9\",\"Z:>z>\""});
    std::string differing;
    for (const FieldComparison& field : compareWithCatalogue(&file, 0)) {
        if (field.differs) {
            differing += field.field.english + ": " + field.values[0] + " | " + field.values[1] + " | " +
                         field.values[2] + "\n";
        }
    }
    EXPECT_EQ(differing,
              "Samples: bell two | bell | bell two\nVOL: VOL10 | VOL44 | VOL10\nLetters: #z | #b | #b #oa\n");
    const std::vector<FieldComparison> beyond = compareWithCatalogue(&file, 1);
    EXPECT_EQ(beyond.front().values, (std::array<std::string, 3>{"Z:", "", ""}));
    EXPECT_FALSE(beyond.front().differs);
}

SoundCatalogue loadedFrom(const DemoFolders& folders)
{
    Result<LoadedCatalogue> loaded = loadCatalogue({folders.program, folders.creator, false});
    if (!loaded) {
        throw std::runtime_error(loaded.failure().text.english);
    }
    return std::move(loaded->catalogue);
}

TEST(ExchangeRoundTrip, ABackupBringsEveryByteBack)
{
    const DemoFolders folders;
    ScriptedProgress progress;
    std::vector<std::string> work = stockLines();
    for (std::string& line : work) {
        line = AddLetter(line, "zz");
    }
    writeBytes(folders.sounds, textOf(work));
    SoundCatalogue catalogue = loadedFrom(folders);
    const fs::path file = folders.root / "all.tob";
    const ExportRequest all{
        ExportMode::All, listForExport(catalogue, ExportMode::All, ""), file, false, {}, {}, {}};
    ScriptedDialogs dialogs{Answer::Yes, Answer::Yes};
    ASSERT_TRUE(confirmExchangeExport(all, dialogs));
    ASSERT_TRUE(saveExport(all, progress).saved);
    EXPECT_TRUE(dialogs.said().empty()) << "nothing is dropped, nothing to ask";

    for (std::size_t i = 0; i < catalogue.size(); ++i) {
        ASSERT_FALSE(catalogue.setCurrentLine(i, "X:\tother\tVOL01\t"));
    }
    ASSERT_TRUE(applyChanges(catalogue, {folders.program, "oasis"}, dialogs));
    ASSERT_NE(readBytes(folders.sounds), textOf(work));

    fs::copy_file(file, folders.root / "all.tox");
    const Result<ImportFile> exchange = readImportFile(folders.root / "all.tox", catalogue, "oa");
    ASSERT_TRUE(exchange);
    EXPECT_EQ(exchange->tickedRows(), exchange->rows());
    const Result<ImportFile> backup = readImportFile(file, catalogue, "");
    ASSERT_TRUE(backup);
    ASSERT_TRUE(applyImport(catalogue, {*backup, {}, false, {}, {}}, progress).complete);
    ASSERT_TRUE(applyChanges(catalogue, {folders.program, "oasis"}, dialogs));
    EXPECT_EQ(firstDifference(readBytes(folders.sounds), textOf(work)), "");
}

TEST(ExchangeRoundTrip, AnExchangeKeepsTheLettersOfTheOtherSide)
{
    const DemoFolders mine;
    const DemoFolders theirs;
    ScriptedProgress progress;
    SoundCatalogue catalogue = loadedFrom(mine);
    const std::string changed = "CROC_ATTACK:\t\tother\t\t\tVOL33\t\t\t\t\t#oa";
    ASSERT_FALSE(catalogue.setCurrentLine(80, changed));
    const fs::path file = mine.root / "oasis.tox";
    ASSERT_TRUE(saveExport({ExportMode::Modified,
                            listForExport(catalogue, ExportMode::Modified, "oa"),
                            file,
                            false,
                            {},
                            {},
                            {}},
                           progress)
                    .saved);
    SoundCatalogue target = loadedFrom(theirs);
    ASSERT_FALSE(target.setCurrentLine(80, target.currentLine(80) + "#q1 #q2"));
    const Result<ImportFile> read = readImportFile(file, target, "ne");
    ASSERT_TRUE(read);
    ASSERT_EQ(read->rows(), 1U);
    ASSERT_TRUE(applyImport(target, {*read, {"new", "ne", ""}, false, {}, {}}, progress).complete);
    EXPECT_EQ(target.currentLine(80), "CROC_ATTACK:\t\tother\t\t\tVOL33\t\t\t\t\t#q1 #q2 #ne");
}

} // namespace
