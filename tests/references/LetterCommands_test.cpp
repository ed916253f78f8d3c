// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterCommands.h"
#include "references/LineLetters.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(LineLetters, RewriteTheFirstPlace)
{
    const std::string tail300(300, 'x');
    const std::string tail600(600, 'y');
    struct Case
    {
        std::string line;
        std::string replaced; // ab by cd
        std::string erased;   // ab
    };
    const Case cases[] = {
        {"N:>RAD08>#g #ab #ef", "N:>RAD08>#g #cd #ef", "N:>RAD08>#g #ef"},
        {"N:>RAD08>#g #ab", "N:>RAD08>#g #cd", "N:>RAD08>#g"},
        {"N:>RAD08>#ab", "N:>RAD08>#cd", "N:>RAD08"},
        {"N:#ab #ab", "N:#cd #ab", "N #ab"},
        {"N:>#abc", "N:>#cdc", "N:c"},
        {"#ab", "#cd", ""},
        {"#abN:", "#cdN:", "N:"},
        {"x#ab", "x#cd", ""},
        {"N:>#a #b", "N:>#a #b", "N:>#a #b"},
        {"", "", ""},
        {"N: #ab" + tail300, "N: #cd" + tail300.substr(0, 255), "N:" + tail300},
        {"N: #ab" + tail600, "N: #cd" + tail600.substr(0, 255), "N:" + tail600.substr(0, 500)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line.substr(0, 30));
        EXPECT_EQ(replaceLetter(c.line, "ab", "cd"), c.replaced);
        EXPECT_EQ(eraseLetter(c.line, "ab"), c.erased);
    }
}

TEST(LineLetters, TellLettersOfOneLevelFromOthers)
{
    for (const char* letter : {"ab", "G1", "1g", "\xE9\xE9", "CH", ":-"}) {
        EXPECT_TRUE(isLetterOfOneLevel(letter)) << letter;
    }
    for (const char* letter : {"", "a", "g", "g1", "abc", "a ", " a", "a\t", "#a", "a\""}) {
        EXPECT_FALSE(isLetterOfOneLevel(letter)) << letter;
    }
    for (const char* letter : {"aP", "xV", "1R", "oN", "aL", "CH"}) {
        EXPECT_TRUE(looksLikeFlagOrValue(letter)) << letter;
    }
    for (const char* letter : {"Pa", "ch", "", "ab"}) {
        EXPECT_FALSE(looksLikeFlagOrValue(letter)) << letter;
    }
    EXPECT_EQ(correctedLetter("#ab") + correctedLetter("abc") + correctedLetter("#") + correctedLetter("##x"),
              "abab#x");
}

namespace {

class LetterCommands : public testing::Test
{
protected:
    void start(const std::vector<std::string>& lines)
    {
        catalogue = SoundCatalogue();
        for (const std::string& line : lines) {
            catalogue.append(withTabs(line), withTabs(line), catalogue.size() + 1);
        }
        editor.select(0);
    }
    std::string line(std::size_t number) const
    {
        std::string text = catalogue.currentLine(number);
        std::ranges::replace(text, '\t', '>');
        return text;
    }

    SoundCatalogue catalogue;
    LineEditor editor{catalogue};
    CurrentWad wad{"oasis", "ab", "The oasis"};
};

const std::string plain = "N:>>>a>>>>VOL08>>>>RAD05>";
const std::string required = "Select a WAD/Letter reference first";

} // namespace

TEST_F(LetterCommands, AddTheLetterBehindTheOthers)
{
    struct Case
    {
        const char* letters;
        AddedLetter result;
        const char* after;
    };
    const Case cases[] = {{"", AddedLetter::Added, "#ab"},
                          {"#cd", AddedLetter::Added, "#cd #ab"},
                          {"#cd#ef", AddedLetter::Added, "#cd #ef #ab"},
                          {"#a #b", AddedLetter::Added, "#a #b #ab"},
                          {"#ab", AddedLetter::Refused, "#ab"},
                          {"#abc", AddedLetter::Refused, "#abc"},
                          {"#cd #ab", AddedLetter::Refused, "#cd #ab"},
                          {"#g", AddedLetter::SoundOfAllLevels, "#g"},
                          {"#cd #g", AddedLetter::SoundOfAllLevels, "#cd #g"},
                          {"#ab #g", AddedLetter::SoundOfAllLevels, "#ab #g"},
                          {"#gx", AddedLetter::Added, "#gx #ab"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.letters);
        start({plain + c.letters});
        ScriptedDialogs dialogs;
        EXPECT_EQ(addLetterToLine(editor, wad, dialogs), c.result);
        EXPECT_EQ(line(0), plain + c.after);
        EXPECT_EQ(
            dialogs.conversation(Language::French),
            c.result == AddedLetter::Added
                ? std::vector<std::string>()
                : std::vector<std::string>{"exclamation | Ajouter | WAD (lettre) déjà assigné à ce son"});
    }
    start({plain});
    ScriptedDialogs dialogs;
    EXPECT_EQ(addLetterToLine(editor, {}, dialogs), AddedLetter::Refused);
    EXPECT_EQ(dialogs.conversation(Language::English),
              std::vector<std::string>{"exclamation | Add | " + required});
}

