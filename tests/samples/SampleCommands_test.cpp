// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"
#include "samples/SampleCommands.h"
#include "samples/SampleFormat.h"
#include "samples/SampleRepair.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

const std::string name26(26, 'n');
const std::string name27(27, 'm');
const std::string name31(31, 'l');
const std::string name32(32, 'k');

class SampleCommands : public testing::Test
{
protected:
    SampleCommands()
    {
        for (const std::string& name : {std::string("A"), std::string("BB"), std::string("new"),
                                        std::string("foot"), name26, name27, name31, name32}) {
            writeBytes(folder / (name + ".wav"), wavBytes({.seconds = 0}));
        }
        writeBytes(folder / "stereo.wav", wavBytes({.channels = 2, .seconds = 0}));
        writeBytes(folder / "Upper.WAV", wavBytes({.seconds = 0}));
    }

    void start(const std::string& samples, const std::string& rest = "VOL08>>>>RAD05>#g")
    {
        const std::string line = withTabs("N:>>>" + samples + ">" + rest);
        catalogue = SoundCatalogue();
        catalogue.append(line, line, 1);
        editor.select(0);
    }
    SampleInput input(const std::string& typed, std::optional<std::size_t> selected = std::nullopt) const
    {
        return {folder.path(), typed, selected};
    }
    std::string samples() const
    {
        return std::string(ParseSoundLine(catalogue.currentLine(0)).SampleText.trimmed());
    }

    TemporaryFolder folder;
    SoundCatalogue catalogue;
    LineEditor editor{catalogue};
};

} // namespace

TEST_F(SampleCommands, AddAndRenameRefuseWithTheirMessages)
{
    struct Case
    {
        SampleChange change;
        const char* list;
        std::optional<std::size_t> selected;
        std::string typed;
        const char* english; // empty: accepted
        const char* french;
    };
    const auto add = SampleChange::Add;
    const auto rename = SampleChange::Rename;
    const char* const noName = "You must enter a sample name to add";
    const char* const noNameFrench = "Entrez un nom de sample à ajouter";
    const char* const blank = "Incorrect sample name : no space";
    const char* const blankFrench = "Nom de sample incorrect : pas d'espace";
    const char* const tooLong = "Sample name too long";
    const char* const tooLongFrench = "Nom de sample trop long";
    const Case cases[] = {
        {add, "A BB", {}, "new", "", ""},
        {add, "A BB", 0, "", noName, noNameFrench},
        {add, "A BB", 0, "n ew", blank, blankFrench},
        {add, "A BB", 0, "n\tew", blank, blankFrench},
        {rename, "A BB", 0, "n#ew", blank, blankFrench},
        {add, "A BB", 0, "n:ew", blank, blankFrench},
        {add, "A BB", 0, "n\"ew", blank, blankFrench},
        {add, "A BB", 0, "../new", blank, blankFrench},
        {add, "A BB", 0, "sub\\new", blank, blankFrench},
        {add, "A BB", 0, name32 + "nowhere", tooLong, tooLongFrench},
        {add, "A BB", 0, "BB", "Sample name already in the list", "Nom de sample déjà dans la liste"},
        {add, "A FOOT", 0, "foot", "", ""},
        {rename, "A BB", 0, "BB", "", ""},
        {rename, "A BB", {}, "A", "Select a sample first", "Selectionnez d'abord un sample"},
        {add, "A BB", 0, name26, "", ""},
        {add, "A BB", 0, name27, tooLong, tooLongFrench},
        {rename, "A", 0, name31, "", ""},
        {rename, "A", 0, name32, tooLong, tooLongFrench},
        {rename, "A BB", 1, name31, tooLong, tooLongFrench},
        {add, "A", 0, "upper", "", ""},
        {add, "A", 0, "stereo",
         "The sample [stereo.wav] must be\nWindows PCM 22050Hz 16bits Mono w/o header informations",
         "Le sample [stereo.wav] doit être au format\nWindows PCM 22050Hhz 16bits Mono sans informations d'en-tête"},
        {rename, "A", {}, "new", "Select a sample first", "Selectionnez d'abord un sample"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.list) + " <- " + c.typed);
        start(c.list);
        ScriptedDialogs dialogs;
        const SampleResult result = c.change == SampleChange::Add
                                        ? addSample(editor, input(c.typed, c.selected), dialogs)
                                        : renameSample(editor, input(c.typed, c.selected), dialogs);
        const bool accepted = *c.english == '\0';
        EXPECT_EQ(result.changed, accepted);
        EXPECT_EQ(catalogue.differsFromFile(), accepted);
        ASSERT_EQ(dialogs.said().size(), accepted ? 0U : 1U);
        if (!accepted) {
            EXPECT_EQ(dialogs.said()[0].kind, "exclamation");
            EXPECT_EQ(dialogs.said()[0].title, BilingualText("Rename", "Renommer"));
            EXPECT_EQ(dialogs.said()[0].text, BilingualText(c.english, c.french));
            EXPECT_EQ(catalogue.currentLine(0), catalogue.originalLine(0));
        }
    }
}

