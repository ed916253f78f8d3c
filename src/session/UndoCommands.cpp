// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/UndoCommands.h"

#include "base/Titles.h"

namespace tavrel {

namespace {

const BilingualText undone("Undone: ", "Annulé : ");
const BilingualText doneAgain("Done again: ", "Rétabli : ");

} // namespace

bool UndoCommands::canBringValuesBack() const
{
    return m_dropped && !m_selection.edited() && m_session.history().position == m_dropped->position &&
           m_dropped->values.number < m_session.catalogue().size() &&
           m_session.catalogue().currentLine(m_dropped->values.number) == m_dropped->line;
}

bool UndoCommands::canRedo() const
{
    return canBringValuesBack() || m_session.canRedo();
}

BilingualText UndoCommands::valuesLabel(std::size_t number) const
{
    return stepLabel({"Values not accepted", "Valeurs non acceptées"}, m_session.catalogue(), number);
}

BilingualText UndoCommands::nextUndo() const
{
    if (m_selection.edited()) {
        return valuesLabel(m_selection.number().value());
    }
    const HistoryTrack& history = m_session.history();
    return m_session.canUndo() ? history.steps[history.position - 1].label : BilingualText();
}

BilingualText UndoCommands::nextRedo() const
{
    if (canBringValuesBack()) {
        return valuesLabel(m_dropped->values.number);
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
    m_dropped = {*values, m_session.catalogue().currentLine(values->number), m_session.history().position};
    m_selection.dropValues();
    return undone + valuesLabel(values->number);
}

BilingualText UndoCommands::redo(Dialogs& dialogs)
{
    if (!canBringValuesBack()) {
        return m_session.canRedo() ? goTo(m_session.history().position + 1, dialogs) : BilingualText();
    }
    m_selection.reveal(m_dropped->values.number);
    m_selection.putBack(m_dropped->values);
    return doneAgain + valuesLabel(m_dropped->values.number);
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
    if (moved.sound) {
        m_selection.reveal(moved.sound);
    }
    if (moved.problem) {
        dialogs.show({MessageIcon::Exclamation, titles::reference, moved.problem->text});
    }
    return (back ? undone : doneAgain) + moved.label;
}

} // namespace tavrel