TEST_F(LetterCommands, StoreTheBoxesWithTheLetter)
{
    start({plain, "E:>>>>>>>>>>>>"});
    ScriptedDialogs dialogs;
    editor.setValue(ValueBox::Vol, "44", true);
    EXPECT_EQ(addLetterToLine(editor, wad, dialogs), AddedLetter::Added);
    EXPECT_EQ(line(0), "N:>>>a>>>>VOL44>>>>RAD05>#ab");
    editor.select(1);
    editor.setValue(ValueBox::Vol, "44", true);
    EXPECT_EQ(addLetterToLine(editor, wad, dialogs), AddedLetter::Refused) << "the line has no sample";
    EXPECT_FALSE(catalogue.isModified(1));
    editor.select(1);
    EXPECT_EQ(addLetterToLine(editor, wad, dialogs), AddedLetter::Added);
    EXPECT_EQ(addLetterToLine(editor, {"w", "tw", "t"}, dialogs), AddedLetter::Refused)
        << "the first letter would be read as a sample";
    EXPECT_EQ(line(1), "E:>>>>>>>>>>>>#ab");
}

TEST_F(LetterCommands, RemoveTheSelectedEntry)
{
    start({plain + "#g #ab #cd"});
    ScriptedDialogs dialogs;
    EXPECT_FALSE(removeLetterFromLine(editor, std::nullopt, dialogs));
    EXPECT_FALSE(removeLetterFromLine(editor, 0, dialogs));
    EXPECT_EQ(dialogs.conversation(Language::English),
              (std::vector<std::string>{"exclamation | Remove | Select a letter in the [Assigned WADs] list",
                                        "exclamation | Remove | Letter [#g] shoudn't be removed"}));
    EXPECT_TRUE(removeLetterFromLine(editor, 1, dialogs));
    EXPECT_EQ(line(0), plain + "#g #cd");
}

TEST_F(LetterCommands, EraseAndReplaceWalkOverAllLines)
{
    start({plain + "#g #ab", plain + "#ab #cd", plain + "#cd", plain + "#g"});
    ScriptedDialogs dialogs{Answer::Cancel, Answer::Ok};
    EXPECT_FALSE(removeLetterEverywhere(catalogue, wad, dialogs));
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(removeLetterEverywhere(catalogue, wad, dialogs));
    EXPECT_EQ(dialogs.conversation(Language::English)[0],
              "OK/Cancel | Remove all | Remove all [#ab] from Sound ID list");
    EXPECT_EQ(dialogs.said()[0].details.english.substr(0, 3), "0: ");
    EXPECT_NE(dialogs.said()[0].details.english.find("\n1: "), std::string::npos);
    EXPECT_EQ(dialogs.said()[0].details.english.find("\n2: "), std::string::npos) << "not the letter's";
    EXPECT_EQ(line(0), plain + "#g");
    EXPECT_EQ(line(1), plain.substr(0, plain.size() - 1) + " #cd") << "the TAB before the letter goes, too";
    EXPECT_EQ(line(2), plain + "#cd");

    for (const char* letter : {"g", "a", "g1"}) {
        ScriptedDialogs refused;
        EXPECT_FALSE(removeLetterEverywhere(catalogue, {"w", letter, "t"}, refused)) << letter;
        ASSERT_EQ(refused.said().size(), 1U);
        EXPECT_TRUE(refused.said()[0].text.english.starts_with("[#" + std::string(letter) + "]: "));
    }
    EXPECT_EQ(line(3), plain + "#g");
}

