// SPDX-License-Identifier: GPL-3.0-or-later
// Checks that look at more than one line: the order of the sounds, files, references, lists, and all at once.
#include "base/FileNames.h"
#include "checks/FindingMarks.h"
#include "demo/DemoFolder.h"
#include "demo/WavFile.h"
#include "support/CheckedProject.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

#include <map>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

std::vector<std::string> textsOf(const std::vector<Finding>& findings)
{
    std::vector<std::string> texts;
    for (const Finding& finding : findings) {
        texts.push_back(finding.text.english);
    }
    return texts;
}

using Texts = std::vector<std::string>;

// Writes sounds.txt, and loads it with the installed catalogue.
class FileChecks : public testing::Test
{
protected:
    void load(const std::vector<std::string>& lines, std::vector<LineReadOtherwise> readOtherwise = {})
    {
        writeBytes(project.soundsFile.path, textOf(lines));
        Result<LoadedCatalogue> loaded =
            loadCatalogue({demo.program, project.folders.creator, false, std::move(readOtherwise)});
        ASSERT_TRUE(loaded) << loaded.failure().text.english;
        project.catalogue = std::move(loaded->catalogue);
        project.soundsFile = *readTextFile(project.soundsFile.path);
    }
    // What mends all findings of the checks that need the file to be loaded again.
    std::vector<LineReadOtherwise> mended() const
    {
        std::vector<const Finding*> all;
        const CheckReport report = project.check();
        for (const Finding& finding : report.findings) {
            all.push_back(&finding);
        }
        return linesToReadOtherwise(all);
    }

    DemoFolders demo;
    CheckedProject project;
    std::vector<std::string> lines = stockLines();
};

} // namespace

TEST_F(FileChecks, TellAShiftOnceWithItsStartAndItsCause)
{
    load(lines);
    EXPECT_EQ(textsOf(project.check("line-shifted")), Texts());

    lines.insert(lines.begin() + 37, "MINE:\tfoot01\t\tVOL50\t\t\t\t\t#oa");
    load(lines);
    EXPECT_EQ(
        textsOf(project.check("line-shifted")),
        Texts({"From line 39 on every sound stands one line late. Probably added just before: [MINE]."}));
    EXPECT_EQ(project.check("line-shifted").front().sounds, std::vector<std::size_t>{38});
    EXPECT_TRUE(project.check("protected-changed").empty()) << "these are other sounds";
    EXPECT_TRUE(project.check("ch-low").empty());

    const auto nameAt = [](std::size_t sound) {
        return "[" + stockLines()[sound].substr(0, stockLines()[sound].find(':')) + "]";
    };
    lines.erase(lines.begin() + 200, lines.begin() + 203);
    load(lines);
    EXPECT_EQ(
        textsOf(project.check("line-shifted")),
        Texts(
            {"From line 39 to line 200 every sound stands one line late. Probably added just before: [MINE].",
             "From line 201 on every sound stands 2 lines early. Probably missing just before, or without a "
             "colon: " +
                 nameAt(199) + " " + nameAt(200) + " " + nameAt(201) + "."}));

    lines = stockLines();
    lines[40] = "MY_OWN:\tfoot01\t\tVOL50\t\t\t\t\t#oa"; // another name
    std::swap(lines[50], lines[51]);
    load(lines);
    EXPECT_EQ(textsOf(project.check("line-shifted")), Texts());
}

TEST_F(FileChecks, MendCommentsThatReadAsSoundsAndSoundsThatDoNot)
{
    lines[100] = lines[100].erase(lines[100].find(':'), 1);
    lines.insert(lines.begin() + 73, {"; Animals: of Egypt", "Notes by me: none", "Enemies:", "; no colon"});
    lines.insert(lines.begin() + 30, "LARA feet and VOL50 are loud"); // prose
    load(lines);
    const std::vector<Finding> comments = project.check("colon-comment");
    EXPECT_EQ(textsOf(comments),
              Texts({"Line 75, a comment, reads as a sound because of its colon: [; Animals: of Egypt]",
                     "Line 76, a comment, reads as a sound because of its colon: [Notes by me: none]",
                     "Line 77, a comment, reads as a sound because of its colon: [Enemies:]"}));
    const std::vector<Finding> lost = project.check("lost-colon");
    const std::string name = stockLines()[100].substr(0, stockLines()[100].find(':'));
    EXPECT_EQ(textsOf(lost), Texts({"Line 106 has lost its colon and is no longer a sound: [" + name + "]"}));

    load(lines, mended());
    ASSERT_EQ(project.catalogue.size(), 370U);
    for (std::size_t k = 0; k < 370; ++k) {
        EXPECT_EQ(project.line(k), stockLines()[k]);
    }
    for (const char* check : {"colon-comment", "lost-colon", "line-shifted"}) {
        EXPECT_TRUE(project.check(check).empty()) << check;
    }
}

