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

// What the user has in hand: sounds with the values in their boxes, a sample and a letter of theirs, or
// objects. The panels share it.
class Selection : private SessionObserver
{
public:
    explicit Selection(Session& session);
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() override;

    void addObserver(SelectionObserver& observer) { m_observers.push_back(&observer); }
    void removeObserver(SelectionObserver& observer) { std::erase(m_observers, &observer); }

    // The sounds

    // The current one.
    std::optional<std::size_t> number() const { return m_editor.selected(); }
    // All of them, ascending.
    const std::vector<std::size_t>& numbers() const { return m_editor.numbers(); }
    bool isSeveral() const { return m_editor.isSeveral(); }
    // Values that were not accepted are gone; mayLeave() asks about them.
    void select(std::optional<std::size_t> number);
    void select(std::vector<std::size_t> numbers, std::optional<std::size_t> current);
    // Another one of the selected sounds; the boxes keep their values.
    void makeCurrent(std::optional<std::size_t> number);
    // A sound is selected and comes into sight.
    void reveal(std::optional<std::size_t> number);
    void selectFirst() { tell(&SelectionObserver::firstWanted); }
    const LineEditor& editor() const { return m_editor; }
    // For commands on the selected line.
    LineEditor& editor() { return m_editor; }
    // It is the only one, it may be edited, and no object is selected.
    bool canEditLine() const { return m_editor.canEdit() && !isSeveral() && m_objects.empty(); }
    // One of the sounds may be edited, and no object is selected.
    bool canEditLines() const { return m_editor.canEditAny() && m_objects.empty(); }

    // Values

    // The corrected text of the box.
    std::string setValue(ValueBox box, std::string_view typed, bool userIsTyping);
    // False when no line can go so far.
    bool stepValue(ValueBox box, int by);
    void setFlag(LineFlag flag, bool on);
    // An edit from elsewhere takes the place of what the boxes hold.
    void setEdit(const LineEdit& edit);
    bool edited() const { return m_editor.edited(); }
    // "Accept values".
    bool accept(Dialogs& dialogs) { return m_editor.accept(dialogs); }
    // Before the line is left: asks about values that were not accepted. False when the user stays.
    bool mayLeave(Dialogs& dialogs);
    // Values that were not accepted are a step of their own on the way back.
    struct Values
    {
        std::vector<std::size_t> numbers;
        std::size_t current = 0;
        LineEdit edit;
    };
    std::optional<Values> unaccepted() const;
    void dropValues();
    void putBack(const Values& values);

    // One of its samples; none for an empty list.

    std::optional<std::size_t> sample() const { return m_sample; }
    std::string sampleName() const;
    void chooseSample(std::optional<std::size_t> sample);

    // The letters that the sounds carry.

    struct CarriedLetter
    {
        std::string letter; // without "#"
        std::size_t sounds = 0;

        friend bool operator==(const CarriedLetter&, const CarriedLetter&) = default;
    };
    const std::vector<CarriedLetter>& carriedLetters() const { return m_letters; }
    // The chosen one, by its place among them.
    std::optional<std::size_t> letter() const { return m_letter; }
    void chooseLetter(std::optional<std::size_t> letter) { m_letter = letter; }
    // The letter that was added last; its entry shows the WAD's name.
    const std::string& justAdded() const { return m_justAdded; }
    void letterAdded(const std::string& letter);

    // Objects: letters go to all of their sounds. None when lines are edited.

    const std::vector<std::string>& objects() const { return m_objects; }
    void chooseObjects(std::vector<std::string> objects);

private:
    // SessionObserver
    void reloaded() override;
    void linesChanged(const std::vector<std::size_t>& numbers) override;
    void linesMoved() override;
    void wadChanged() override;
    void registerChanged() override;

    void readLine();
    void readLetters();
    void tell(void (SelectionObserver::*event)());

    Session& m_session;
    LineEditor m_editor;
    std::vector<SelectionObserver*> m_observers;
    std::optional<std::size_t> m_sample;
    std::vector<std::string> m_samples; // of the line, when one of them was chosen
    std::optional<std::size_t> m_letter;
    std::vector<CarriedLetter> m_letters;
    std::string m_justAdded;
    std::vector<std::string> m_objects;
};

} // namespace tavrel
