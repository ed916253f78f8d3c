// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Icons.h"

#include <functional>
#include <initializer_list>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QWidget;

// The controls of which the windows are built. Their object names are how tests, captions and assistive
// technology find them.
namespace tavrel {

constexpr int controlGap = 6;

template <typename Control>
Control* named(Control* control, const char* name)
{
    control->setObjectName(name);
    return control;
}

// Enter does not press it: that belongs to the control that has the focus.
QPushButton* makeButton(const char* name, Glyph glyph);
// Shows the icon alone.
QPushButton* makeIconButton(const char* name, Glyph glyph);
QLabel* makeHeading(const char* name);
// A status line in dark text on light ground, for texts that are coloured by what they say.
QLabel* makePaperLabel(const char* name);
// Makes any label one, or an ordinary one again.
enum class Paper { None, Calm, Alarming };
void setPaper(QLabel& label, Paper paper);
// An ordinary label as long as there is no text.
void setPaperText(QLabel& label, const QString& text, bool alarming = false);
QLineEdit* makeReadOnly(const char* name);
// The wheel turns it only while it has the focus.
QComboBox* makeComboBox(const char* name);
// A click into the box selects its text, so that typing replaces it; the next click sets the cursor.
void selectAllOnClick(QLineEdit& box);
// Cuts a text that is too long, and shows all of it as tool tip.
QLabel* makeElidedLabel(const char* name);
QListWidget* makeFixedPitchList(const char* name);
// A key that does something while the list has the focus.
void addListKey(QListWidget& list, int key, const std::function<void()>& command);
// A long text to read; TAB leaves it.
QPlainTextEdit* makeTextView(const char* name);

QHBoxLayout* rowOf(std::initializer_list<QWidget*> controls);

} // namespace tavrel