TEST_F(SampleCommands, AMissingFileIsNamedWithItsFolder)
{
    start("A");
    for (const std::string name : {"nothing", "n?w", "ne*"}) {
        ScriptedDialogs dialogs;
        EXPECT_FALSE(addSample(editor, input(name), dialogs).changed);
        EXPECT_EQ(dialogs.said()[0].text.english,
                  "The sample [" + name + ".wav] doesn't exist\nin " + (folder.path() / "").string());
    }
}

TEST_F(SampleCommands, ItsOwnNameChangesNothing)
{
    start("A BB");
    editor.setValue(ValueBox::Vol, "44", true);
    ScriptedDialogs dialogs;
    EXPECT_FALSE(renameSample(editor, input("BB", 1), dialogs).changed);
    EXPECT_FALSE(catalogue.differsFromFile()) << "nor are the boxes taken over";
    EXPECT_TRUE(editor.edited());
    catalogue = SoundCatalogue();
    const std::string loose = withTabs("N:>A BB>VOL8>");
    catalogue.append(loose, loose, 1);
    editor.select(0);
    EXPECT_TRUE(setSamples(editor, {"A", "BB"}, folder.path(), dialogs));
    EXPECT_EQ(catalogue.currentLine(0), loose) << "not composed anew";
}

TEST_F(SampleCommands, StoreTheLineWithTheValuesOfTheBoxes)
{
    start("A BB");
    ScriptedDialogs dialogs;
    editor.setValue(ValueBox::Vol, "33", true);
    const SampleResult added = addSample(editor, input("new"), dialogs);
    EXPECT_EQ(added.selected, 2U);
    EXPECT_EQ(catalogue.currentLine(0), withTabs("N:>>>A BB new>>>VOL33>>>>RAD05>#g"));
    EXPECT_FALSE(editor.edited());

    const SampleResult renamed = renameSample(editor, input("foot", 1), dialogs);
    EXPECT_EQ(renamed.selected, 1U);
    EXPECT_EQ(samples(), "A foot new");

    const SampleResult restored = renameSample(editor, input("", 1), dialogs);
    EXPECT_FALSE(restored.changed);
    EXPECT_EQ(restored.typedName, "foot");
    EXPECT_TRUE(dialogs.said().empty());
}

TEST_F(SampleCommands, RemoveAsksAndLeavesOne)
{
    start("A BB new");
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    const SampleResult kept = removeSample(editor, input("typed since", 1), dialogs);
    EXPECT_FALSE(kept.changed);
    EXPECT_EQ(kept.typedName, "BB") << "the box shows what the question is about";
    const SampleResult removed = removeSample(editor, input("BB", 1), dialogs);
    EXPECT_TRUE(removed.changed);
    EXPECT_EQ(removed.selected, 0U);
    EXPECT_EQ(samples(), "A new");
    EXPECT_EQ(dialogs.conversation(Language::French)[1],
              "Yes/No | Retirer un sample | Confirmez la suppression du sample [BB]");
    EXPECT_EQ(dialogs.said()[0].text.english, "Remove sample [BB]");

    ScriptedDialogs refusals;
    EXPECT_FALSE(removeSample(editor, input("A"), refusals).changed);
    start("A");
    EXPECT_FALSE(removeSample(editor, input("A", 0), refusals).changed);
    EXPECT_FALSE(removeSample(editor, input("A"), refusals).changed);
    EXPECT_EQ(refusals.conversation(Language::English),
              (std::vector<std::string>{
                  "exclamation | Remove sample | Select a sample first",
                  "exclamation | Remove sample | Only one sample in the list. Remove unauthorized",
                  "exclamation | Remove sample | Only one sample in the list. Remove unauthorized"}));
}

