// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/ProcessLock.h"
#include "session/StartUp.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

class RecordedPrograms : public Programs
{
public:
    bool start(const fs::path& program, const std::vector<std::string>& arguments) override
    {
        started.push_back(program.filename().string());
        given = arguments;
        return canStart;
    }
    bool editText(const fs::path& /*file*/, WindowMode /*mode*/) override { return false; }

    bool canStart = true;
    std::vector<std::string> started;
    std::vector<std::string> given;
};

TEST(LevelEditorFromProgram, CutsTheNameByItsLength)
{
    const std::string s(1, folderSeparator());
    const struct
    {
        std::string program;
        const char* drive;
        std::string folder; // empty for none
    } cases[] = {
        {"C:" + s + "trle" + s + "winroomedit.exe", "C:", "C:" + s + "trle" + s},
        {"C:" + s + "trle" + s + "ngle.exe", "C:", "C:" + s + "trle" + s},
        {"C:" + s + "trle" + s + "NGLE.EXE", "C:", "C:" + s + "trle" + s},
        {"D:" + s + "ngle.exe", "D:", "D:" + s},
        {s + "h" + s + "my_ngle.exe", (s + "h").c_str(), s + "h" + s + "my_" + s},
        {s + "h" + s + "something_else.exe", (s + "h").c_str(), s + "h" + s + "som" + s},
        {"winroomedit.exe", "", ""},
        {"ngle.exe", "", ""},
        {"", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.program);
        const std::optional<LevelEditorChoice> choice = levelEditorFromProgram(c.program);
        EXPECT_EQ(choice.has_value(), !c.folder.empty());
        if (choice) {
            EXPECT_EQ(choice->folder, c.folder);
            EXPECT_EQ(choice->drive, c.program.substr(0, 2) + s);
        }
    }
}

class StartUp : public testing::Test
{
protected:
    std::optional<StartedSession> start(Dialogs& dialogs)
    {
        return startSession({demo.program, dialogs, programs,
                             [this] {
                                 ++languageQuestions;
                                 return firstLanguage;
                             },
                             [this](Language language) { shown.push_back(language); }});
    }
    void makeFirstStart() const { fs::remove(settingsFile); }
    std::string editorFolder() const { return withTrailingSeparator(codePagePath(demo.levelEditor).bytes); }
    fs::path ngle() const { return demo.levelEditor / "ngle.exe"; }

    DemoFolders demo;
    fs::path settingsFile = demo.program / "Tavrel.par";
    RecordedPrograms programs;
    std::optional<Language> firstLanguage = Language::French;
    int languageQuestions = 0;
    std::vector<Language> shown;
};

const char* const aborted = "exclamation | Program aborted | No level editor program selected";
const char* const abortedFrench = "exclamation | Programme annulé | Pas d'éditeur de niveaux sélectionné.";

TEST_F(StartUp, ReadsTheSettings)
{
    ScriptedDialogs dialogs;
    const std::string before = readBytes(settingsFile);
    const std::optional<StartedSession> session = start(dialogs);
    ASSERT_TRUE(session);
    EXPECT_EQ(session->settings.LevelEditorFolder, editorFolder());
    EXPECT_EQ(session->settings.lastWad, "oasis");
    EXPECT_FALSE(session->settingsDamaged);
    EXPECT_EQ(shown, std::vector{Language::English});
    EXPECT_EQ(languageQuestions, 0);
    EXPECT_TRUE(dialogs.said().empty());
    EXPECT_TRUE(programs.started.empty());
    EXPECT_EQ(readBytes(settingsFile), before);
}

TEST_F(StartUp, StartsTheCompanionWhenTheWorkingFilesAreMissing)
{
    fs::remove(demo.program / "Tavrel.tod");
    ScriptedDialogs silent;
    EXPECT_FALSE(start(silent));
    ASSERT_EQ(programs.started.size(), 1U);
    EXPECT_EQ(programs.started[0].find("Tavrel_Files"), 0U);
    EXPECT_EQ(programs.given, (std::vector<std::string>{"--program-folder", demo.program.string()}));
    EXPECT_TRUE(silent.said().empty());

    programs.canStart = false;
    ScriptedDialogs dialogs;
    EXPECT_FALSE(start(dialogs));
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_NE(dialogs.said()[0].text.english.find("Tavrel_Files"), std::string::npos);
    EXPECT_NE(dialogs.said()[0].text.french.find("Tavrel_Files"), std::string::npos);
    EXPECT_EQ(languageQuestions, 0);

    writeBytes(demo.program / "TAVREL.TOD", ""); // any letter case is there
    EXPECT_TRUE(start(silent));
}

