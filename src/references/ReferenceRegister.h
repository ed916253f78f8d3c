// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Ties the WAD file of a level to the letter that marks its sounds.
struct WadReference
{
    std::string wadName; // base name, without folder and extension
    std::string letter;  // without "#"
    std::string title;

    friend bool operator==(const WadReference&, const WadReference&) = default;
};

// The installed file is taken to hold so many references. They cannot be edited.
constexpr std::size_t BuiltInReferenceCount = 42;

// The references that come with the program, then the user's own, each in the order of its file.
class ReferenceRegister
{
public:
    void appendBuiltIn(WadReference reference);
    void appendUser(WadReference reference) { m_references.push_back(std::move(reference)); }
    // Before the user's reference of this number, or behind the last one.
    void insertUser(std::size_t userIndex, WadReference reference);
    // A line of the user's file that is no reference. It is written back where it stood.
    void keepUserLine(std::string line);
    // The user's file is there but could not be read: it must not be replaced.
    void protectUserFile() { m_userFileProtected = true; }
    bool isUserFileProtected() const { return m_userFileProtected; }

    const std::vector<WadReference>& all() const { return m_references; }
    std::size_t size() const { return m_references.size(); }
    const WadReference& at(std::size_t index) const { return m_references.at(index); }
    // The first of the user's own references.
    std::size_t userBegin() const { return m_builtInCount; }
    // By their place alone, whatever the installed file holds.
    static bool isEditable(std::size_t index) { return index >= BuiltInReferenceCount; }

    void replace(std::size_t index, WadReference reference) { m_references.at(index) = std::move(reference); }
    void remove(std::size_t index);
    // In the user's own references.
    void replaceLetter(std::string_view oldLetter, std::string_view newLetter);

    // The first that matches exactly, or null.
    const WadReference* findLetter(std::string_view letter) const;
    const WadReference* findWad(std::string_view wadName) const;
    const WadReference* findUserWad(std::string_view wadName) const;
    const WadReference* findUserLetter(std::string_view letter) const;

    // The user's references and the kept lines, as the file holds them.
    std::string userFileText() const;

    // The user's file was just read or written, and holds this text.
    void isInStepWith(std::string text);
    bool hasChanged() const { return userFileText() != m_writtenText; }
    const std::string& textInFile() const { return m_textInFile; }

private:
    struct KeptLine
    {
        std::size_t userIndex; // stands before the user's reference of this number
        std::string text;
    };

    std::vector<WadReference> m_references;
    std::size_t m_builtInCount = 0;
    std::vector<KeptLine> m_keptLines;
    bool m_userFileProtected = false;
    std::string m_textInFile;
    std::string m_writtenText; // the same as this program writes it
};

struct LoadedRegister
{
    ReferenceRegister references;
    std::vector<Failure> notices; // lines that are no references, a user file that cannot be read
};

// The installed references must be there; the user's file may be missing.
Result<LoadedRegister> loadRegister(const std::filesystem::path& programFolder);

// Takes files that were read before; the user's may be missing.
LoadedRegister parseRegister(const TextFile& builtIn, const std::optional<Result<TextFile>>& user);

// Writes the user's own references. What another window or command has written since they were read stays: as
// it is when nothing has changed here, else in a copy beside the file.
[[nodiscard]] Problem saveRegister(const std::filesystem::path& programFolder, ReferenceRegister& references);

} // namespace tavrel
