// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

constexpr std::size_t longestWadName = 25;

// A reference as a row of the register window: columns of 25 and 4 characters, then the title.
std::string referenceRow(const WadReference& reference);
// What the fields show of it: the title's first 50 characters.
WadReference fieldsOfRow(std::string_view row);

// The WAD's name in the path of a chosen file: between the last separator and ".WAD" or ".wad".
std::optional<std::string> wadNameFromPath(std::string_view path);

// Which of the register window's fields an answer is about.
enum class ReferenceField { None, WadName, Letter, Title };

// The rules of the register window: it shows what is here and calls one command for each button. Letters on
// sound lines follow the register at once; the register's file is written when the window closes.
class RegisterEditor
{
public:
    struct Context
    {
        SoundCatalogue& catalogue;
        ReferenceRegister& references;
        CurrentWad& wad;
        std::filesystem::path wadFolder;
        Dialogs& dialogs;
    };

    explicit RegisterEditor(const Context& context) : m_context(context) {}

    // The reference that was last loaded into the fields; empty when none.
    const std::string& selectedLetter() const { return m_selectedLetter; }
    const std::string& selectedWadName() const { return m_selectedWadName; }
    std::optional<std::size_t> selected() const { return m_selected; }
    // Letters on sound lines have changed.
    bool linesChanged() const { return m_linesChanged; }
    // Where the last refused command wants the focus.
    ReferenceField focus() const { return m_focus; }

    // Loads a row into the fields; nothing to load for none and for a built-in one, which a click announces.
    WadReference select(std::optional<std::size_t> row, bool announceBuiltIn);

    // A letter for a new reference to the WAD, that no reference and no line has; empty when all are taken.
    std::string freeLetter(std::string_view wadName) const;

    // True when the command was carried out. Letter boxes come as the user left them.
    bool add(const WadReference& fields);
    enum class Modified { Done, Refused, LetterTakenBack };
    Modified modify(const WadReference& fields);
    bool remove();

private:
    Problem store(const WadReference& fields);
    bool isUnused(const std::string& letter) const;
    bool ValidateReference(const WadReference& fields, bool adding, const Title& caption);
    bool hasWadFile(std::string_view wadName, std::string_view ending, const Title& caption);
    bool isFreeWadName(const std::string& wadName, const Title& caption);
    bool isFreeLetter(const std::string& letter, const Title& caption);
    bool refuse(ReferenceField field, const Title& title, const BilingualText& text);
    bool showIfFailed(const Problem& problem, const Title& title);
    // For the details of a question.
    BilingualText soundsWith(const std::string& letter) const;
    // The letter is one that no walk over the lines looks for.
    void tellLinesLeft(const std::string& letter, const Title& title);

    Context m_context;
    std::optional<std::size_t> m_selected;
    std::string m_selectedLetter;
    std::string m_selectedWadName;
    ReferenceField m_focus = ReferenceField::None;
    bool m_linesChanged = false;
};

} // namespace tavrel
