// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/UndoCommands.h"

#include "base/Titles.h"

#include <algorithm>

namespace tavrel {

namespace {

const BilingualText undone("Undone: ", "Annulé : ");
const BilingualText doneAgain("Done again: ", "Rétabli : ");

} // namespace

bool UndoCommands::canBringValuesBack() const
{
    return m_dropped && !m_selection.edited() && m_session.history().position == m_dropped->position &&
           m_dropped->values.numbers.back() < m_session.catalogue().size() &&
           linesOf(m_dropped->values) == m_dropped->lines;
}

std::vector<std::string> UndoCommands::linesOf(const Selection::Values& values) const
{
    std::vector<std::string> lines;
    for (const std::size_t number : values.numbers) {
        lines.push_back(m_session.catalogue().currentLine(number));
    }
    return lines;
}

bool UndoCommands::canRedo() const
{
    return canBringValuesBack() || m_session.canRedo();
}

BilingualText UndoCommands::valuesLabel(const Selection::Values& values) const
{
    return stepLabel({"Values not accepted", "Valeurs non acceptées"}, m_session.catalogue(), values.numbers);
}

BilingualText UndoCommands::nextUndo() const
{
    if (const std::optional<Selection::Values> values = m_selection.unaccepted()) {
        return valuesLabel(*values);
    }
    const HistoryTrack& history = m_session.history();
    return m_session.canUndo() ? history.steps[history.position - 1].label : BilingualText();
}

BilingualText UndoCommands::nextRedo() const
{
    if (canBringValuesBack()) {
        return valuesLabel(m_dropped->values);
    }
    const HistoryTrack& history = m_session.history();
    return m_session.canRedo() ? history.steps[history.position].label : BilingualText();
}

BilingualText UndoCommands::undo(Dialogs& dialogs)
{
    const std::optional<Selection::Values> values = m_selection.unaccepted();
    if (!values) {
        return m_session.canUndo() ? goTo(m_session.history().position - 1, dialogs) : BilingualText();
    }
    m_dropped = {*values, linesOf(*values), m_session.history().position};
    m_selection.dropValues();
    return undone + valuesLabel(*values);
}

BilingualText UndoCommands::redo(Dialogs& dialogs)
{
    if (!canBringValuesBack()) {
        return m_session.canRedo() ? goTo(m_session.history().position + 1, dialogs) : BilingualText();
    }
    m_selection.putBack(m_dropped->values);
    return doneAgain + valuesLabel(m_dropped->values);
}

BilingualText UndoCommands::goTo(std::size_t position, Dialogs& dialogs)
{
    const bool back = position < m_session.history().position;
    if (position == m_session.history().position || !m_selection.mayLeave(dialogs)) {
        return {};
    }
    // Accepting values was a step of its own, and ends what could be done again.
    if (position > m_session.history().steps.size()) {
        return {};
    }
    const Session::Moved moved = m_session.goTo(position);
    if (moved.sound && !std::ranges::binary_search(m_selection.numbers(), *moved.sound)) {
        m_selection.reveal(moved.sound);
    }
    if (moved.problem) {
        dialogs.show({MessageIcon::Exclamation, titles::reference, moved.problem->text});
    }
    return (back ? undone : doneAgain) + moved.label;
}

} // namespace tavrel