TEST_F(FileChecks, TellNamesThatTheInstalledCatalogueHasOnce)
{
    lines[40] = lines[39];
    load(lines);
    EXPECT_EQ(textsOf(project.check("name-twice")), Texts({"Several sounds are named [LARA_KEY]: 39, 40."}));
    lines = stockLines();
    lines[3] = "METAL_SCRAPE_LOOP:\tl_metal\t\t\t\tVOL70\t"; // the installed catalogue has it twice
    lines[4] = lines[5] = "OWN:\tl_metal\t\t\t\tVOL70\t";
    load(lines);
    EXPECT_EQ(textsOf(project.check("name-twice")), Texts());
}

TEST(SampleChecks, ReadEachFileThatALineUses)
{
    CheckedProject project;
    project.addSample("right");
    project.addSample("stereo", wavBytes({.channels = 2, .sampleRate = 44100, .listChunk = true}));
    project.addSample("ulaw", wavBytes({.formatTag = 7}));
    project.addSample("short", wavBytes({}).substr(0, 30));
    project.addSample("bits8", wavBytes({.bitsPerSample = 8}));
    project.addSample("empty", wavBytes({.seconds = 0}));
    std::string zeros = wavBytes({});
    std::fill(zeros.begin() + 44, zeros.end(), '\0');
    project.addSample("zeros", zeros);
    zeros.back() = 1; // beyond the first piece that is read
    project.addSample("late", zeros);
    project.addSample("behind", wavBytes({}) + std::string("id3 \x04\0\0\0abcd", 12));
    project.addSample("idle", std::string(1500, 'x'));
    project.addLine("A:>right stereo ulaw>>VOL50>>>>>#oa");
    project.addLine("B:>STEREO short bits8>>VOL50>>>>>#oa");
    project.addLine("C:>empty zeros late behind>>VOL50>>>>>#oa");

    const auto texts = [&project](const char* check) { return textsOf(project.check(check)); };
    EXPECT_EQ(texts("sample-format"),
              Texts({"[stereo.wav]: 44100 Hz, stereo, LIST chunk.", "[ulaw.wav]: encoding 7 instead of PCM.",
                     "[short.wav]: no whole WAV header."}));
    EXPECT_EQ(project.check("sample-format").front().sounds, std::vector<std::size_t>({0, 1}));
    EXPECT_EQ(texts("sample-bits"), Texts({"[bits8.wav]: 8 bits instead of 16."}));
    EXPECT_EQ(texts("sample-chunks"), Texts({"[behind.wav]: there is something after the sound data."}));
    EXPECT_EQ(texts("sample-silent"), Texts({"[empty.wav]: there is nothing to hear in it.",
                                             "[zeros.wav]: there is nothing to hear in it."}));
    EXPECT_EQ(texts("sample-unused"), Texts({"[idle.wav]: no line uses it (1.5 KB)."}));

    CheckSubject subject = project.subject();
    std::vector<std::string> repaired;
    subject.repairSample = [&repaired](const fs::path& file) {
        repaired.push_back(file.filename().string());
        return Problem();
    };
    SilentProgress progress;
    for (const Finding& finding : runChecks(subject, progress).findings) {
        if (finding.fix) {
            EXPECT_FALSE(std::get<FileFix>(finding.fix->action)());
        }
    }
    EXPECT_EQ(repaired, Texts({"stereo.wav", "ulaw.wav", "short.wav", "bits8.wav", "behind.wav"}));
    EXPECT_FALSE(project.check("sample-format").front().fix) << "nothing that could repair";

    fs::remove_all(project.folders.samples);
    const CheckReport report = project.check();
    EXPECT_EQ(report.notices.size(), 1U) << "the folder that cannot be listed";
    EXPECT_TRUE(report.findings.empty());
}

