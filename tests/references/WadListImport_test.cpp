// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ChangedLines.h"
#include "references/WadListImport.h"
#include "references/WadView.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(WadLists, AWordCountsAtItsFirstPlaceOnly)
{
    struct Case
    {
        const char* line;
        bool door;
    };
    for (const Case& c : {Case{"N:>door door2>VOL08", true},
                          {"N:>a door>", true},
                          {"N:>a door ", true},
                          {"N:>door2>", false},
                          {"N:>bigdoor>", false},
                          {"N:>bigdoor door>", false},
                          {"N:>DOOR>", false},
                          {"N:>a door", false},
                          {"door ", false},
                          {"N:door>", false}}) {
        EXPECT_EQ(standsAsFirstWord(withTabs(c.line), "door"), c.door) << c.line;
    }
}

TEST(WadLists, ObjectsMatchWhenOneNameHoldsTheOther)
{
    EXPECT_TRUE(objectsMatch("CROCODILE_MIP", "CROCODILE"));
    EXPECT_TRUE(objectsMatch("MINE", "MINE_DETECTOR"));
    EXPECT_FALSE(objectsMatch("BAT", "CAT"));
    EXPECT_FALSE(objectsMatch("", "BAT"));
    EXPECT_FALSE(objectsMatch("BAT", ""));
}

