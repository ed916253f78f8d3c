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
    if (number != m_editor.selected()) {
        m_justAdded.clear();
        m_letter.reset();
        m_samples.clear();
    }
    m_editor.select(number);
    readLine();
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
    if (m_editor.record().Letters != m_letters) {
        m_letter.reset();
    }
    tell(&SelectionObserver::lineShown);
}

std::string Selection::setValue(ValueBox box, std::string_view typed, bool userIsTyping)
{
    std::string corrected = m_editor.setValue(box, typed, userIsTyping);
    tell(&SelectionObserver::valuesChanged);
    return corrected;
}

void Selection::setFlag(LineFlag flag, bool on)
{
    m_editor.setFlag(flag, on);
    tell(&SelectionObserver::valuesChanged);
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
    return edited() ? std::optional(Values{number().value(), m_editor.record()}) : std::nullopt;
}

void Selection::dropValues()
{
    m_editor.select(m_editor.selected());
    readLine();
}

void Selection::putBack(const Values& values)
{
    select(values.number);
    m_editor.putBack(values.record);
    readLine();
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

void Selection::chooseLetter(std::optional<std::size_t> letter)
{
    m_letter = letter;
    m_letters = m_editor.record().Letters;
}

void Selection::letterAdded(const std::string& letter)
{
    m_justAdded = letter;
    const std::size_t count = lettersOf(m_editor.record()).size();
    chooseLetter(count == 0 ? std::nullopt : std::optional(count - 1));
    tell(&SelectionObserver::lineShown);
}

void Selection::chooseObject(const std::string& object)
{
    m_object = object;
    tell(&SelectionObserver::objectChosen);
}

void Selection::reloaded()
{
    m_object.clear();
    m_samples.clear();
    m_letter.reset();
    m_justAdded.clear();
    m_editor.select(m_session.catalogue().empty() ? std::nullopt : std::optional<std::size_t>(0));
    readLine();
    tell(&SelectionObserver::objectChosen);
}

void Selection::linesChanged(const std::vector<std::size_t>& numbers)
{
    if (number() && std::ranges::binary_search(numbers, *number())) {
        m_editor.select(number());
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