TEST_F(StartUp, AsksForLanguageAndLevelEditorTheFirstTime)
{
    makeFirstStart();
    ScriptedDialogs dialogs;
    dialogs.prepareFile(ngle());
    const std::optional<StartedSession> session = start(dialogs);
    ASSERT_TRUE(session);
    EXPECT_EQ(session->settings.LevelEditorFolder, editorFolder());
    EXPECT_EQ(session->settings.language, Language::French);
    EXPECT_TRUE(session->settings.panel(Panel::WadFunctions));
    EXPECT_TRUE(session->settings.panel(Panel::Modifications));
    EXPECT_EQ(shown, std::vector{Language::French});
    const std::string drive = editorFolder().substr(0, 2) + folderSeparator();
    EXPECT_EQ(readBytes(settingsFile), textOf({"\"" + drive + "\"", "\"" + editorFolder() + "\""}));
    ASSERT_EQ(dialogs.fileQuestions().size(), 1U);
    const OpenFileQuestion& question = dialogs.fileQuestions()[0];
    EXPECT_EQ(question.title, BilingualText("Select Level editor", "Choisir l'éditeur de niveaux"));
    EXPECT_EQ(question.filterName.english, "Level editor");
    EXPECT_EQ(question.fileNames, (std::vector<std::string>{"winroomedit.exe", "ngle.exe"}));
    EXPECT_EQ(question.folder.string(), "C:\\Program Files (x86)\\Core Design\\trle\\");
    EXPECT_TRUE(dialogs.said().empty());

    ScriptedDialogs second;
    EXPECT_EQ(start(second)->settings.LevelEditorFolder, editorFolder());
    EXPECT_EQ(languageQuestions, 1);
}

TEST_F(StartUp, AsksAgainUntilTheChoiceIsALevelEditor)
{
    makeFirstStart();
    ScriptedDialogs dialogs;
    dialogs.prepareFile("x.exe");
    dialogs.prepareFile(demo.root / "ngle.exe");
    dialogs.prepareFile(demo.levelEditor / "a_longer_name.exe");
    dialogs.prepareFile(demo.root / u8"\u0416" / "ngle.exe"); // no such letter in the code page
    dialogs.prepareFile(demo.levelEditor / "winroomedit.exe");
    const std::optional<StartedSession> session = start(dialogs);
    ASSERT_TRUE(session);
    EXPECT_EQ(session->settings.LevelEditorFolder, editorFolder());
    EXPECT_EQ(dialogs.said().size(), 4U);
    for (const ScriptedDialogs::Said& said : dialogs.said()) {
        EXPECT_EQ(said.kind, "exclamation");
    }
}

TEST_F(StartUp, EndsWithoutALevelEditor)
{
    makeFirstStart();
    ScriptedDialogs dialogs;
    dialogs.prepareFile(std::nullopt);
    EXPECT_FALSE(start(dialogs));
    EXPECT_EQ(dialogs.conversation(Language::English), std::vector<std::string>{aborted});
    EXPECT_EQ(dialogs.conversation(Language::French), std::vector<std::string>{abortedFrench});
    EXPECT_FALSE(fs::exists(settingsFile));
    firstLanguage.reset(); // Quit in the language window
    ScriptedDialogs silent;
    EXPECT_FALSE(start(silent));
    EXPECT_FALSE(fs::exists(settingsFile));
}