TEST(FindingMarks, SayTheGravestOfASoundAndWhatIsWrongWithItsSamples)
{
    CheckedProject project;
    project.addSample("stereo", wavBytes({.channels = 2}));
    project.addSample("Old", wavBytes({.bitsPerSample = 8}) + std::string("id3 \x04\0\0\0abcd", 12));
    project.addSample("idle");
    project.addLine("A:>old>>VOL50>>>>>#oa");
    project.addLine("B:>old STEREO gone>>VOL50>>>>>#oa #oa");
    project.addLine("C:>gone>>VOL50>>>>>");
    project.addLine("D:>idle>>VOL50>>>>>#oa");

    const FindingMarks marks = marksOf(project.check());
    ASSERT_EQ(marks.sounds.size(), 3U);
    EXPECT_EQ(marks.sounds.at(0).severity, Severity::Warning);
    EXPECT_EQ(marks.sounds.at(1).severity, Severity::Error);
    EXPECT_EQ(marks.sounds.at(2).severity, Severity::Warning);
    ASSERT_NE(marks.ofSample("old"), nullptr);
    EXPECT_EQ(marks.ofSample("old")->text.english, "[Old.wav]: 8 bits instead of 16.\n"
                                                   "[Old.wav]: there is something after the sound data.");
    ASSERT_NE(marks.ofSample("GONE"), nullptr);
    EXPECT_EQ(marks.ofSample("GONE")->severity, Severity::Error) << "one of its sounds is in a level";
    EXPECT_EQ(marks.ofSample("GONE")->text.english, "[gone.wav] is not in the samples folder.") << "once";
    EXPECT_EQ(marks.ofSample("idle"), nullptr);
}

TEST(ReferenceChecks, CompareTheUsersReferences)
{
    CheckedProject project;
    project.addSample("a");
    project.addLine("A:>a>>VOL50>>>>>#oa #tw #x #xy");
    const auto texts = [&project](const char* check) { return textsOf(project.check(check)); };
    for (const char* check : {"reference-letter-twice", "reference-wad-twice", "letter-inside-letter",
                              "wad-missing", "reference-unused", "list-sample", "list-object"}) {
        EXPECT_EQ(texts(check), Texts()) << check;
    }
    project.references.appendUser({"tomb", "tw", "Tomb"});
    project.references.appendUser({"TOMB", "x", "Tomb again"});
    project.references.appendUser({"palace", "oa", "Palace"});
    project.references.appendUser({"garden", "xy", "Garden"});
    project.references.appendUser({"sea", "se", "Sea"});
    for (const char* name : {"Tomb", "palace", "garden"}) {
        writeBytes(project.folders.wads / (std::string(name) + ".WAD"), "");
    }
    EXPECT_EQ(texts("reference-letter-twice"),
              Texts({"#oa is the letter of several references: [oasis] [palace]."}));
    EXPECT_EQ(texts("reference-wad-twice"), Texts({"[tomb] has several references: #tw #x."}));
    EXPECT_EQ(texts("letter-inside-letter"),
              Texts({"#x stands inside #xy: what erases the one hits the other."}));
    EXPECT_EQ(texts("wad-missing"), Texts({"[sea.wad] is not in the folder of the WADs."}));
    EXPECT_EQ(texts("reference-unused"), Texts({"No line has #se, the letter of [sea]."}));
}

TEST(ReferenceChecks, CompareTheListsOfAWad)
{
    CheckedProject project;
    for (const char* name : {"a", "b"}) {
        project.addSample(name);
    }
    project.addLine("S0:>a>>VOL50>>>>>#oa");
    project.addLine("S1:>b>>VOL50");
    project.addLine("S2:>b>>VOL50>>>>>#g");
    project.addLine("S3:>>>>>>>");
    project.addLine("S4:>b>>VOL50>>>>>#xx");
    project.catalogue.setObjects({{"", "BAT", {0, 1, 2, 3, 4, 99}}, {"", "DOG", {0, 2, 3}}});
    writeBytes(project.folders.wads / "OASIS.SAM", "a.wav\r\nB.WAV\r\nghost.wav\r\nghost.wav\r\n");
    writeBytes(project.folders.wads / "oasis.was", "BAT:x\r\nBAT:y\r\nDOG:z\r\n");
    EXPECT_EQ(textsOf(project.check("list-sample")),
              Texts({"[oasis.sam] names [ghost], which no line has."}));
    const std::vector<Finding> objects = project.check("list-object");
    EXPECT_EQ(textsOf(objects), Texts({"[oasis.was] has [BAT], but 2 of its sounds lack #oa."}));
    project.apply(objects);
    EXPECT_EQ(project.line(1), withTabs("S1:>b>>VOL50>#oa"));
    EXPECT_EQ(project.line(4), withTabs("S4:>b>>VOL50>>>>>#xx #oa"));
    EXPECT_TRUE(project.check("list-object").empty());

    while (project.catalogue.size() < 28) { // 27 is protected
        project.addLine("N:>a>>VOL50");
    }
    project.catalogue.setObjects({{"", "BAT", {27}}});
    ASSERT_EQ(project.check("list-object").size(), 1U);
    EXPECT_FALSE(project.check("list-object").front().fix);
}

