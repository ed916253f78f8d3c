// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/SoundCatalogue.h"
#include "catalogue/SoundLine.h"
#include "catalogue/ValueBoxes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

enum class LineFlag { P, V, R, N, L };

// The selected line and the working record that the edit boxes change. Nothing reaches the catalogue before
// accept().
class LineEditor
{
public:
    explicit LineEditor(SoundCatalogue& catalogue) : m_catalogue(&catalogue) {}

    // Reads the current line of the sound, or of none, into the working record.
    void select(std::optional<std::size_t> number);
    std::optional<std::size_t> selected() const { return m_selected; }
    // A sound is selected and is not one of the protected ones.
    bool canEdit() const;
    const SoundCatalogue& catalogue() const { return *m_catalogue; }
    const SoundLine& record() const { return m_record; }
    // Values that were in the boxes before; the line stays as it is.
    void putBack(SoundLine record) { m_record = std::move(record); }

    // The corrected text of the box.
    std::string setValue(ValueBox box, std::string_view typed, bool userIsTyping);
    // What the box shows of the record: the digits as they stand.
    std::string boxText(ValueBox box) const;
    // R and N clear each other.
    void setFlag(LineFlag flag, bool on);
    bool hasFlag(LineFlag flag) const;

    // The working record differs from the line.
    bool edited() const { return m_record != m_unedited; }
    // "Accept values": composes the record into the current line. False when it was refused.
    bool accept(Dialogs& dialogs);
    // Asks when composing the line would lose or gain words. True when a command may go on.
    bool confirmComposing(Dialogs& dialogs) const;
    // Composes the record with other samples into the current line, after confirmComposing(). False when the
    // catalogue refused it.
    bool storeSamples(std::vector<std::string> samples, Dialogs& dialogs);
    // The same with other letters ("#g #ab").
    bool storeLetters(std::string letters, Dialogs& dialogs);
    // Before the line is left: asks about values that were not accepted. False when the user stays.
    bool mayLeave(Dialogs& dialogs);

private:
    bool store(const SoundLine& record, const BilingualText& title, Dialogs& dialogs);

    SoundCatalogue* m_catalogue;
    std::optional<std::size_t> m_selected;
    SoundLine m_record;
    SoundLine m_unedited;
};

// What a user hears who picks a protected line.
Message protectedLineRefusal();

// Puts the original text back into the line, after a question. True when the answer was Yes.
bool restoreLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs);

// "Back to the file's line": puts the text back that the file holds. It can be undone and is not asked about.
void backToFileLine(SoundCatalogue& catalogue, std::size_t number, Dialogs& dialogs);
BilingualText backToFileLabel();

} // namespace tavrel
