// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "session/Selection.h"
#include "session/Session.h"

#include <optional>
#include <string>

namespace tavrel {

// Undo and redo as the user meets them: what came back is selected and comes into sight, and values that were
// not accepted are a step of their own on the way.
class UndoCommands
{
public:
    UndoCommands(Session& session, Selection& selection) : m_session(session), m_selection(selection) {}

    bool canUndo() const { return m_selection.edited() || m_session.canUndo(); }
    bool canRedo() const;
    // What the next one would bring back or do again; empty when there is none.
    BilingualText nextUndo() const;
    BilingualText nextRedo() const;

    // What happened, for the status line.
    BilingualText undo(Dialogs& dialogs);
    BilingualText redo(Dialogs& dialogs);
    // Back, or forward, to where so many of the steps are done.
    BilingualText goTo(std::size_t position, Dialogs& dialogs);

private:
    struct Dropped
    {
        Selection::Values values;
        std::vector<std::string> lines; // on which they were typed
        std::size_t position;
    };
    bool canBringValuesBack() const;
    std::vector<std::string> linesOf(const Selection::Values& values) const;
    BilingualText valuesLabel(const Selection::Values& values) const;

    Session& m_session;
    Selection& m_selection;
    std::optional<Dropped> m_dropped;
};

} // namespace tavrel