TEST_F(LetterCommands, ReplaceChecksTheNewLetterAndWritesTheRegister)
{
    ReferenceRegister references;
    references.appendBuiltIn({"karnak", "9F", "Karnak"});
    references.appendUser({"oasis", "ab", "The oasis"});
    references.appendUser({"other", "ot", "Other"});
    start({plain + "#g #ab #ef", plain + "#ab #ab"});
    struct Refusal
    {
        const char* letter;
        const char* said;
    };
    const Refusal refusals[] = {
        {"", "Remplacer | Entrer une lettre de remplacement"},
        {"a", "Lettre | La lettre doit faire 2 caractères"},
        {"a#", "Lettre | La lettre contient un blanc, un # ou un guillemet"},
        {"g1", "Lettre | Lettre commençant par [#g] non autorisée"},
        {"ab", "Remplacer | Lettre de remplacement identique à la lettre du Wad"},
        {"9F", "Remplacer | La lettre [#9F] est déjà assignée à [karnak]"},
    };
    for (const Refusal& refusal : refusals) {
        ScriptedDialogs dialogs;
        EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, refusal.letter, dialogs),
                  ReplacedLetter::Refused);
        EXPECT_EQ(dialogs.conversation(Language::French),
                  std::vector<std::string>{std::string("exclamation | ") + refusal.said});
    }
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, "cd", dialogs), ReplacedLetter::Declined);
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, "cd", dialogs), ReplacedLetter::Replaced);
    EXPECT_EQ(
        dialogs.conversation(Language::English)[1],
        "Yes/No | Replace | Replace #ab letter by #cd for all the sounds of the wad [oasis]\nDon't forget to "
        "apply modifications to sounds.txt to validate the new letter");
    EXPECT_EQ(line(0), plain + "#g #cd #ef");
    EXPECT_EQ(line(1), plain + "#cd #ab");
    EXPECT_EQ(wad.letter, "cd");
    EXPECT_EQ(references.userFileText(),
              textOf({"\"The oasis\",\"cd\",\"oasis\"", "\"Other\",\"ot\",\"other\""}));
    EXPECT_EQ(references.findUserLetter("9F"), nullptr) << "built in";
}

TEST_F(LetterCommands, TwoLevelsBecomeOneOnlyOnPurpose)
{
    ReferenceRegister references;
    references.appendUser({"oasis", "ab", "The oasis"});
    start({plain + "#ab", plain + "#cd"});
    ScriptedDialogs dialogs{Answer::No, Answer::Yes, Answer::Yes};
    EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, "cd", dialogs), ReplacedLetter::Declined);
    EXPECT_EQ(dialogs.conversation(Language::English)[0],
              "Yes/No | Replace | 1 line already carries #cd.\nOnce it is replaced, nothing tells the two "
              "levels apart.\nReplace it anyway?");
    EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, "cd", dialogs), ReplacedLetter::Replaced);
    EXPECT_EQ(line(0), plain + "#cd");

    wad.letter = "ab"; // cut in two: the lines have the new letter already
    references.replaceLetter("cd", "ab");
    dialogs.prepareAnswer(Answer::Yes);
    EXPECT_EQ(replaceLetterEverywhere(catalogue, references, wad, "cd", dialogs), ReplacedLetter::Replaced);
}

TEST_F(LetterCommands, ObjectsGetTheLetterOnAllTheirSounds)
{
    start({plain + "#cd", plain + "#g", plain, plain + "#ab #ef", plain + "#abc"});
    catalogue.setObjects({{"Animals", "BAT", {1, 2, 3, 4, 99}}, {"Animals", "DOG", {1}}});
    const std::vector<std::string> bat = {"BAT", "DOG"};
    ScriptedDialogs dialogs;
    EXPECT_EQ(addLetterToObjects(catalogue, bat, wad, dialogs).changed, 1U);
    EXPECT_EQ(line(0), plain + "#cd");
    EXPECT_EQ(line(1), plain + "#g");
    EXPECT_EQ(line(2), plain + "#ab");
    EXPECT_EQ(line(3), plain + "#ab #ef");
    EXPECT_EQ(line(4), plain + "#abc") << "the rule takes a longer letter for this one";
    EXPECT_EQ(removeLetterFromObjects(catalogue, bat, wad, dialogs).changed, 3U);
    EXPECT_EQ(line(2), plain);
    EXPECT_EQ(line(3), plain + "#ef");
    EXPECT_FALSE(addLetterToObjects(catalogue, bat, {}, dialogs).agreed);
}