TEST_F(StartUp, ChoosesAnewWhereTheSettingsNameNoFolder)
{
    for (const char* folder : {"", "trle\\", "trle"}) {
        SCOPED_TRACE(folder);
        writeBytes(settingsFile,
                   textOf({"\"C:\\\"", "\"" + std::string(folder) + "\"", "\"\"", "\"\"", "\"F\""}));
        ScriptedDialogs dialogs;
        dialogs.prepareFile(ngle());
        const std::optional<StartedSession> session = start(dialogs);
        ASSERT_TRUE(session);
        EXPECT_EQ(session->settings.LevelEditorFolder, editorFolder());
        EXPECT_EQ(session->settings.language, Language::French);
        ASSERT_EQ(dialogs.said().size(), 1U);
        EXPECT_NE(dialogs.said()[0].text.english.find(settingsFile.string()), std::string::npos);
        ScriptedDialogs silent; // the choice is kept at once
        EXPECT_EQ(start(silent)->settings, session->settings);
    }
    writeBytes(settingsFile, "");
    ScriptedDialogs cancelled;
    cancelled.prepareFile(std::nullopt);
    ASSERT_FALSE(start(cancelled));
    EXPECT_EQ(cancelled.conversation(Language::English).back(), aborted);
}

TEST_F(StartUp, OffersAnotherFolderWhereTheLevelEditorIsGone)
{
    const fs::path gone = demo.root / "gone";
    writeBytes(settingsFile,
               textOf({"\"C:\\\"", "\"" + withTrailingSeparator(codePagePath(gone).bytes) + "\""}));
    ScriptedDialogs dialogs{Answer::No, Answer::Yes, Answer::Yes};
    EXPECT_EQ(start(dialogs)->settings.LevelEditorFolder, withTrailingSeparator(codePagePath(gone).bytes));
    dialogs.prepareFile(std::nullopt);
    EXPECT_EQ(start(dialogs)->settings.LevelEditorFolder, withTrailingSeparator(codePagePath(gone).bytes))
        << "a cancelled choice is a No";
    EXPECT_EQ(dialogs.said().size(), 2U);
    dialogs.prepareFile(ngle());
    EXPECT_EQ(start(dialogs)->settings.LevelEditorFolder, editorFolder());
    EXPECT_NE(dialogs.said()[0].text.english.find(gone.string()), std::string::npos);
}

TEST_F(StartUp, SaysOnceThatSettingsAreDamaged)
{
    std::string settings = readBytes(settingsFile);
    settings.replace(settings.find("\"E\""), 3, "\"E");
    writeBytes(settingsFile, settings);
    ScriptedDialogs dialogs;
    const std::optional<StartedSession> session = start(dialogs);
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->settingsDamaged);
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_NE(dialogs.said()[0].text.english.find(settingsFile.string()), std::string::npos);
    EXPECT_EQ(session->settings.LevelEditorFolder, editorFolder());
    EXPECT_EQ(readBytes(settingsFile), settings);
}

TEST_F(StartUp, ClearsUpAfterInterruptedWrites)
{
    const fs::path leftovers[] = {demo.program / "Tavrel.par.tavrel-new",
                                  demo.program / "sounds" / "a.tor.tavrel-new",
                                  demo.creator / "Sounds.txt.tavrel-new"};
    for (const fs::path& file : leftovers) {
        writeBytes(file, "half");
    }
    ScriptedDialogs dialogs;
    Result<ProcessLock> command = takeLock(demo.program, changesLock, std::chrono::seconds(0));
    ASSERT_TRUE(command);
    ASSERT_TRUE(start(dialogs));
    for (const fs::path& file : leftovers) {
        EXPECT_TRUE(fs::exists(file)) << "may be what the command is writing: " << file;
    }
    command->reset();
    ASSERT_TRUE(start(dialogs));
    for (const fs::path& file : leftovers) {
        EXPECT_FALSE(fs::exists(file)) << file;
    }
}

TEST_F(StartUp, WarnsWhereNothingCanBeKept)
{
    const Places places = derivePlaces(demo.program, editorFolder());
    EXPECT_FALSE(writabilityWarning(places));
    fs::permissions(demo.sounds, fs::perms::owner_read);
    EXPECT_FALSE(writabilityWarning(places));
    fs::permissions(settingsFile, fs::perms::owner_read);
    const std::optional<Message> warning = writabilityWarning(places);
    ASSERT_TRUE(warning);
    EXPECT_NE(warning->text.english.find(demo.program.string()), std::string::npos);
    EXPECT_NE(warning->text.french.find(demo.creator.string()), std::string::npos);
    fs::permissions(demo.sounds, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_FALSE(writabilityWarning(places));
}

} // namespace
