// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/LineEditor.h"
#include "session/Session.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class SelectionObserver
{
public:
    SelectionObserver() = default;
    SelectionObserver(const SelectionObserver&) = delete;
    SelectionObserver& operator=(const SelectionObserver&) = delete;
    virtual ~SelectionObserver() = default;

    // Another sound, or the same one with another line: all that is shown of it is read again.
    virtual void lineShown() {}
    // A box was changed by the user, or all of them got other values.
    virtual void valuesChanged() {}
    virtual void sampleChosen() {}
    virtual void objectChosen() {}
    // The sound is to be seen, whatever hides it.
    virtual void revealed() {}
    // The first sound of the list is to be selected, whichever that is.
    virtual void firstWanted() {}
};

// What the user has in hand: a sound with the values in its boxes, one of its samples, one of its letters, or
// an object. The panels share it.
class Selection : private SessionObserver
{
public:
    explicit Selection(Session& session);
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() override;

    void addObserver(SelectionObserver& observer) { m_observers.push_back(&observer); }
    void removeObserver(SelectionObserver& observer) { std::erase(m_observers, &observer); }

    // The sound

    std::optional<std::size_t> number() const { return m_editor.selected(); }
    // Values that were not accepted are gone; mayLeave() asks about them.
    void select(std::optional<std::size_t> number);
    // The same, and the sound comes into sight.
    void reveal(std::optional<std::size_t> number);
    void selectFirst() { tell(&SelectionObserver::firstWanted); }
    const LineEditor& editor() const { return m_editor; }
    // For commands on the selected line.
    LineEditor& editor() { return m_editor; }
    // The line may be edited, and no object is selected.
    bool canEditLine() const { return m_editor.canEdit() && m_object.empty(); }

    // Values

    // The corrected text of the box.
    std::string setValue(ValueBox box, std::string_view typed, bool userIsTyping);
    void setFlag(LineFlag flag, bool on);
    bool edited() const { return m_editor.edited(); }
    // "Accept values".
    bool accept(Dialogs& dialogs) { return m_editor.accept(dialogs); }
    // Before the line is left: asks about values that were not accepted. False when the user stays.
    bool mayLeave(Dialogs& dialogs);
    // Values that were not accepted are a step of their own on the way back.
    struct Values
    {
        std::size_t number = 0;
        SoundLine record;
    };
    std::optional<Values> unaccepted() const;
    void dropValues();
    void putBack(const Values& values);

    // One of its samples; none for an empty list.

    std::optional<std::size_t> sample() const { return m_sample; }
    std::string sampleName() const;
    void chooseSample(std::optional<std::size_t> sample);

    // One of its letters, by its place among them.

    std::optional<std::size_t> letter() const { return m_letter; }
    void chooseLetter(std::optional<std::size_t> letter);
    // The letter that was given last; it is shown with the name of its WAD as long as the line is selected.
    const std::string& justAdded() const { return m_justAdded; }
    void letterAdded(const std::string& letter);

    // An object: letters go to all of its sounds. Empty when single lines are edited.

    const std::string& object() const { return m_object; }
    void chooseObject(const std::string& object);

private:
    // SessionObserver
    void reloaded() override;
    void linesChanged(const std::vector<std::size_t>& numbers) override;
    void linesMoved() override;
    void wadChanged() override;
    void registerChanged() override;

    void readLine();
    void tell(void (SelectionObserver::*event)());

    Session& m_session;
    LineEditor m_editor;
    std::vector<SelectionObserver*> m_observers;
    std::optional<std::size_t> m_sample;
    std::vector<std::string> m_samples; // of the line, when one of them was chosen
    std::optional<std::size_t> m_letter;
    std::string m_letters; // of the line, when one of them was chosen
    std::string m_justAdded;
    std::string m_object;
};

} // namespace tavrel