TEST_F(SampleCommands, AskBeforeALineLosesWords)
{
    start("A BB", "VOL100>>>>RAD05>#g");
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    EXPECT_FALSE(addSample(editor, input("new"), dialogs).changed);
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(addSample(editor, input("new"), dialogs).changed);
    EXPECT_EQ(catalogue.currentLine(0), withTabs("N:>>>A BB new>>>VOL10>>>>RAD05>#g"));
}

TEST_F(SampleCommands, GiveALineWithoutSamplesItsFirst)
{
    start("", "");
    ScriptedDialogs dialogs;
    editor.setValue(ValueBox::Vol, "40", true);
    EXPECT_TRUE(addSample(editor, input("A"), dialogs).changed);
    EXPECT_EQ(catalogue.currentLine(0), withTabs("N:>>>A>>>>VOL40>>>>>"));
}

TEST_F(SampleCommands, ReplaceAllJudgesTheNewNamesAlone)
{
    struct Case
    {
        const char* list;
        std::vector<std::string> names;
        const char* after; // empty: refused
    };
    const Case cases[] = {
        {"A BB", {"BB", "new", "A"}, "BB new A"},
        {"gone A", {"gone"}, "gone"}, // its file is missing, but the line had it
        {"A BB", {"gone", "A"}, ""},
        {"A BB", {"A", "A"}, ""},
        {"A A", {"A", "A"}, "A A"},
        {"A BB", {"stereo"}, ""},
        {"A BB", {}, ""},
        {"A BB", {name26, "A", "BB"}, "nnnnnnnnnnnnnnnnnnnnnnnnnn A BB"},
        {"A BB", {"A", "BB", name27}, ""}, // too long by one character
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.list) + " / " + c.after);
        start(c.list);
        ScriptedDialogs dialogs;
        const bool replaces = *c.after != '\0';
        EXPECT_EQ(setSamples(editor, c.names, folder.path(), dialogs), replaces);
        EXPECT_EQ(samples(), replaces ? c.after : c.list);
        EXPECT_EQ(dialogs.said().size(), replaces ? 0U : 1U);
    }
}

TEST_F(SampleCommands, AWrongFormatCanBeConvertedAtOnce)
{
    start("A");
    ScriptedDialogs declined{Answer::Ok};
    EXPECT_FALSE(addSample(editor, input("stereo"), declined).changed);
    EXPECT_EQ(declined.said()[0].otherChoice, BilingualText("Convert", "Convertir"));
    writeBytes(folder / "stereo.wav", wavBytes({.channels = 2}));
    ScriptedDialogs dialogs{Answer::Other, Answer::Other};
    EXPECT_TRUE(addSample(editor, input("stereo"), dialogs).changed);
    EXPECT_EQ(samples(), "A stereo");
    EXPECT_TRUE(CheckSampleFormat(folder.path(), "stereo"));
    const std::filesystem::path original = originalsFolder(folder.path()) / "stereo.wav";
    EXPECT_EQ(readBytes(original), wavBytes({.channels = 2}));
    std::filesystem::remove_all(original.parent_path());

    writeBytes(folder / "text.wav", "no sound");
    EXPECT_FALSE(addSample(editor, input("text"), dialogs).changed);
    EXPECT_EQ(dialogs.said().back().kind, "exclamation");
    EXPECT_EQ(readBytes(folder / "text.wav"), "no sound");
}