TEST(WadLists, ReadsNamesAndPassesOverWhatIsNone)
{
    struct Case
    {
        WadListKind kind;
        std::string content;
        std::vector<std::string> names;
        const char* passedOver; // in the only notice
    };
    const WadListKind sam = WadListKind::Samples;
    const WadListKind was = WadListKind::Objects;
    const TemporaryFolder folder;
    for (const Case& c :
         {Case{sam, "door.wav, \"a,b.wav\"\r\n", {"door", "a,b"}, ""},
          {sam, "a.wav\n\n.wav\nb.wav", {"a", "b"}, ": line 2 (blank), line 3 [.wav]"},
          {sam, "\"l.wav\" x,m.wav\n\"n.wav\"\"\n", {"m"}, R"(: line 1 ["l.wav" x], line 2 ["n.wav""])"},
          {sam, std::string(1'000, '\n') + "a.wav", {"a"}, "line 8 (blank) ... and 992 more"},
          {was, "LARA:Z:\\X\nno colon\n\nBAT:", {"LARA", "BAT"}, ""},
          {was, ":x", {}, ": line 1 [:x]"}}) {
        writeBytes(folder / ("level" + std::string(endingOf(c.kind))), c.content);
        const Result<WadList> list = readWadList(folder.path(), "LEVEL", c.kind);
        ASSERT_TRUE(list) << c.content;
        EXPECT_EQ(list->names, c.names) << c.content;
        ASSERT_EQ(list->notices.empty(), *c.passedOver == '\0') << c.content;
        if (!list->notices.empty()) {
            EXPECT_TRUE(list->notices[0].text.english.ends_with(c.passedOver))
                << list->notices[0].text.english;
        }
    }
}

TEST(WadLists, ASampleIsFoundByItsFirstWord)
{
    SampleUses uses({withTabs("A:>two words>"), withTabs("B:>two>words>"), withTabs("C:>words  x>")});
    EXPECT_EQ(uses.of("two"), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(uses.of("two words"), std::vector<std::size_t>{0});
    EXPECT_EQ(uses.of(" x"), std::vector<std::size_t>{2});
    EXPECT_EQ(uses.of("word"), std::vector<std::size_t>());
    uses.setLine(0, withTabs("A:>two words>#x "));
    EXPECT_EQ(uses.of("#x"), std::vector<std::size_t>{0});
}

namespace {

class WadImportTest : public testing::Test
{
protected:
    WadImportTest()
    {
        for (int k = 0; k <= 60; ++k) {
            lines.push_back(
                withTabs("S" + std::to_string(k) + ":>>>sample" + std::to_string(k) + ">>>VOL08>>>>RAD05>"));
        }
    }

    void load()
    {
        catalogue = SoundCatalogue();
        for (const std::string& line : lines) {
            catalogue.append(line, line, catalogue.size() + 1);
        }
        catalogue.setDoubles(doubles);
        catalogue.setObjects({{"A", "BAT", {1, 2, lines.size(), 99}}, {"A", "BATTLE", {3}}});
    }
    ImportResult import(WadListKind kind, const std::string& list, Dialogs& dialogs)
    {
        writeBytes(folders / "wads" / (kind == WadListKind::Samples ? "OASIS.sam" : "oasis.Was"), list);
        return importWadList(catalogue, wad, kind, places, dialogs);
    }
    ImportResult import(WadListKind kind, const std::string& list)
    {
        ScriptedDialogs dialogs{Answer::Ok};
        ImportResult result = import(kind, list, dialogs);
        notice = dialogs.said().back().text.english;
        return result;
    }
    std::vector<std::size_t> marked() const
    {
        std::vector<std::size_t> numbers;
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            if (catalogue.currentLine(k).ends_with("#oa")) {
                numbers.push_back(k);
            }
        }
        return numbers;
    }
    void save(const std::string& records)
    {
        writeBytes(folders / "program" / "sounds" / "Oasis.tor", records);
    }

    TemporaryFolder folders;
    Places places{folders / "program", {}, {}, {}, folders / "wads"};
    std::vector<std::string> lines;
    DoublesStatus doubles;
    SoundCatalogue catalogue;
    CurrentWad wad{"oasis", "oa", "The oasis"};
    std::string notice;
};

using Numbers = std::vector<std::size_t>;

} // namespace

TEST_F(WadImportTest, SamplesMarkTheLinesThatUseThem)
{
    lines[2] = withTabs("S2:>>>sample1 sample2>>VOL08>>>>RAD05>#cd");
    lines[3] = withTabs("S3:>>>sample1>>>VOL08>>>>RAD05>#g");
    lines[4] = withTabs("S4:>>>sample1>>>VOL08>>>>RAD05");
    lines[5] = withTabs("S5:>>>sample1>>>VOL08>>>>RAD05>#oa");
    doubles.set(6, DoublesStatus::leftOut);
    load();
    const ImportResult result =
        import(WadListKind::Samples, "sample1.wav\r\n\"sample6.wav\",nowhere.wav\r\n\r\n.wav\r\n");
    EXPECT_TRUE(result.imported);
    EXPECT_EQ(result.unknownSamples, std::vector<std::string>{"nowhere"})
        << "a double left out is no unknown one";
    EXPECT_EQ(marked(), (Numbers{1, 2, 4, 5}));
    EXPECT_TRUE(catalogue.currentLine(2).ends_with("\t#cd #oa"));
    EXPECT_TRUE(catalogue.currentLine(4).ends_with("RAD05\t#oa")) << "the letter must not stick to the value";
    EXPECT_EQ(catalogue.currentLine(3), lines[3]);
    EXPECT_TRUE(
        notice.starts_with("3 sounds got the letter.\n1 sample is used by no sound.\n\nNothing is written"))
        << notice;
    EXPECT_TRUE(notice.ends_with(": line 3 (blank), line 4 [.wav]")) << notice;
}

TEST_F(WadImportTest, ALetterMayFollowASampleWithNothingBehindIt)
{
    lines[0] = withTabs("DOOR:>door1 door2");
    lines[1] = withTabs("DOOR:>door1 VOL08");
    load();
    import(WadListKind::Samples, "door1.wav");
    EXPECT_EQ(catalogue.currentLine(0), withTabs("DOOR:>door1 door2>#oa"));
    EXPECT_EQ(catalogue.currentLine(1), withTabs("DOOR:>door1 VOL08>#oa"));
    EXPECT_EQ(notice.find("second letter"), std::string::npos) << notice;
}

TEST_F(WadImportTest, ASoundWithoutSamplesTakesNoSecondLetter)
{
    lines[1] = withTabs("S1:>#cd");
    lines[3] = withTabs("S3:>#cd");
    load();
    import(WadListKind::Objects, "BAT:\r\nBATTLE:\r\n");
    EXPECT_EQ(catalogue.currentLine(1), lines[1]);
    const std::string told = "\nSounds 1, 3: another letter would be read as a sample.\n";
    EXPECT_NE(notice.find(told), std::string::npos) << notice;
    EXPECT_EQ(notice.find("another letter"), notice.rfind("another letter")) << "once for all of them";
}

// The TAB before the letter ends the line's last word, which is a sample from then on.
TEST_F(WadImportTest, EachSampleIsLookedForInTheLinesOfThatMoment)
{
    lines[0] = withTabs("DOOR:>door1 door2");
    using Names = std::vector<std::string>;
    for (const auto& [list, unknown] :
         {std::pair<const char*, Names>{"door1.wav\r\ndoor2.wav\r\n", {}},
          std::pair<const char*, Names>{"door2.wav\r\ndoor1.wav\r\n", {"door2"}}}) {
        load();
        EXPECT_EQ(import(WadListKind::Samples, list).unknownSamples, unknown) << list;
        EXPECT_EQ(catalogue.currentLine(0), withTabs("DOOR:>door1 door2>#oa"));
    }
}

TEST_F(WadImportTest, TheNoticeCountsInWords)
{
    lines[3] += "#oa";
    lines[7] += "#oa"; // of no listed sample
    const auto firstLines = [this](Language language) {
        ScriptedDialogs dialogs{Answer::Ok};
        import(WadListKind::Samples, "sample1.wav\nsample3.wav\n", dialogs);
        const std::string text = dialogs.conversation(language).back();
        return text.substr(text.rfind(" | ") + 3);
    };
    load();
    EXPECT_EQ(firstLines(Language::English),
              "1 sound got the letter.\n\nNothing is written until the changes are applied.");
    EXPECT_EQ(firstLines(Language::English), "No sound got the letter: 2 already had it.");
    load();
    EXPECT_EQ(firstLines(Language::French),
              "1 son a reçu la lettre.\n\nRien n'est écrit tant que les changements ne sont pas appliqués.");
    EXPECT_EQ(firstLines(Language::French), "Aucun son n'a reçu la lettre : 2 l'avaient déjà.");
    save("1,\"" + lines[1] + "\"\r\n"); // without the letter, which then comes anew
    EXPECT_TRUE(firstLines(Language::English).starts_with("No sound got the letter: 2 already had it."));
}

TEST_F(WadImportTest, TakesWhateverLetterTheWadHas)
{
    for (const char* letter : {"g1", "abc"}) {
        load();
        wad.letter = letter;
        import(WadListKind::Samples, "sample1.wav");
        EXPECT_TRUE(catalogue.currentLine(1).ends_with("\t#" + wad.letter));
    }
}

TEST_F(WadImportTest, ObjectsMarkTheirSoundsAndTheSoundUnderWater)
{
    load();
    import(WadListKind::Objects, "BAT:Z:\\BAT\r\n");
    EXPECT_EQ(marked(), (Numbers{1, 2, 3, 60})) << "BATTLE holds BAT";
    load();
    import(WadListKind::Objects, "NOTHING:x\r\nno colon\r\n:x\r\nNONE:x\r\nNOTHING:y\r\n");
    EXPECT_EQ(marked(), Numbers{60});
    EXPECT_NE(notice.find("\n2 objects of the list have no sounds that Tavrel knows: [NOTHING], [NONE]\n"),
              std::string::npos)
        << notice;
    lines.resize(50);
    load();
    import(WadListKind::Objects, "NOTHING:x");
    EXPECT_EQ(marked(), Numbers{});
    EXPECT_FALSE(catalogue.differsFromFile());
}

TEST_F(WadImportTest, StartsFromTheSavedLines)
{
    load();
    std::string many; // more samples than a line can have
    for (int i = 0; i < 60; ++i) {
        many += " a";
    }
    const std::string saved7 = withTabs("S7:>>>other, \"x\">>>VOL08>>>>RAD05>");
    save("7,\"" + saved7 + "\"\r\n8,\"S9: wrong name\"\r\nx,\"S1:\"\r\n99,\"S99: a\"\r\n3\r\n6,\"S6:" + many +
         "\"\r\n");
    ASSERT_FALSE(catalogue.setCurrentLine(7, lines[7] + "#zz #oa"));
    import(WadListKind::Samples, "sample1.wav");
    EXPECT_EQ(catalogue.currentLine(7), saved7);
    EXPECT_EQ(marked(), Numbers{1});
    EXPECT_NE(notice.find("1 sound is back as it was saved for this WAD, with its samples and values.\n"
                          "Letters of other WADs that this took off:\n  7: S7  #zz\n"),
              std::string::npos)
        << notice;
    EXPECT_NE(notice.find(": line 2 [8,\"S9: wrong name\"], line 3 "), std::string::npos) << notice;
    EXPECT_NE(notice.find(", line 6 ["), std::string::npos) << notice;
    const std::vector<std::string> once = {catalogue.currentLine(1), catalogue.currentLine(7)};
    import(WadListKind::Samples, "sample1.wav");
    EXPECT_EQ(once, (std::vector<std::string>{catalogue.currentLine(1), catalogue.currentLine(7)}));
}

TEST_F(WadImportTest, NamesTheFirstLettersThatAreTakenOff)
{
    std::string records;
    for (std::size_t k = 0; k < 10; ++k) {
        records += std::to_string(k) + ",\"" + lines[k] + "\"\r\n";
        lines[k] += "#yy #zz";
    }
    save(records);
    load();
    ScriptedDialogs declined{Answer::Cancel};
    import(WadListKind::Samples, "sample20.wav", declined);
    const std::string details = declined.said()[0].details.english;
    EXPECT_TRUE(details.starts_with("10 sounds go back to their saved lines:\n0: S0\n1: S1\n")) << details;
    EXPECT_NE(details.find("\n9: S9\n\n1 sound gets the letter:\n20: "), std::string::npos) << details;
    import(WadListKind::Samples, "sample20.wav");
    EXPECT_NE(notice.find("10 sounds are back as they were"), std::string::npos) << notice;
    EXPECT_NE(notice.find("\n  7: S7  #yy  #zz\n  ... and 2 more\n"), std::string::npos) << notice;
}

TEST_F(WadImportTest, ASavedLineHasTwoFields)
{
    load();
    const std::string quotes = withTabs(R"(S2:>>>a "x", "y" b>>>VOL08>>>>RAD05>)");
    save("0,\"S0: new\",\"x\"\r\n1,\"S1: new\",5,\"x\"\r\n2,\"" + quotes + "\"\r\n");
    import(WadListKind::Samples, "sample20.wav");
    EXPECT_EQ(catalogue.currentLine(0), lines[0]);
    EXPECT_EQ(catalogue.currentLine(1), lines[1]);
    EXPECT_EQ(catalogue.currentLine(2), quotes);
    EXPECT_NE(notice.find("ignored: line 1 ["), std::string::npos) << notice;
    EXPECT_NE(notice.find("], line 2 ["), std::string::npos) << notice;
    EXPECT_EQ(notice.find("line 3"), std::string::npos) << notice;
}

TEST_F(WadImportTest, SavedLinesThatCannotBeReadStopTheImport)
{
    const std::filesystem::path saved = folders / "program" / "sounds";
    const auto expectRefusal = [&](const std::string& file) {
        load();
        ScriptedDialogs dialogs;
        EXPECT_FALSE(import(WadListKind::Samples, "sample1.wav", dialogs).imported);
        ASSERT_EQ(dialogs.said().size(), 1U) << "before the question";
        EXPECT_NE(dialogs.said()[0].text.english.find(file), std::string::npos);
        EXPECT_FALSE(catalogue.differsFromFile());
        EXPECT_TRUE(hasChangedLines(folders / "program", wad.wadName));
    };
    EXPECT_FALSE(hasChangedLines(folders / "program", wad.wadName));
    save(std::string("1,\"S1:\0\"", 8));
    expectRefusal("Oasis.tor");
    std::filesystem::remove_all(saved);
    std::filesystem::create_directories(saved / "OASIS.tor");
    expectRefusal("OASIS.tor");
    std::filesystem::remove_all(saved);
    writeBytes(saved, "a file in the folder's place, which cannot be listed");
    expectRefusal("sounds");
}

TEST_F(WadImportTest, AsksAndRefusesWithItsTexts)
{
    load();
    const std::string folder = (folders / "wads" / "").string();
    ScriptedDialogs refused;
    EXPECT_FALSE(importWadList(catalogue, {}, WadListKind::Samples, {}, refused).imported);
    EXPECT_TRUE(importWadList(catalogue, wad, WadListKind::Samples, places, refused).unreadable);
    EXPECT_EQ(refused.conversation(Language::English),
              (std::vector<std::string>{
                  "exclamation | Import SAM (samples) file | Select a WAD/Letter reference first",
                  "exclamation | Import SAM (samples) file | No [oasis.SAM] File\nin " + folder}));
    std::filesystem::create_directories(folders / "wads" / "oasis.was"); // a folder in the file's place
    ScriptedDialogs noFile;
    importWadList(catalogue, wad, WadListKind::Objects, places, noFile);
    EXPECT_EQ(noFile.conversation(Language::French)[0],
              "exclamation | Importer le fichier WAS (objets) | Aucun Fichier [oasis.WAS]\ndans " + folder);
    std::filesystem::remove(folders / "wads" / "oasis.was");
    ScriptedDialogs declined{Answer::Cancel, Answer::Cancel};
    EXPECT_FALSE(import(WadListKind::Samples, "sample1.wav", declined).imported);
    EXPECT_FALSE(import(WadListKind::Objects, "BAT:", declined).unreadable);
    EXPECT_EQ(declined.conversation(Language::English),
              (std::vector<std::string>{
                  "OK/Cancel | Load SAM file | Open [oasis.SAM] and assign [#oa] to included sounds.\nAll "
                  "modifications already applied will be lost.",
                  "OK/Cancel | Load WAS file | Open [oasis.WAS] and assign [#oa] to included objects.\nAll "
                  "modifications already applied  will be lost."}));
    EXPECT_EQ(
        declined.conversation(Language::French)[0],
        "OK/Cancel | Charger fichier SAM | Ouvrir [oasis.SAM] et assigner [#oa] aux sons incorporés.\nLes "
        "modifications déjà apportées seront perdues");
    EXPECT_EQ(
        declined.conversation(Language::French)[1],
        "OK/Cancel | Charger fichier WAS | Ouvrir [oasis.WAS] et assigner [#oa] aux objets incorporés.\nLes "
        "modifications déjà apportées seront perdues");
    EXPECT_FALSE(catalogue.differsFromFile());
}

namespace {

std::string shown(const WadViewRows& rows)
{
    std::string text;
    for (const WadViewRow& row : rows ? *rows : std::vector<WadViewRow>()) {
        const std::string mark = row.mark == WadViewMark::Lacking   ? "!"
                                 : row.mark == WadViewMark::LeftOut ? "-"
                                                                    : "";
        text += row.name + (row.sound ? ":" + std::to_string(*row.sound) : "") + mark +
                (row.saved ? "*" : "") + " ";
    }
    return rows ? text : "unknown";
}

} // namespace

TEST_F(WadImportTest, TheViewShowsWhatLacksTheLetter)
{
    lines[1] += "#oa";
    lines[2] += "#g";
    lines[5] += "#oa";
    lines[60] += "#oa";
    doubles.set(6, DoublesStatus::leftOut);
    load();
    writeBytes(folders / "wads" / "oasis.sam",
               "sample1.wav\r\nsample2.wav\r\nsample4.wav\r\nnowhere.wav\r\nsample6.wav\r\nsample1.wav\r\n");
    writeBytes(folders / "wads" / "oasis.was", "BATTLE:x\r\nLARA:x\r\nBATTLE:y\r\n");
    save("4,\"" + lines[4] + "\"\r\n");
    WadView view = viewWad(catalogue, wad, places);
    EXPECT_EQ(shown(view.samples), "sample1:1 sample2:2 sample4:4!* nowhere! sample6:6- ");
    EXPECT_EQ(shown(view.objects), "BATTLE:1 BATTLE:2 BATTLE:3! LARA :60 ");
    EXPECT_EQ(shown(view.surplus), ":5 ") << "the sound under water is always asked for";
    EXPECT_TRUE(view.notices.empty());

    lines[60].resize(lines[60].size() - 3);
    load();
    catalogue.setObjects({{"A", "BAT", {1, 2}}, {"A", "BATTLE", {2, 3, 1}}});
    writeBytes(folders / "wads" / "oasis.sam", "\r\nsample6.wav\r\n");
    save("x");
    view = viewWad(catalogue, wad, places);
    EXPECT_EQ(shown(view.objects), "BATTLE:1 BATTLE:2 BATTLE:3! LARA :60! ") << "each sound once";
    EXPECT_EQ(view.notices.size(), 2U) << "a blank value, a record that is none";

    std::filesystem::remove(folders / "wads" / "oasis.was");
    view = viewWad(catalogue, wad, places);
    EXPECT_EQ(shown(view.samples), "sample6:6- ");
    EXPECT_EQ(shown(view.objects) + shown(view.surplus), "unknownunknown")
        << "the missing list may ask for more";
    EXPECT_EQ(view.notices.size(), 3U);
}

TEST_F(WadImportTest, AListThatCannotBeReadChangesNothing)
{
    load();
    for (const std::string& list : {std::string("sample1.wav\r\n\"sample2.wav\r\n"),
                                    std::string("sample1.wav\0", 12), std::string(9U << 20U, 'x')}) {
        ScriptedDialogs dialogs;
        const ImportResult result = import(WadListKind::Samples, list, dialogs);
        EXPECT_FALSE(result.imported);
        EXPECT_TRUE(result.unreadable);
        ASSERT_EQ(dialogs.said().size(), 1U);
        EXPECT_NE(dialogs.said()[0].text.french.find("OASIS.sam"), std::string::npos);
    }
    EXPECT_FALSE(catalogue.differsFromFile());
}
