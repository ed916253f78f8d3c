// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/RegisterEditor.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class RegisterEditorTest : public testing::Test
{
protected:
    RegisterEditorTest()
    {
        for (int i = 0; i < 42; ++i) {
            references.appendBuiltIn({"b" + std::to_string(i), std::to_string(10 + i), "Built-in"});
        }
        references.appendUser({"oasis", "oa", "The oasis"});
        for (const char* file : {"oasis.was", "OASIS.SAM", "new.WAS", "new.sam", "b1.was", "b1.sam",
                                 "half.sam", "nosam.was", "oasis2.was", "oasis2.sam"}) {
            writeBytes(wads / file, "");
        }
        const std::string line = withTabs("N:>>>a>>>>VOL08>>>>RAD05>#g #oa #ef");
        catalogue.append(line, line, 1);
    }

    RegisterEditor makeEditor(Dialogs& dialogs)
    {
        return RegisterEditor({catalogue, references, wad, wads.path(), dialogs});
    }
    std::string letters() const
    {
        return catalogue.currentLine(0).substr(catalogue.currentLine(0).find('#'));
    }

    TemporaryFolder wads;
    SoundCatalogue catalogue;
    ReferenceRegister references;
    CurrentWad wad{"oasis", "oa", "The oasis"};
};

constexpr std::size_t oasis = 42;

} // namespace