TEST(GenerationChecks, LookAtTheToolAndItsResults)
{
    CheckedProject project;
    EXPECT_TRUE(project.check().findings.size() == 1) << "only the reference without a line";
    const auto made = [&](const char* name, int hours) {
        writeBytes(project.folders.wads / name, "");
        fs::last_write_time(project.folders.wads / name,
                            fs::last_write_time(project.soundsFile.path) + std::chrono::hours(hours));
    };
    made("oasis.sam", 1);
    made("oasis.sfx", 1);
    made("tomb.sam", -1); // not the current WAD
    EXPECT_TRUE(project.check("results-old").empty());
    made("oasis.sfx", -1);
    EXPECT_EQ(textsOf(project.check("results-old")),
              Texts({"Older than sounds.txt: [oasis.sfx]. Generate them again."}));
    fs::remove(project.folders.creator / "pcwadsfx.exe");
    EXPECT_EQ(project.check("tool-missing").size(), 1U);
    writeBytes(project.folders.creator / "PcWadSfx.EXE", "");
    EXPECT_TRUE(project.check("tool-missing").empty());
}

// Every fault there is, each in a line, file or reference of its own.
TEST_F(FileChecks, TellEveryFaultOfOneProjectOnce)
{
    const std::vector<std::pair<std::size_t, std::string>> faults = {
        {0, "LARA_FEET:>foot_one foot_two foot_three foot_four>VOL44>>>>>#oa"}, // samples-too-long
        {1, "LARA_CLIMB2:>missing>>VOL70>>>>>#tw"},                             // sample-missing
        {2, "LARA_NO:>stereo bits8 behind zeros>>VOL50>>>>>#to"},
        {3, "LARA_SLIPPING:>a>>VOL00>>>>>#oa"},
        {4, "LARA_LAND:>a>>vol75>>>>>#oa"},
        {5, "LARA_CLIMB1:>a>>VOL150>>>>>#oa"},
        {6, "LARA_DRAW:>a>>VOL35>>CH10>PIT50>>#oa"},
        {7, "LARA_HOLSTER:>a>>VOL31>>>>"}, // no-letter
        {8, "LARA_FIRE:>>>>>>>>#oa"},      // letters-no-samples
        {9, "LARA_RELOAD:>a>>VOL80>oops>>>>#oa"},
        {10, "LARA_RICOCHET:>a>>VOL80>>>>>#oa #oa"},
        {11, "PUSH_BLOCK_END:>a>>VOL40>>>>>#g #oa"},
        {12, "METAL_SCRAPE_LOOP:>a>>VOL40>>>>>#abc"},
        {13, "SMALL_SCARAB_FEET:>a>>VOL40>>>>>#gx"},
        {14, "BIG_SCARAB_ATTACK:>a>>VOL40>>>>>#zz"},
        {15, "BIG_SCARAB_DEATH:>a>>VOL40>R N>>>>#oa"},
        {16, "LARA_WADE:>a>>VOL40>>>>>#oa"}, // a name twice
        {27, "Mine:>a>>VOL40>>>>>#oa"},      // protected
    };
    for (std::string& line : lines) { // stock samples would have to be there
        line = withTabs(line.substr(0, line.find(':')) + ":>a>>VOL40>>>>>#g");
    }
    writeBytes(demo.program / "Tavrel.tos", textOf(lines));
    for (const auto& [sound, line] : faults) {
        lines[sound] = withTabs(line);
    }
    lines.insert(lines.begin() + 360, withTabs("ODD_ONE>a>>VOL50>>>>>#g")); // lost its colon
    lines.insert(lines.begin() + 350, "; Notes: mine");                     // shifts the rest as well
    load(lines);
    for (const char* name : {"a", "foot_one", "foot_two", "foot_three", "foot_four", "idle"}) {
        project.addSample(name);
    }
    project.addSample("stereo", wavBytes({.channels = 2}));
    project.addSample("bits8", wavBytes({.bitsPerSample = 8}));
    project.addSample("behind", wavBytes({}) + std::string("id3 \x04\0\0\0abcd", 12));
    project.addSample("zeros", wavBytes({.seconds = 0}));
    project.references.appendUser({"palace", "oa", "The letter of oasis"});
    project.references.appendUser({"tomb", "tw", ""});
    project.references.appendUser({"tomb", "to", "The WAD of another"});
    project.references.appendUser({"garden", "tox", "Unused, and inside it #to"});
    for (const char* name : {"palace", "tomb"}) {
        writeBytes(project.folders.wads / (std::string(name) + ".wad"), "");
    }
    project.catalogue.setObjects({{"", "BAT", {1}}});
    writeBytes(project.folders.wads / "oasis.sam", "ghost.wav\r\n");
    writeBytes(project.folders.wads / "oasis.was", "BAT:x\r\n");
    fs::last_write_time(project.folders.wads / "oasis.sam",
                        fs::last_write_time(project.soundsFile.path) - std::chrono::hours(1));
    fs::remove(project.folders.creator / "pcwadsfx.exe");

    const CheckReport report = project.check();
    std::map<std::string_view, Texts> found;
    for (const Finding& finding : report.findings) {
        found[finding.check].push_back(finding.text.english);
    }
    for (const Check& check : allChecks()) {
        EXPECT_EQ(found[check.name].size(), 1U)
            << check.name << ": " << testing::PrintToString(found[check.name]);
    }
    EXPECT_TRUE(std::ranges::is_sorted(report.findings, {}, &Finding::severity));
    SilentProgress progress;
    std::set<std::string_view> ofFile;
    for (const Finding& finding : runFileChecks(project.subject(), progress).findings) {
        ofFile.insert(finding.check);
    }
    EXPECT_EQ(ofFile, (std::set<std::string_view>{"colon-comment", "line-shifted", "lost-colon"}));

    std::set<std::string_view> ofTomb; // #tw, and what concerns every level
    for (const Finding* const finding :
         errorsBeforeGeneration(report, project.catalogue, {"tomb", "tw", ""})) {
        ofTomb.insert(finding->check);
    }
    EXPECT_EQ(ofTomb, (std::set<std::string_view>{"sample-missing", "letter-as-word", "colon-comment",
                                                  "line-shifted", "lost-colon", "reference-letter-twice",
                                                  "reference-wad-twice", "tool-missing"}));
}