TEST_F(LetterCommands, SeveralSoundsGetTheLetterInTheWayThatKeepsTheirWords)
{
    const struct
    {
        std::string before;
        std::string added;
        std::string removed;
    } cases[] = {
        {plain, plain + "#ab", plain},
        {plain + "#cd", plain + "#ab #cd", plain + "#cd"},
        {plain + "#g", plain + "#g", plain + "#g"},
        {plain + "#abc", plain + "#abc", plain + "#abc"},
        // Composing would lose words: the letter goes behind the line.
        {"N:>a>VOL100>", "N:>a>VOL100>#ab", "N:>>>a>>>>VOL10>>>>>"},
        {"N:>a>VOL100 #cd", "N:>a>VOL100 #cd #ab", "N:>>>a>>>>VOL10>>>>>#cd"},
        {"N:>a>VOL100", "N:>a>VOL100>#ab", "N:>>>a>>>>VOL10>>>>>"},
        // There it would be read as something else.
        {"N:>a", "N:>a", "N:>a"},
    };
    std::vector<std::string> lines;
    std::vector<std::size_t> numbers;
    for (const auto& c : cases) {
        numbers.push_back(lines.size());
        lines.push_back(c.before);
    }
    start(lines);
    ScriptedDialogs dialogs{Answer::Yes};
    const SoundsChanged added = addLetterToSounds(catalogue, numbers, wad, dialogs);
    EXPECT_EQ(added.report().english, "5 lines changed; left out: 7");
    EXPECT_EQ(dialogs.said().size(), 1U) << "no question, but what refuses is named";
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(line(i), cases[i].added);
    }
    removeLetterFromSounds(catalogue, numbers, "ab", dialogs);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(line(i), cases[i].removed);
    }
    EXPECT_FALSE(removeLetterFromSounds(catalogue, numbers, "g", dialogs).agreed);
}

TEST_F(LetterCommands, OnlyAddingToObjectsLeavesTheLinesOfAllLevelsAlone)
{
    const std::vector<std::string> bat{"BAT"};
    start({plain + "#g #ab #cd"});
    catalogue.setObjects({{"Animals", "BAT", {0}}});
    ScriptedDialogs dialogs;
    EXPECT_EQ(removeLetterFromObjects(catalogue, bat, wad, dialogs).changed, 1U);
    EXPECT_EQ(line(0), plain + "#g #cd");
    EXPECT_FALSE(removeLetterFromObjects(catalogue, bat, {"w", "g", "t"}, dialogs).agreed);
    EXPECT_EQ(line(0), plain + "#g #cd");
}

// Nobody is asked: lines that composing would change are not composed.
TEST_F(LetterCommands, ObjectsWithOddLinesKeepTheirWords)
{
    struct Case
    {
        std::string before;
        std::string with;
        std::string without;
    };
    const Case cases[] = {
        {"N:>a>VOL150>P>>>RAD05>; mine", "N:>a>VOL150>P>>>RAD05>; mine>#ab", "N:>a>VOL150>P>>>RAD05>; mine>"},
        {"N:>a>VOL150>>#cd #ef ; x", "N:>a>VOL150>>#cd #ef ; x #ab", "N:>a>VOL150>>#cd #ef ; x"},
        {plain + "#cd", plain + "#ab #cd", plain + "#cd"},
        {"N:>>>#cd", "N:>>>#cd", "N:>>>#cd"},
    };
    start({cases[0].before, cases[1].before, cases[2].before, cases[3].before});
    catalogue.setObjects({{"Animals", "BAT", {0, 1, 2, 3}}});
    ScriptedDialogs dialogs;
    const std::vector<std::string> bat{"BAT"};
    const SoundsChanged added = addLetterToObjects(catalogue, bat, wad, dialogs);
    EXPECT_EQ(added.changed, 3U);
    ASSERT_EQ(added.refused.size(), 1U);
    EXPECT_EQ(added.refused[0].number, 3U) << "another letter would be read as a sample";
    for (std::size_t k = 0; k < std::size(cases); ++k) {
        EXPECT_EQ(line(k), cases[k].with);
    }
    EXPECT_TRUE(removeLetterFromObjects(catalogue, bat, wad, dialogs).agreed);
    for (std::size_t k = 0; k < std::size(cases); ++k) {
        EXPECT_EQ(line(k), cases[k].without);
    }
    EXPECT_EQ(withoutLetter(withTabs("N:>a>VOL150>>#abc #cd"), "ab"), withTabs("N:>a>VOL150>>#cd"));
}
