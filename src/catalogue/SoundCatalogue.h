// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"
#include "catalogue/DoublesStatus.h"
#include "catalogue/ObjectTable.h"
#include "catalogue/Step.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// "Empty" and "unsure" sounds of the stock catalogue, which the level editor keeps for itself.
constexpr std::array<std::size_t, 11> emptyAndUnsureSounds = {27,  59,  110, 113, 115, 163,
                                                              185, 186, 199, 270, 62};

// Why ParseSoundLine() throws.
BilingualText tooManySamples();

// sounds.txt in memory. Sounds are numbered from 0 in the order of their lines; a line without ":" is no
// sound. Lines are bytes in the system code page, without line ends.
class SoundCatalogue
{
public:
    struct File
    {
        std::filesystem::path path;
        FileStamp stamp; // as it was when it was last read or written
    };

    SoundCatalogue() = default;
    SoundCatalogue(File file, bool protectedLinesEditable);

    // For loading: a sound behind the others, its line as it stands in the file and as it was installed. A
    // sound that the level editor never had is its own original.
    void append(std::string line, std::string originalLine, std::size_t lineInFile);
    void appendUnknown(std::string line, std::size_t lineInFile);

    std::size_t size() const { return m_sounds.size(); }
    bool empty() const { return m_sounds.empty(); }
    const File& file() const { return m_file; }

    const std::string& currentLine(std::size_t number) const { return m_sounds.at(number).current; }
    const std::string& originalLine(std::size_t number) const;
    // What the main list shows: the number and the name.
    const std::string& listEntry(std::size_t number) const { return m_sounds.at(number).listEntry; }
    // As it stands in the file that was last read or written; empty for a line that was put in since.
    const std::string& fileLine(std::size_t number) const;
    // 1-based, in the file as it was last read or written; 0 for a line that was put in since.
    std::size_t lineInFile(std::size_t number) const;
    // The sound lines of that file, in its order.
    struct FileLine
    {
        std::string text;
        std::size_t lineInFile;
    };
    const std::vector<FileLine>& fileLines() const { return m_fileLines; }
    // Which of them the sound's is; none for a line that was put in since.
    std::optional<std::size_t> fileLineIndex(std::size_t number) const;
    bool differsFromFile() const;
    bool isModified(std::size_t number) const { return currentLine(number) != originalLine(number); }
    // Part of every level: the line carries "#g".
    bool isGlobal(std::size_t number) const;

    bool isProtected(std::size_t number) const;
    std::span<const std::size_t> protectedNumbers() const;

    const DoublesStatus& doubles() const { return m_doubles; }
    void setDoubles(const DoublesStatus& doubles) { m_doubles = doubles; }
    const std::vector<SoundObject>& objects() const { return m_objects; }
    void setObjects(std::vector<SoundObject> objects) { m_objects = std::move(objects); }

    // The only way to change a line. Refused, with the line as it was: a text without ":", with a line end or
    // a NUL, or with more than 50 samples; each would shift or break the sounds behind it at the next load.
    [[nodiscard]] Problem setCurrentLine(std::size_t number, std::string text);

    static bool accepts(std::string_view text) { return !refusal(text); }
    // Why a line cannot have the text; nothing for one that it may have.
    static std::optional<BilingualText> refusal(std::string_view text);
    // Changes several lines: all of them or, on the first refusal, none.
    struct LineChange
    {
        std::size_t number;
        std::string text;
    };
    [[nodiscard]] Problem setCurrentLines(std::vector<LineChange> changes);

    // A line more or less. The numbers of all sounds behind it change, and with them the installed lines that
    // theirs are compared with. A line put in is refused like any other text.
    [[nodiscard]] Problem putLineIn(std::size_t number, std::string text);
    void takeLineOut(std::size_t number);
    // The changes of a step once more, or backwards.
    void repeat(const LineDelta& delta);
    void reverse(const LineDelta& delta);

    // The file holds the current lines now, each in the line of this number (1-based).
    void markApplied(const FileStamp& stamp, const std::vector<std::size_t>& linesInFile);

    // Not owned; it must outlive this, or be taken off. A copy of a catalogue has none.
    void setRecorder(StepRecorder* recorder) { m_recorder.pointer = recorder; }
    StepRecorder* recorder() const { return m_recorder.pointer; }

private:
    static constexpr std::size_t notInFile = static_cast<std::size_t>(-1);
    struct Sound
    {
        std::string current;
        std::string listEntry;
        std::string ownOriginal; // where no line was installed
        std::size_t fileLine;    // which of the file's, or notInFile
    };
    // Stays with the object when another is copied or moved into it.
    struct Recorder
    {
        StepRecorder* pointer = nullptr;

        Recorder() = default;
        Recorder(const Recorder& /*other*/) {}
        Recorder(Recorder&& /*other*/) noexcept {}
        ~Recorder() = default;
        // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is assigned
        Recorder& operator=(const Recorder& /*other*/) { return *this; }
        Recorder& operator=(Recorder&& /*other*/) noexcept { return *this; }
    };

    void replaceLine(std::size_t number, std::string text);
    void insertSound(std::size_t number, std::string text);
    void eraseSound(std::size_t number);
    void renumberFrom(std::size_t number);
    // Of a line that stood here and was taken out.
    std::size_t freeFileLineAt(std::size_t number) const;
    void record(LineDelta::Kind kind, std::size_t number, std::string before, std::string after) const;
    std::string makeListEntry(std::size_t number, std::string_view line) const;

    File m_file;
    bool m_protectedLinesEditable = false;
    std::vector<Sound> m_sounds;
    std::vector<std::string> m_originals; // by number
    std::vector<FileLine> m_fileLines;
    DoublesStatus m_doubles;
    std::vector<SoundObject> m_objects;
    Recorder m_recorder;
};

} // namespace tavrel
