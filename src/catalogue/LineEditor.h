// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/ChangeSounds.h"
#include "catalogue/LineEdit.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// The selected sounds and what the edit boxes do to their lines. Nothing reaches the catalogue before
// accept(). One of the sounds is the current one: commands on a single line are about it.
class LineEditor
{
public:
    explicit LineEditor(SoundCatalogue& catalogue) : m_catalogue(&catalogue) {}

    // Reads the current lines of the sounds.
    void select(std::optional<std::size_t> number);
    // Ascending numbers, with the current one among them.
    void select(std::vector<std::size_t> numbers, std::optional<std::size_t> current);
    // Another one of them; the edit stays.
    void makeCurrent(std::optional<std::size_t> number);
    std::optional<std::size_t> selected() const { return m_selected; }
    const std::vector<std::size_t>& numbers() const { return m_numbers; }
    bool isSeveral() const { return m_numbers.size() > 1; }
    // The current sound is there and is not one of the protected ones.
    bool canEdit() const;
    // Any of the selected sounds is one that can be edited.
    bool canEditAny() const { return !m_lines.empty(); }
    // The selected sounds that can be edited, as the catalogue has them.
    const std::vector<SoundLine>& lines() const { return m_lines; }
    const SoundCatalogue& catalogue() const { return *m_catalogue; }
    SoundCatalogue& catalogue() { return *m_catalogue; }
    // Of the current sound, with what the boxes do to it.
    const SoundLine& record() const { return m_record; }
    const LineEdit& edit() const { return m_edit; }
    // What was in the boxes before; the lines stay as they are.
    void putBack(const LineEdit& edit);

    // The corrected text of the box.
    std::string setValue(ValueBox box, std::string_view typed, bool userIsTyping);
    // Up or down, on each line as far as it can go. False when that changes none.
    bool stepValue(ValueBox box, int by);
    // What all lines have in common, the digits as they stand; nothing where they differ.
    std::optional<std::string> commonText(ValueBox box) const;
    std::string boxText(ValueBox box) const { return tavrel::boxText(m_record, box); }
    // R and N clear each other.
    void setFlag(LineFlag flag, bool on);
    bool hasFlag(LineFlag flag) const { return tavrel::hasFlag(m_record, flag); }
    std::optional<bool> commonFlag(LineFlag flag) const;

    // The boxes would change a line.
    bool edited() const { return m_edited; }
    // "Accept values": composes the lines. False when it was refused.
    bool accept(Dialogs& dialogs);
    // What the last accept did to several lines.
    const BilingualText& report() const { return m_report; }
    // Asks when composing the current line would lose or gain words. True when a command may go on.
    bool confirmComposing(Dialogs& dialogs) const;
    // Composes the record with other samples into the current line, after confirmComposing(). False when the
    // catalogue refused it.
    bool storeSamples(std::vector<std::string> samples, Dialogs& dialogs);
    // Composes the record with other letters ("#g #ab") into the current line, after confirmComposing().
    bool storeLetters(std::string letters, Dialogs& dialogs);
    // Before the line is left: asks about values that were not accepted. False when the user stays.
    bool mayLeave(Dialogs& dialogs);

private:
    void editChanged();
    bool store(const SoundLine& record, const Title& title, Dialogs& dialogs);

    SoundCatalogue* m_catalogue;
    std::optional<std::size_t> m_selected;
    std::vector<std::size_t> m_numbers;
    std::vector<SoundLine> m_lines;
    LineEdit m_edit;
    SoundLine m_record;
    bool m_edited = false;
    BilingualText m_report;
};

// What a user hears who picks a protected line.
Message protectedLineRefusal();

// Puts the original text back into the lines, after a question. Nothing when the answer was not Yes.
std::optional<SoundsChanged> restoreLines(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                          Dialogs& dialogs);

// "Back to the file's line": puts the text back that the file holds. It can be undone and is not asked about.
SoundsChanged backToFileLines(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                              Dialogs& dialogs);
void backToFileLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs);
BilingualText backToFileLabel();

} // namespace tavrel
