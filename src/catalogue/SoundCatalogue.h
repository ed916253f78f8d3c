// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"
#include "catalogue/DoublesStatus.h"
#include "catalogue/ObjectTable.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
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

    void append(std::string currentLine, std::string originalLine, std::size_t lineInFile);

    std::size_t size() const { return m_sounds.size(); }
    bool empty() const { return m_sounds.empty(); }
    const File& file() const { return m_file; }

    const std::string& currentLine(std::size_t number) const { return m_sounds.at(number).current; }
    const std::string& originalLine(std::size_t number) const { return m_sounds.at(number).original; }
    // What the main list shows: the number and the name.
    const std::string& listEntry(std::size_t number) const { return m_sounds.at(number).listEntry; }
    // 1-based, in the file as it was last read or written.
    std::size_t lineInFile(std::size_t number) const { return m_sounds.at(number).lineInFile; }
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
    // Why not; nothing for a text that a line may have.
    static std::optional<BilingualText> refusal(std::string_view text);
    // The same for several lines: all of them or, on the first refusal, none.
    struct LineChange
    {
        std::size_t number;
        std::string text;
    };
    [[nodiscard]] Problem setCurrentLines(std::vector<LineChange> changes);

    // Lines have changed since the file was read or written.
    bool pending() const { return m_pending; }
    void markApplied(const FileStamp& stamp);

private:
    struct Sound
    {
        std::string current;
        std::string original;
        std::string listEntry;
        std::size_t lineInFile;
    };

    void replaceLine(std::size_t number, std::string text);
    std::string makeListEntry(std::size_t number, std::string_view line) const;

    File m_file;
    bool m_protectedLinesEditable = false;
    std::vector<Sound> m_sounds;
    DoublesStatus m_doubles;
    std::vector<SoundObject> m_objects;
    bool m_pending = false;
};

} // namespace tavrel