TEST_F(SampleCommands, SoundFilesAreProposedPlainNames)
{
    struct Case
    {
        std::u8string file;
        std::size_t room;
        const char* name;
    };
    for (const Case& c : {Case{u8"Épée d'été 2.wav", 31, "Epee_dete_2"},
                          {u8"porte\u0301e.mp3", 31, "portee"},
                          {u8"a long name.ogg", 6, "a_long"},
                          {u8"foot.flac", 31, "foot2"},
                          {u8"BB.flac", 2, "B2"},
                          {u8"\u97F3.wav", 31, "sample"},
                          {u8"con.wav", 31, "con2"},
                          {u8"tail....wav", 31, "tail...2"},
                          {u8"full.wav", 0, "f"}}) {
        EXPECT_EQ(proposedSampleName(std::filesystem::path("/x") / c.file, folder.path(), {"bb"}, c.room),
                  c.name);
    }
}

TEST_F(SampleCommands, SoundFilesBecomeSamplesOfTheLineInOneChange)
{
    const TemporaryFolder elsewhere;
    writeBytes(elsewhere / u8"h\u00E9 ho.wav", wavBytes({.sampleRate = 44100}));
    writeBytes(elsewhere / "bad.wav", "no sound");
    writeBytes(elsewhere / "new.wav", wavBytes({.channels = 2}));
    const auto add = [this](const std::vector<std::filesystem::path>& files, SampleNames naming,
                            Dialogs& dialogs) {
        return addSoundFiles(editor, files, folder.path(), naming, dialogs);
    };
    start("A");
    ScriptedDialogs dialogs;
    const SampleResult added =
        add({elsewhere / u8"h\u00E9 ho.wav", elsewhere / "bad.wav", folder / "foot.wav"},
            SampleNames::AsProposed, dialogs);
    EXPECT_EQ(samples(), "A he_ho foot") << "a file that cannot be read does not keep the others out";
    EXPECT_EQ(added.selected, 2U);
    EXPECT_TRUE(CheckSampleFormat(folder.path(), "he_ho"));
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_EQ(dialogs.said()[0].kind, "critical");

    // Nothing is written when a name does not fit, or for another folder.
    for (const std::filesystem::path& chosen :
         {folder / (name31 + ".wav"), folder / "A.wav", folder / "two words.wav", elsewhere / "new.wav"}) {
        dialogs.prepareFile(chosen);
        EXPECT_FALSE(add({elsewhere / "new.wav"}, SampleNames::Asked, dialogs).changed) << chosen;
        EXPECT_EQ(dialogs.said().back().kind, "exclamation");
    }
    EXPECT_EQ(dialogs.fileQuestions()[0].proposedName, "new2.wav");
    EXPECT_TRUE(dialogs.fileQuestions()[0].forSaving);
    EXPECT_FALSE(std::filesystem::exists(folder / "two words.wav"));

    // A sample that is there is replaced after a question, and kept.
    const std::string before = readBytes(folder / "BB.wav");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        dialogs.prepareFile(folder / "bb");
        dialogs.prepareAnswer(answer);
        EXPECT_EQ(add({elsewhere / "new.wav"}, SampleNames::Asked, dialogs).changed, answer == Answer::Yes);
        EXPECT_TRUE(dialogs.said().back().refusalIsDefault);
    }
    EXPECT_EQ(samples(), "A he_ho foot bb");
    EXPECT_NE(readBytes(folder / "BB.wav"), before);
    const std::filesystem::path originals = originalsFolder(folder.path());
    EXPECT_EQ(readBytes(originals / "BB.wav"), before);
    std::filesystem::remove_all(originals);
    start("A");
    dialogs.prepareFile(folder / "BB.wav");
    EXPECT_TRUE(add({elsewhere / "new.wav"}, SampleNames::Asked, dialogs).changed) << "the same bytes";
    writeBytes(elsewhere / "other" / "new.wav", wavBytes({.sampleRate = 8000}));
    start("A");
    add({elsewhere / "new.wav", elsewhere / "other" / "new.wav"}, SampleNames::AsProposed, dialogs);
    EXPECT_EQ(samples(), "A new2 new3");
}
