// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>

namespace tavrel {

enum class Glyph {
    Accept,
    RestoreLine,
    Apply,
    CopyLine,
    OpenFile,
    ShowGlobals,
    Generate,
    ImportSam,
    ImportWas,
    ViewWad,
    Register,
    Statistics,
    CheckSamples,
    ImportBackup,
    ExportBackup,
    Play,
    Stop,
    Rename,
    AddItem,
    RemoveItem,
    ChooseFile,
    Search,
    ReplaceLetter,
    EraseLetter,
    EraseText,
    ObjectSelection,
    Help,
    Parameters,
    Colours,
    ToStart,
    Quit,
    PanelOpen,
    PanelClosed,
    Close,
    Proceed,
    Undo,
    Redo,
    BackToFile,
    Minimise,
    Maximise,
    RestoreWindow,
    Information,
    Exclamation,
    Critical,
};

// An icon drawn from vectors: sharp at every size. Disabled controls get it faded, selected rows, which are
// painted with the accent, dark.
QIcon glyphIcon(Glyph glyph, const QColor& colour);

// The program's own icon, for the window and the task bar.
QIcon programIcon();

} // namespace tavrel
