// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoFolder.h"

#include "base/CodePage.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "catalogue/SoundLine.h"
#include "demo/WavFile.h"
#include "settings/ProgramSettings.h"

#include <cmath>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

void write(const fs::path& file, std::string_view bytes)
{
    fs::create_directories(file.parent_path());
    if (const Problem problem = writeFileSafely(file, bytes)) {
        throw std::runtime_error(problem->text.english);
    }
}

std::string joinedLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::vector<std::string> stockLines(const fs::path& data)
{
    const Result<TextFile> file = readTextFile(data / "Tavrel.tos");
    if (!file) {
        throw std::runtime_error(file.failure().text.english);
    }
    const std::vector<std::string_view> lines = file->lines();
    return {lines.begin(), lines.end()};
}

std::string soundsText(const std::vector<std::string>& stock)
{
    std::vector<std::string> lines = {"; Sounds of the level editor", ""};
    for (std::size_t k = 0; k < stock.size(); ++k) {
        if (k == 73) {
            lines.insert(lines.end(), {"", "; Animals and enemies"});
        }
        lines.push_back(stock[k]);
    }
    return joinedLines(lines);
}

struct WrongSample
{
    const char* name;
    WavTone tone;
};

void makeSamples(const fs::path& folder, const std::vector<std::string>& stock)
{
    std::set<std::string> names;
    for (const std::string& line : stock) {
        const SoundLine record = ParseSoundLine(line);
        names.insert(record.Samples.begin(), record.Samples.end());
    }
    int index = 0;
    for (const std::string& name : names) {
        constexpr double lowest = 110;
        constexpr double stepsOfOctave = 96; // far enough apart to tell two samples by ear
        write(folder / (name + ".wav"), wavBytes({.frequency = lowest * std::exp2(index++ / stepsOfOctave)}));
    }
    const std::vector<WrongSample> wrong = {{"demo_stereo.wav", {.channels = 2}},
                                            {"demo_44100.wav", {.sampleRate = 44100}},
                                            {"demo_list_chunk.wav", {.listChunk = true}},
                                            {"demo_8_bits.wav", {.bitsPerSample = 8}}};
    for (const WrongSample& sample : wrong) {
        write(folder / sample.name, wavBytes(sample.tone));
    }
    constexpr std::size_t truncatedSize = 30;
    write(folder / "demo_truncated.wav", wavBytes({}).substr(0, truncatedSize));
}

void makeWad(const fs::path& wads, const std::string& name, const std::vector<std::string>& samples,
             const std::vector<std::string>& objects)
{
    write(wads / (name + ".wad"), "");
    std::vector<std::string> samLines;
    for (const std::string& sample : samples) {
        samLines.push_back(sample + ".wav");
    }
    write(wads / (name + ".sam"), joinedLines(samLines));
    std::vector<std::string> wasLines;
    for (const std::string& object : objects) {
        wasLines.push_back(object + R"(:Z:\TRLE\OBJECTS\)" + object);
    }
    write(wads / (name + ".was"), joinedLines(wasLines));
}

} // namespace

void makeLevelEditorFolder(const fs::path& folder, const fs::path& data, DemoSamples samples)
{
    const std::vector<std::string> stock = stockLines(data);
    write(folder / "winroomedit.exe", "");
    write(folder / "sound" / "LevelSFX Creator" / "Sounds.txt", soundsText(stock));
    // In the place of the level editor's tool; it does nothing before the stand-in takes its place.
    write(folder / "sound" / "LevelSFX Creator" / "pcwadsfx.exe", "");
    fs::create_directories(folder / "sound" / "Samples");
    if (samples == DemoSamples::All) {
        makeSamples(folder / "sound" / "Samples", stock);
    }
    const fs::path wads = folder / "graphics" / "wads";
    makeWad(wads, "karnak", {"foot01", "foot02", "clim_up2", "croc_f1"}, {"LARA", "CROCODILE"});
    makeWad(wads, "oasis",
            {"foot01", "foot02", "clim_up2", "croc_f1", "croc_f2", "croc_at", "l_wfall", "well01"},
            {"LARA", "CROCODILE", "BAT", "DOOR_TYPE1", "WATERFALL1"});
    makeWad(wads, "tomb_of_wind", {"foot01", "sc_scrm", "sc2", "sc6", "l_wind", "dr_bgsto"},
            {"LARA", "SCORPION", "SARCOPHAGUS", "TEETH_SPIKES"});
    // Without a reference, for the first walk of the help; one of its samples is used by no sound.
    makeWad(wads, "mylevel", {"foot01", "croc_f1", "l_wind", "dr_bgsto", "my_thunder"},
            {"LARA", "CROCODILE", "SARCOPHAGUS"});
    write(
        folder / "script" / "script.txt",
        joinedLines({"[Level]", "Name= Oasis", "TriggerGroup= 1, $2000, 45, $11", "GlobalTrigger= 1, IGNORE",
                     "[Level]", "Name= Tomb of wind", "Organizer= 1, IGNORE", "[End]"}));
}

void makeProgramFolder(const fs::path& folder, const fs::path& data, const fs::path& levelEditor)
{
    fs::create_directories(folder);
    for (const char* name :
         {"SFX_Eng1.txt", "SFX_Fra1.txt", "Tavrel.tos", "Tavrel.tow", "Tavrel.too", "Tavrel.tod"}) {
        fs::copy_file(data / name, folder / name, fs::copy_options::overwrite_existing);
    }
    RecordWriter references;
    references.text("The oasis of Amun").text("oa").text("oasis").endRecord();
    references.text("The tomb of the wind").text("tw").text("tomb_of_wind").endRecord();
    write(folder / "Tavrel.paw", references.bytes());

    ProgramSettings settings;
    const std::string path = codePagePath(fs::absolute(levelEditor)).bytes;
    settings.drive = path.substr(0, 2) + folderSeparator();
    settings.LevelEditorFolder = withTrailingSeparator(path);
    settings.lastWad = "oasis";
    settings.lastLetter = "oa";
    settings.panels.fill(true);
    if (const Problem problem = SaveSettings(folder, settings)) {
        throw std::runtime_error(problem->text.english);
    }
}

} // namespace tavrel