TEST_F(FileChecks, FindNoErrorInWhatComesWithTheLevelEditor)
{
    TemporaryFolder root;
    makeLevelEditorFolder(root / "trle", dataFolder(), DemoSamples::All);
    makeProgramFolder(root / "program", dataFolder(), root / "trle");
    const fs::path sound = root / "trle" / "sound";
    const fs::path creator = sound / "LevelSFX Creator";
    const Result<LoadedCatalogue> loaded = loadCatalogue({root / "program", creator, false});
    const Result<LoadedRegister> references = loadRegister(root / "program");
    ASSERT_TRUE(loaded && references);
    const Result<TextFile> file = readTextFile(creator, soundsFileName);
    const CurrentWad wad = currentWad(references->references.findUserWad("oasis"));
    const CheckSubject subject{loaded->catalogue,
                               references->references,
                               wad,
                               {creator, sound / "Samples", root / "trle" / "graphics" / "wads"},
                               &*file};
    SilentProgress progress;
    const CheckReport report = runChecks(subject, progress);
    EXPECT_TRUE(report.notices.empty());
    std::map<std::string_view, std::size_t> counts;
    for (const Finding& finding : report.findings) {
        EXPECT_NE(finding.severity, Severity::Error) << finding.text.english;
        ++counts[finding.check];
    }
    // The wrong samples of the demo are on no line, and its levels have not got their letters yet.
    EXPECT_EQ(counts["sample-unused"], 5U);
    EXPECT_EQ(counts["reference-unused"], 2U);
    EXPECT_EQ(counts.size(), 4U) << testing::PrintToString(counts);
    EXPECT_GT(counts["list-object"] + counts["results-old"], 0U);
}

TEST_F(FileChecks, CanBeStopped)
{
    load(lines);
    ScriptedProgress stopping(5);
    const CheckReport report = runChecks(project.subject(), stopping);
    EXPECT_TRUE(report.cancelled);
    EXPECT_EQ(stopping.steps.size(), 6U);
    ScriptedProgress whole;
    EXPECT_FALSE(runChecks(project.subject(), whole).cancelled);
    for (std::size_t i = 1; i < whole.steps.size(); ++i) {
        EXPECT_LE(whole.steps[i].first, whole.steps[i].second);
    }
}
