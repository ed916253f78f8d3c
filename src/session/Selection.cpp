// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Selection.h"

#include "references/LetterList.h"

#include <algorithm>

namespace tavrel {

namespace {

std::vector<std::string> samplesOf(const SoundLine& record)
{
    const auto count = static_cast<std::ptrdiff_t>(record.sampleCount());
    return {record.Samples.begin(), record.Samples.begin() + count};
}

} // namespace

Selection::Selection(Session& session) : m_session(session), m_editor(session.catalogue())
{
    session.addObserver(*this);
}

Selection::~Selection()
{
    m_session.removeObserver(*this);
}

void Selection::tell(void (SelectionObserver::*event)())
{
    const std::vector<SelectionObserver*> observers = m_observers;
    for (SelectionObserver* const observer : observers) {
        (observer->*event)();
    }
}

void Selection::select(std::optional<std::size_t> number)
{
    select(number ? std::vector{*number} : std::vector<std::size_t>(), number);
}

void Selection::select(std::vector<std::size_t> numbers, std::optional<std::size_t> current)
{
    if (numbers != this->numbers() || current != number()) {
        m_justAdded.clear();
        m_letter.reset();
        m_samples.clear();
    }
    m_editor.select(std::move(numbers), current);
    readLine();
}

void Selection::makeCurrent(std::optional<std::size_t> number)
{
    if (number != this->number()) {
        m_editor.makeCurrent(number);
        readLine();
    }
}

void Selection::reveal(std::optional<std::size_t> number)
{
    select(number);
    tell(&SelectionObserver::revealed);
}

// What was chosen of the line stays as far as the line still has it.
void Selection::readLine()
{
    std::vector<std::string> samples = samplesOf(m_editor.record());
    if (samples != m_samples) {
        m_sample = samples.empty() ? std::nullopt : std::optional<std::size_t>(0);
    }
    m_samples = std::move(samples);
    readLetters();
    tell(&SelectionObserver::lineShown);
}

void Selection::readLetters()
{
    std::vector<CarriedLetter> carried;
    const auto add = [&](const SoundLine& line) {
        for (const std::string& letter : lettersOf(line)) {
            const auto known = std::ranges::find(carried, letter, &CarriedLetter::letter);
            if (isSeveral() && known != carried.end()) {
                ++known->sounds;
            } else {
                carried.push_back({letter, 1});
            }
        }
    };
    if (isSeveral()) {
        std::ranges::for_each(m_editor.lines(), add);
    } else {
        add(m_editor.record());
    }
    if (carried != m_letters) {
        m_letter.reset();
        m_letters = std::move(carried);
    }
}

std::string Selection::setValue(ValueBox box, std::string_view typed, bool userIsTyping)
{
    std::string corrected = m_editor.setValue(box, typed, userIsTyping);
    tell(&SelectionObserver::valuesChanged);
    return corrected;
}

bool Selection::stepValue(ValueBox box, int by)
{
    const bool stepped = m_editor.stepValue(box, by);
    if (stepped) {
        tell(&SelectionObserver::valuesChanged);
    }
    return stepped;
}

void Selection::setFlag(LineFlag flag, bool on)
{
    m_editor.setFlag(flag, on);
    tell(&SelectionObserver::valuesChanged);
}

void Selection::setEdit(const LineEdit& edit)
{
    m_editor.putBack(edit);
    readLine();
}

bool Selection::mayLeave(Dialogs& dialogs)
{
    const bool wasEdited = m_editor.edited();
    const bool may = m_editor.mayLeave(dialogs);
    if (wasEdited && may) {
        readLine();
    }
    return may;
}

std::optional<Selection::Values> Selection::unaccepted() const
{
    return edited() ? std::optional(Values{numbers(), number().value(), m_editor.edit()}) : std::nullopt;
}

void Selection::dropValues()
{
    m_editor.putBack({});
    readLine();
}

void Selection::putBack(const Values& values)
{
    select(values.numbers, values.current);
    tell(&SelectionObserver::revealed);
    setEdit(values.edit);
}

std::string Selection::sampleName() const
{
    return m_sample && *m_sample < m_samples.size() ? m_samples[*m_sample] : std::string();
}

void Selection::chooseSample(std::optional<std::size_t> sample)
{
    m_sample = sample;
    tell(&SelectionObserver::sampleChosen);
}

void Selection::letterAdded(const std::string& letter)
{
    m_justAdded = letter;
    const auto added = std::ranges::find(m_letters, letter, &CarriedLetter::letter);
    if (added != m_letters.end()) {
        m_letter = static_cast<std::size_t>(added - m_letters.begin());
    }
    tell(&SelectionObserver::lineShown);
}

void Selection::chooseObjects(std::vector<std::string> objects)
{
    m_objects = std::move(objects);
    tell(&SelectionObserver::objectChosen);
}

void Selection::reloaded()
{
    m_objects.clear();
    m_samples.clear();
    m_letter.reset();
    m_justAdded.clear();
    m_editor.select(m_session.catalogue().empty() ? std::nullopt : std::optional<std::size_t>(0));
    readLine();
    tell(&SelectionObserver::objectChosen);
}

void Selection::linesChanged(const std::vector<std::size_t>& numbers)
{
    const auto isAmong = [&numbers](std::size_t number) {
        return std::ranges::binary_search(numbers, number);
    };
    if (std::ranges::any_of(this->numbers(), isAmong)) {
        m_editor.select(this->numbers(), number());
        readLine();
    }
}

void Selection::linesMoved()
{
    const std::size_t size = m_session.catalogue().size();
    select(number() && *number() < size ? number() : std::nullopt);
}

void Selection::wadChanged()
{
    m_justAdded.clear();
    tell(&SelectionObserver::lineShown);
}

void Selection::registerChanged()
{
    tell(&SelectionObserver::lineShown);
}

} // namespace tavrel
