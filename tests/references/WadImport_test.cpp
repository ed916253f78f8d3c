// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadImport.h"
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
    EXPECT_EQ(objectOfValue("LARA:Z:\\X"), "LARA");
    EXPECT_EQ(objectOfValue("no colon"), "");
    EXPECT_EQ(sampleOfValue("door.wav"), "door");
    EXPECT_EQ(sampleOfValue(".wav"), "");
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
        catalogue.setObjects({{"A", "BAT", {1, 2, 99}}, {"A", "BATTLE", {3}}});
    }
    ImportResult import(WadListKind kind, const std::string& list, Dialogs& dialogs)
    {
        writeBytes(folders / "wads" / (kind == WadListKind::Samples ? "OASIS.sam" : "oasis.Was"), list);
        return importWadList(catalogue, wad, kind, {folders / "program", folders / "wads"}, dialogs);
    }
    ImportResult import(WadListKind kind, const std::string& list)
    {
        ScriptedDialogs dialogs{Answer::Ok};
        const ImportResult result = import(kind, list, dialogs);
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
    EXPECT_EQ(notice.substr(0, 61), "3 line(s) got the letter.\n1 sample(s) are used by no sound.\n\n");
    EXPECT_NE(notice.find("line 3"), std::string::npos);
    EXPECT_NE(notice.find("line 4"), std::string::npos);
}

TEST_F(WadImportTest, ObjectsMarkTheirSoundsAndTheSoundUnderWater)
{
    load();
    import(WadListKind::Objects, "BAT:Z:\\BAT\r\n");
    EXPECT_EQ(marked(), (Numbers{1, 2, 3, 60})) << "BATTLE holds BAT";
    load();
    import(WadListKind::Objects, "NOTHING:x\r\nno colon\r\n:x\r\n");
    EXPECT_EQ(marked(), Numbers{60});
    lines.resize(50);
    load();
    import(WadListKind::Objects, "NOTHING:x");
    EXPECT_EQ(marked(), Numbers{});
    EXPECT_FALSE(catalogue.pending());
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
    EXPECT_NE(notice.find("took letters of other WADs off these sounds: 7"), std::string::npos) << notice;
    EXPECT_NE(notice.find("line 6"), std::string::npos);
    const std::vector<std::string> once = {catalogue.currentLine(1), catalogue.currentLine(7)};
    import(WadListKind::Samples, "sample1.wav");
    EXPECT_EQ(once, (std::vector<std::string>{catalogue.currentLine(1), catalogue.currentLine(7)}));
}

TEST_F(WadImportTest, AsksAndRefusesWithItsTexts)
{
    load();
    const std::string folder = (folders / "wads" / "").string();
    ScriptedDialogs refused;
    EXPECT_FALSE(importWadList(catalogue, {}, WadListKind::Samples, {}, refused).imported);
    EXPECT_FALSE(
        importWadList(catalogue, wad, WadListKind::Samples, {folders.path(), folders / "wads"}, refused)
            .imported);
    EXPECT_EQ(refused.conversation(Language::English),
              (std::vector<std::string>{
                  "exclamation | Import SAM (samples) file | Select a WAD/Letter reference first",
                  "exclamation | Import SAM (samples) file | No [oasis.SAM] File\nin " + folder}));
    ScriptedDialogs declined{Answer::Cancel, Answer::Cancel};
    EXPECT_FALSE(import(WadListKind::Samples, "sample1.wav", declined).imported);
    EXPECT_FALSE(import(WadListKind::Objects, "BAT:", declined).imported);
    EXPECT_EQ(declined.conversation(Language::English),
              (std::vector<std::string>{
                  "OK/Cancel | Load SAM file | Open [oasis.SAM] and assign [#oa] to included sounds.\nAll "
                  "modifications already applied will be lost.",
                  "OK/Cancel | Load WAS file | Open [oasis.WAS] and assign [#oa] to included objects.\nAll "
                  "modifications already applied  will be lost."}));
    EXPECT_EQ(
        declined.conversation(Language::French)[1],
        "OK/Cancel | Charger fichier WAS | Ouvrir [oasis.WAS] et assigner [#oa] aux objets incorporés.\nLes "
        "modifications déjà apportées seront perdues");
    EXPECT_FALSE(catalogue.pending());
}

TEST_F(WadImportTest, TheViewShowsWhatLacksTheLetter)
{
    lines[1] += "#oa";
    lines[2] += "#g";
    lines[5] += "#oa";
    lines[60] += "#oa";
    load();
    writeBytes(folders / "wads" / "oasis.sam",
               "sample1.wav\r\nsample2.wav\r\nsample4.wav\r\nnowhere.wav\r\n\r\n");
    writeBytes(folders / "wads" / "oasis.was", "BATTLE:x\r\nLARA:x\r\n");
    save("4,\"" + lines[4] + "\"\r\n");
    const WadView view = viewWad(catalogue, wad, {folders / "program", folders / "wads"});
    const auto shown = [](const std::vector<WadViewRow>& rows) {
        std::string text;
        for (const WadViewRow& row : rows) {
            text += row.name + (row.sound ? ":" + std::to_string(*row.sound) : "") +
                    (row.lacking ? "!" : "") + (row.changed ? "*" : "") + " ";
        }
        return text;
    };
    EXPECT_EQ(shown(view.samples), "sample1:1 sample2:2 sample4:4!* nowhere! ");
    EXPECT_EQ(shown(view.objects), "BATTLE:1 BATTLE:2 BATTLE:3! LARA ");
    EXPECT_EQ(shown(view.surplus), ":5 ") << "the sound under water is always asked for";
    EXPECT_TRUE(view.notices.empty());
    EXPECT_EQ(viewWad(catalogue, {"other", "oa", ""}, {folders / "program", folders / "wads"}).notices.size(),
              2U);
}

TEST_F(WadImportTest, AListThatCannotBeReadChangesNothing)
{
    load();
    for (const std::string& list : {std::string("sample1.wav\r\n\"sample2.wav\r\n"),
                                    std::string("sample1.wav\0", 12), std::string(9U << 20U, 'x')}) {
        ScriptedDialogs dialogs;
        EXPECT_FALSE(import(WadListKind::Samples, list, dialogs).imported);
        ASSERT_EQ(dialogs.said().size(), 1U);
        EXPECT_NE(dialogs.said()[0].text.french.find("OASIS.sam"), std::string::npos);
    }
    EXPECT_FALSE(catalogue.pending());
}
