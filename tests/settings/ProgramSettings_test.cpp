// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "settings/Places.h"
#include "settings/ProgramSettings.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// One value a line, none of them the preset. Folders stand with the separators of this system.
const std::vector<std::string>& distinctLines()
{
    static const std::vector<std::string> lines = [] {
        const std::string separator(1, folderSeparator());
        std::vector<std::string> result = {"\"Z:" + separator + "\"",
                                           "\"" + separator + "caf\xE9 \"x\", y" + separator + "\""};
        for (const char* const value :
             {"a", "oasis", "F", "O", "MAX", "N", "N", "O", "N", "N", "N", "N", "N", "O"}) {
            result.push_back("\"" + std::string(value) + "\"");
        }
        for (int i = 1; i <= 12; ++i) {
            result.push_back(std::to_string(i * 1'000));
        }
        return result;
    }();
    return lines;
}

const std::vector<std::string> presetLines = {
    "\"C:\\\"", "\"\"",  "\"\"",     "\"\"",     "\"E\"",    "\"N\"",    "\"NOR\"",
    "\"O\"",    "\"O\"", "\"N\"",    "\"O\"",    "\"O\"",    "\"O\"",    "\"O\"",
    "\"O\"",    "\"N\"", "4210752",  "14680063", "4128",     "14680063", "2097152",
    "14680063", "8192",  "14680063", "1052672",  "14680063", "14737632", "0"};

class ProgramSettingsTest : public testing::Test
{
protected:
    void write(const std::vector<std::string>& lines) const
    {
        writeBytes(root / "Tavrel.par", textOf(lines));
    }
    LoadedSettings load() const { return LoadSettings(root.path()); }
    ProgramSettings loadWell() const
    {
        const LoadedSettings loaded = load();
        EXPECT_FALSE(loaded.damage) << loaded.damage->text.english;
        return loaded.settings;
    }

    TemporaryFolder root;
};

TEST_F(ProgramSettingsTest, ComeBackByteForByte)
{
    write(distinctLines());
    const ProgramSettings settings = loadWell();
    const std::string separator(1, folderSeparator());
    EXPECT_EQ(settings.LevelEditorFolder, separator + "caf\xE9 \"x\", y" + separator);
    EXPECT_EQ(settings.lastLetter, "a");
    EXPECT_EQ(settings.lastWad, "oasis");
    EXPECT_EQ(settings.language, Language::French);
    EXPECT_TRUE(settings.protectedLinesEditable);
    EXPECT_EQ(settings.notepadMode, WindowMode::Maximised);
    EXPECT_FALSE(settings.loadWadAfterChanges);
    EXPECT_EQ(settings.panels, (std::array{false, true, false, false, false, false, false, true}));
    EXPECT_EQ(settings.colours.slots[0], (ColourPair{1'000, 2'000}));
    EXPECT_EQ(settings.colours.slots[5], (ColourPair{11'000, 12'000}));

    const TemporaryFolder other;
    EXPECT_FALSE(SaveSettings(other.path(), settings));
    EXPECT_EQ(readBytes(other / "Tavrel.par"), textOf(distinctLines()));
    EXPECT_FALSE(SaveSettings(root.path(), ProgramSettings()));
    EXPECT_EQ(readBytes(root / "Tavrel.par"), textOf(presetLines));
}

TEST_F(ProgramSettingsTest, TakeThePresetsBehindTheEndOfTheFile)
{
    std::vector<std::string> expected = presetLines;
    for (std::size_t count = 0; count <= distinctLines().size(); ++count) {
        SCOPED_TRACE(count);
        write({distinctLines().begin(), distinctLines().begin() + static_cast<std::ptrdiff_t>(count)});
        if (count > 0) {
            expected[count - 1] = distinctLines()[count - 1];
        }
        const TemporaryFolder other;
        EXPECT_FALSE(SaveSettings(other.path(), loadWell()));
        EXPECT_EQ(readBytes(other / "Tavrel.par"), textOf(expected));
    }
    const ProgramSettings all = loadWell();
    std::vector<std::string> longer = distinctLines();
    longer.insert(longer.end(), {"\"never closed", "nonsense", ""});
    write(longer);
    EXPECT_EQ(loadWell(), all);
}

TEST_F(ProgramSettingsTest, TakeAnyFlagButOForNo)
{
    for (const char* text : {"\"\"", "\"N\"", "\"o\"", "\"yes\"", "\"O \""}) {
        std::vector<std::string> lines = distinctLines();
        std::fill(lines.begin() + 5, lines.begin() + 16, text);
        write(lines);
        const ProgramSettings settings = loadWell();
        EXPECT_FALSE(settings.protectedLinesEditable);
        EXPECT_FALSE(settings.loadWadAfterChanges);
        for (std::size_t i = 0; i < panelCount; ++i) {
            // The modifications alone are shown when nothing is said.
            const bool shown =
                i == static_cast<std::size_t>(Panel::Modifications) && text == std::string("\"\"");
            EXPECT_EQ(settings.panels[i], shown) << i << text;
        }
    }
}

TEST_F(ProgramSettingsTest, KeepTheDefaultOfAColourOutOfRange)
{
    std::vector<std::string> lines = distinctLines();
    const char* const colours[] = {"-1", "0",        "16777215", "16777216", "-2",  "9223372036854775807",
                                   "-1", "\"4096\"", " 7 ",      "-1",       "-16", "1"};
    std::copy(std::begin(colours), std::end(colours), lines.begin() + 16);
    write(lines);
    const ColourScheme defaults;
    const ColourScheme expected{{{{defaults.slots[0].back, 0},
                                  {16'777'215, defaults.slots[1].text},
                                  {defaults.slots[2].back, defaults.slots[2].text},
                                  {defaults.slots[3].back, 4'096},
                                  {7, defaults.slots[4].text},
                                  {defaults.slots[5].back, 1}}}};
    EXPECT_EQ(loadWell().colours, expected);
}

TEST_F(ProgramSettingsTest, NameTheFieldsThatCannotBeReadOnce)
{
    std::vector<std::string> lines = distinctLines();
    lines[0] = "\"C:";
    lines[4] = "\"X\"";
    lines[16] = "red";
    lines[27] = "";
    write(lines);
    const LoadedSettings loaded = load();
    ASSERT_TRUE(loaded.damage);
    for (const std::string* text : {&loaded.damage->text.english, &loaded.damage->text.french}) {
        EXPECT_NE(text->find((root / "Tavrel.par").string()), std::string::npos);
        EXPECT_NE(text->find("1, 5, 17, 28"), std::string::npos) << *text;
    }
    EXPECT_EQ(loaded.settings.drive, "C:\\");
    EXPECT_EQ(loaded.settings.language, Language::English);
    EXPECT_EQ(loaded.settings.colours.slots[0], (ColourPair{0x404040, 2'000}));
    EXPECT_EQ(loaded.settings.colours.slots[5], (ColourPair{11'000, 0x000000}));
    EXPECT_EQ(loaded.settings.lastWad, "oasis");
}

TEST_F(ProgramSettingsTest, TakeEveryPresetFromGarbage)
{
    for (const std::string& bytes : {std::string("\0\xFF\"garbage", 10), std::string("\xFF\xFE\"\0C\0", 6)}) {
        writeBytes(root / "Tavrel.par", bytes);
        const LoadedSettings loaded = load();
        ASSERT_TRUE(loaded.damage);
        EXPECT_NE(loaded.damage->text.english.find("Tavrel.par"), std::string::npos);
        EXPECT_EQ(loaded.settings, ProgramSettings());
        EXPECT_FALSE(replaceDamagedSettings(root.path(), loaded.settings));
        EXPECT_FALSE(load().damage);
    }
    EXPECT_EQ(readBytes(root / "Tavrel_copy1.par"), std::string("\0\xFF\"garbage", 10));
    EXPECT_EQ(readBytes(root / "Tavrel_copy2.par"), std::string("\xFF\xFE\"\0C\0", 6));
}

TEST_F(ProgramSettingsTest, SayWhenTheFileCannotBeReadOrWritten)
{
    fs::create_directory(root / "Tavrel.par");
    EXPECT_TRUE(load().damage);
    EXPECT_EQ(load().settings, ProgramSettings());
    for (const Problem& problem : {SaveSettings(root.path(), {}), saveFirstSettings(root.path(), {}),
                                   replaceDamagedSettings(root.path(), {})}) {
        ASSERT_TRUE(problem);
        EXPECT_NE(problem->text.french.find((root / "Tavrel.par").string()), std::string::npos);
    }
}

TEST_F(ProgramSettingsTest, ReplaceTheFileOfAnyLetterCase)
{
    writeBytes(root / "TAVREL.PAR", "\"C:\\\"\r\n");
    EXPECT_FALSE(SaveSettings(root.path(), {}));
    EXPECT_EQ(namesIn(root.path()), std::vector<std::string>{"TAVREL.PAR"});
}

TEST_F(ProgramSettingsTest, ReadFoldersOfTheOtherSystem)
{
    const std::string s(1, folderSeparator());
    const struct
    {
        const char* written;
        std::string folder;
    } cases[] = {{"\"C:\\trle\\sub\\\"", "C:" + s + "trle" + s + "sub" + s},
                 {"\"C:\\trle\"", "C:" + s + "trle" + s},
                 {"\"\\\"", s},
                 {"\"\"", ""}};
    for (const auto& c : cases) {
        write({"\"C:\\\"", c.written});
        EXPECT_EQ(loadWell().LevelEditorFolder, c.folder);
    }
}

TEST_F(ProgramSettingsTest, DeriveTheFoldersAsTheyStandOnTheDisk)
{
    fs::create_directories(root / "Sound" / "LEVELSFX CREATOR");
    fs::create_directories(root / "GRAPHICS");
    const Places paths = derivePlaces({}, withTrailingSeparator(codePagePath(root.path()).bytes));
    EXPECT_EQ(paths.creator, root / "Sound" / "LEVELSFX CREATOR");
    EXPECT_EQ(paths.samples, root / "Sound" / "Samples");
    EXPECT_EQ(paths.wads, root / "GRAPHICS" / "wads");
}

} // namespace
