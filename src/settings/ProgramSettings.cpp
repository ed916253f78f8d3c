// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ProgramSettings.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"

#include <algorithm>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t fieldCount = 28;
constexpr std::size_t firstPanelField = 9;
constexpr std::size_t firstColourField = 17;
constexpr ColourValue largestColour = 0xFFFFFF;

// A file that was written on Windows has backslashes.
std::string withSystemSeparators(std::string folder)
{
    std::ranges::replace(folder, '\\', folderSeparator());
    return folder;
}

bool readColour(const RecordField& value, ColourValue& colour)
{
    const std::optional<std::int64_t> number = wholeNumber(value.text);
    if (!number) {
        return false;
    }
    if (*number >= 0 && *number <= largestColour) { // -1 stands for the default
        colour = static_cast<ColourValue>(*number);
    }
    return true;
}

bool readLanguage(const RecordField& value, Language& language)
{
    if (value.text != "E" && value.text != "F") {
        return false;
    }
    language = value.text == "F" ? Language::French : Language::English;
    return true;
}

// False when the value cannot be read; the preset stays then.
bool readField(std::size_t field, const RecordField& value, ProgramSettings& settings)
{
    const bool isYes = value.text == "O";
    switch (field) {
    case 1:
        settings.drive = value.text;
        return true;
    case 2:
        settings.LevelEditorFolder = withSystemSeparators(value.text);
        if (!settings.LevelEditorFolder.empty()) {
            settings.LevelEditorFolder = withTrailingSeparator(settings.LevelEditorFolder);
        }
        return true;
    case 3:
        settings.lastLetter = value.text;
        return true;
    case 4:
        settings.lastWad = value.text;
        return true;
    case 5:
        return readLanguage(value, settings.language);
    case 6:
        settings.protectedLinesEditable = isYes;
        return true;
    case 7:
        settings.notepadMode = value.text == "NOR" ? WindowMode::Normal : WindowMode::Maximised;
        return true;
    case 8:
        settings.loadWadAfterChanges = isYes;
        return true;
    default:
        break;
    }
    if (field < firstColourField) {
        const auto panel = static_cast<Panel>(field - firstPanelField);
        settings.panel(panel) = isYes || (panel == Panel::Modifications && value.text.empty());
        return true;
    }
    ColourPair& pair = settings.colours.slots[(field - firstColourField) / 2];
    return readColour(value, (field - firstColourField) % 2 == 0 ? pair.back : pair.text);
}

Failure unreadableFields(const fs::path& file, const std::vector<std::size_t>& fields)
{
    return wrongContent(file, agreeing(fields.size(), {"The setting in line ", "Le paramètre de la ligne "},
                                       {"The settings in lines ", "Les paramètres des lignes "}) +
                                  numberRanges(fields) +
                                  agreeing(fields.size(),
                                           {" cannot be read. The usual one applies.",
                                            " est illisible. La valeur habituelle s'applique."},
                                           {" cannot be read. The usual ones apply.",
                                            " sont illisibles. Les valeurs habituelles s'appliquent."}));
}

fs::path settingsFile(const fs::path& programFolder)
{
    return fileIn(programFolder, settingsFileName);
}

Problem writeSettings(const fs::path& programFolder, const std::string& bytes)
{
    const Result<fs::path> file = fileToWrite(programFolder, settingsFileName);
    return file ? writeFileSafely(*file, bytes) : Problem(file.failure());
}

std::string_view flag(bool on)
{
    return on ? "O" : "N";
}

void writeText(RecordWriter& writer, std::string_view text)
{
    writer.text(text).endRecord();
}

} // namespace

LoadedSettings LoadSettings(const fs::path& programFolder)
{
    const Result<TextFile> file = readTextFile(programFolder, settingsFileName);
    if (!file) {
        LoadedSettings usual;
        usual.damage = file.failure();
        return usual;
    }
    return parseSettings(*file);
}

LoadedSettings parseSettings(const TextFile& file)
{
    LoadedSettings loaded;
    std::vector<std::size_t> unreadable;
    const std::vector<std::string_view> lines = file.lines();
    for (std::size_t i = 0; i < std::min(lines.size(), fieldCount); ++i) {
        const std::optional<RecordField> value = readSettingsValue(lines[i]);
        if (!value || !readField(i + 1, *value, loaded.settings)) {
            unreadable.push_back(i + 1);
        }
    }
    if (!unreadable.empty()) {
        loaded.damage = unreadableFields(file.path, unreadable);
    }
    return loaded;
}

Problem SaveSettings(const fs::path& programFolder, const ProgramSettings& settings)
{
    RecordWriter writer;
    writeText(writer, settings.drive);
    writeText(writer, settings.LevelEditorFolder);
    writeText(writer, settings.lastLetter);
    writeText(writer, settings.lastWad);
    writeText(writer, settings.language == Language::French ? "F" : "E");
    writeText(writer, flag(settings.protectedLinesEditable));
    writeText(writer, settings.notepadMode == WindowMode::Normal ? "NOR" : "MAX");
    writeText(writer, flag(settings.loadWadAfterChanges));
    for (const bool shown : settings.panels) {
        writeText(writer, flag(shown));
    }
    for (const ColourPair& pair : settings.colours.slots) {
        writer.number(pair.back).endRecord();
        writer.number(pair.text).endRecord();
    }
    return writeSettings(programFolder, writer.bytes());
}

Problem saveFirstSettings(const fs::path& programFolder, const ProgramSettings& settings)
{
    RecordWriter writer;
    writeText(writer, settings.drive);
    writeText(writer, settings.LevelEditorFolder);
    return writeSettings(programFolder, writer.bytes());
}

Problem replaceDamagedSettings(const fs::path& programFolder, const ProgramSettings& settings)
{
    const fs::path file = settingsFile(programFolder);
    const Result<FileContent> content = readFile(file);
    if (!content) {
        return content.failure();
    }
    if (content->bytes.empty()) {
        return SaveSettings(programFolder, settings);
    }
    const Result<fs::path> copy = keepCopyBeside(file, content->bytes);
    return copy ? SaveSettings(programFolder, settings) : Problem(copy.failure());
}

char folderSeparator()
{
    return static_cast<char>(fs::path::preferred_separator);
}

std::string withTrailingSeparator(std::string folder)
{
    if (!folder.ends_with(folderSeparator())) {
        folder += folderSeparator();
    }
    return folder;
}

} // namespace tavrel