TEST(ReferenceRows, HoldTheFieldsInColumns)
{
    const std::string name30(30, 'n');
    const std::string title60(60, 't');
    struct Case
    {
        WadReference reference;
        std::string row;
        WadReference fields;
    };
    const Case cases[] = {
        {{"city", "ab", "My city "}, "city                     ab  My city ", {"city", "ab", "My city"}},
        {{name30, "g", "T"}, name30.substr(0, 25) + "g   T", {name30.substr(0, 25), "g", "T"}},
        {{"c", "ab", title60}, "c                        ab  " + title60, {"c", "ab", title60.substr(0, 50)}},
        {{"", "", ""}, std::string(29, ' '), {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(referenceRow(c.reference), c.row);
        EXPECT_EQ(fieldsOfRow(c.row), c.fields) << c.row;
    }
    EXPECT_EQ(fieldsOfRow("short"), (WadReference{"short", "", ""}));
    EXPECT_EQ(wadNameFromPath("D:\\x.wad\\city.WAD"), "city");
    EXPECT_EQ(wadNameFromPath("/x/city.wad"), "city");
    EXPECT_EQ(wadNameFromPath("/x.WAD/city.Wad"), std::nullopt);
}

TEST_F(RegisterEditorTest, ProposesALetterThatNobodyHas)
{
    ScriptedDialogs dialogs;
    const RegisterEditor editor = makeEditor(dialogs);
    const struct
    {
        const char* wadName;
        const char* letter;
    } cases[] = {
        {"temple", "te"},    {"oasis", "os"}, // a reference has "oa"
        {"EF", "ea"},                         // a line has "ef"
        {"gx", "ax"},                         // "g" is every level
        {"\xC9t\xE9", "ta"},                  // only plain characters
        {"", "aa"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(editor.freeLetter(c.wadName), c.letter) << c.wadName;
    }
}

TEST_F(RegisterEditorTest, ChecksInOrderAndPointsToTheField)
{
    const std::string folder = (wads.path() / "").string();
    const auto name = ReferenceField::WadName;
    const auto letter = ReferenceField::Letter;
    struct Case
    {
        WadReference fields;
        ReferenceField focus;
        std::string english;
        std::string french;
    };
    const std::string twoEnglish = "Letter | The letter must be 2 characters long";
    const std::string twoFrench = "Lettre | La lettre doit faire 2 caractères";
    const std::string noTitle = "Add Reference | Type a correct Title";
    const std::string noTitleFrench = "Ajouter la Référence | Tapez un titre correct";
    const Case cases[] = {
        {{"", "", ""},
         name,
         "Add Reference | Type a correct WAD name or Choose it from a directory",
         "Ajouter la Référence | Tapez un nom de WAD correct ou sélectionnez-le depuis le répertoire"},
        {{" new", "nn", "T"},
         name,
         "Add Reference | Type a correct WAD name or Choose it from a directory",
         "Ajouter la Référence | Tapez un nom de WAD correct ou sélectionnez-le depuis le répertoire"},
        {{"half", "", ""},
         name,
         "Add Reference | No [half.WAS] File\nin " + folder,
         "Ajouter la Référence | Aucun Fichier [half.WAS]\ndans " + folder},
        {{"nosam", "", ""},
         name,
         "Add Reference | No [nosam.SAM] File\nin " + folder,
         "Ajouter la Référence | Aucun Fichier [nosam.SAM]\ndans " + folder},
        {{"new", "", ""}, letter, twoEnglish, twoFrench},
        {{"new", "n", "T"}, letter, twoEnglish, twoFrench},
        {{"new", " n", "T"}, letter, twoEnglish, twoFrench},
        {{"new", "n#", "T"},
         letter,
         "Letter | The letter holds a blank, a # or a quote",
         "Lettre | La lettre contient un blanc, un # ou un guillemet"},
        {{"new", "g1", ""},
         letter,
         "Letter | Letter starting by [#g] not authorized",
         "Lettre | Lettre commençant par [#g] non autorisée"},
        {{"new", "nn", ""}, ReferenceField::Title, noTitle, noTitleFrench},
        {{"new", "nn", " T"}, ReferenceField::Title, noTitle, noTitleFrench},
        {{"b1", "oa", "T"},
         name,
         "Add Reference | Wad Name [b1] already assigned to [#11",
         "Ajouter la Référence | Nom de WAD [b1] déjà assigné à [#11]"},
        {{"new", "oa", "T"},
         letter,
         "Add Reference | Letter #oa already assigned to [oasis]",
         "Ajouter la Référence | Lettre #oa déjà assignée à [oasis]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.english);
        ScriptedDialogs dialogs;
        RegisterEditor editor = makeEditor(dialogs);
        EXPECT_FALSE(editor.add(c.fields));
        EXPECT_EQ(editor.focus(), c.focus);
        EXPECT_EQ(dialogs.conversation(Language::English),
                  std::vector<std::string>{"exclamation | " + c.english});
        EXPECT_EQ(dialogs.conversation(Language::French),
                  std::vector<std::string>{"exclamation | " + c.french});
    }
    EXPECT_EQ(references.size(), 43U);
    ScriptedDialogs dialogs;
    RegisterEditor editor = makeEditor(dialogs);
    EXPECT_TRUE(editor.add({"new", "G1", "New"}));
    EXPECT_EQ(references.at(43), (WadReference{"new", "G1", "New"}));
    EXPECT_FALSE(editor.linesChanged());
}

TEST_F(RegisterEditorTest, BuiltInReferencesCannotBeEdited)
{
    ScriptedDialogs dialogs;
    RegisterEditor editor = makeEditor(dialogs);
    EXPECT_EQ(editor.select(41, false), WadReference());
    EXPECT_TRUE(dialogs.said().empty()) << "the arrow keys pass without a word";
    EXPECT_EQ(editor.select(41, true), WadReference());
    EXPECT_EQ(editor.modify({"b41", "51", "X"}), RegisterEditor::Modified::Refused);
    EXPECT_FALSE(editor.remove());
    EXPECT_EQ(dialogs.conversation(Language::English),
              (std::vector<std::string>{"information | Reference | This reference shouldn't be modified",
                                        "information | Modify reference | Nothing to modify",
                                        "information | Delete reference | Nothing to delete"}));
}

TEST_F(RegisterEditorTest, ModifyReachesLinesRegisterAndCurrentWad)
{
    const std::string longTitle(60, 't');
    references.replace(oasis, {"oasis", "oa", longTitle});
    ScriptedDialogs dialogs;
    RegisterEditor editor = makeEditor(dialogs);
    WadReference fields = editor.select(oasis, true);
    EXPECT_EQ(fields.title, longTitle.substr(0, 50));
    fields.wadName = "oasis2";
    EXPECT_EQ(editor.modify(fields), RegisterEditor::Modified::Done);
    EXPECT_EQ(references.at(oasis), (WadReference{"oasis2", "oa", longTitle}))
        << "an untouched title stays whole";
    EXPECT_EQ(wad.wadName, "oasis2");
    EXPECT_FALSE(editor.linesChanged());
    EXPECT_TRUE(dialogs.said().empty());

    fields.letter = "cd";
    fields.title = "Short";
    dialogs.prepareAnswer(Answer::No);
    EXPECT_EQ(editor.modify(fields), RegisterEditor::Modified::LetterTakenBack);
    EXPECT_EQ(letters(), "#g #oa #ef");
    dialogs.prepareAnswer(Answer::Yes);
    EXPECT_EQ(editor.modify(fields), RegisterEditor::Modified::Done);
    EXPECT_EQ(
        dialogs.conversation(Language::French).back(),
        "Yes/No | Modifier référence | Remplacer la lettre [#oa] par [#cd]\n pour tous les sons du wad [oasis2]");
    EXPECT_EQ(letters(), "#g #cd #ef");
    EXPECT_TRUE(editor.linesChanged());
    EXPECT_EQ(wad.letter + wad.title, "cdShort");
    EXPECT_EQ(editor.selectedLetter(), "cd");
}

TEST_F(RegisterEditorTest, DeleteTakesTheLetterOffTheLines)
{
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    RegisterEditor editor = makeEditor(dialogs);
    editor.select(oasis, true);
    EXPECT_FALSE(editor.remove());
    EXPECT_TRUE(editor.remove());
    EXPECT_EQ(
        dialogs.conversation(Language::English)[1],
        "Yes/No | Delete reference | Delete [oasis/#oa] reference\nRemove all [#oa] from Sound ID list");
    EXPECT_NE(dialogs.said()[1].details.english, "") << "the sounds that lose it";
    EXPECT_EQ(letters(), "#g #ef");
    EXPECT_EQ(references.size(), 42U);
    EXPECT_EQ(wad.wadName + wad.letter + wad.title, "");
    EXPECT_FALSE(editor.selected());
}

// A letter that the walk would find on every line is left on the lines.
TEST_F(RegisterEditorTest, DeleteOfAnOddLetterLeavesTheLines)
{
    for (const char* letter : {"", "g"}) {
        references.replace(oasis, {"oasis", letter, "The oasis"});
        ScriptedDialogs dialogs{Answer::Yes};
        RegisterEditor editor = makeEditor(dialogs);
        editor.select(oasis, true);
        EXPECT_TRUE(editor.remove());
        EXPECT_EQ(letters(), "#g #oa #ef");
        const bool isTold =
            dialogs.conversation(Language::English).back() ==
            "exclamation | Delete reference | [#g] is not a letter of one level. It stays on 1 "
            "line.";
        EXPECT_EQ(isTold, *letter != '\0') << "no line carries an empty letter";
        references.appendUser({"oasis", "oa", "The oasis"});
    }
}
