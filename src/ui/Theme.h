// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>

class QApplication;

namespace tavrel {

// The look that every window shares: a dark room around the lists, cream text, amber for what wants
// attention.
namespace theme {

inline const QColor window(0x26, 0x28, 0x2C);
inline const QColor panel(0x2E, 0x31, 0x36);
inline const QColor edge(0x17, 0x18, 0x1B);
inline const QColor text(0xEE, 0xEC, 0xDA);
inline const QColor mutedText(0xA3, 0xA1, 0x94);
inline const QColor disabledText(0x7C, 0x7B, 0x73);
inline const QColor accent(0xE8, 0xA3, 0x3D);
inline const QColor alarm(0xE8, 0x6A, 0x52);
inline const QColor accentText(0x1B, 0x1C, 0x1F);

} // namespace theme

// A property of a box that opens a list: the colour of its arrow.
constexpr const char* arrowColourProperty = "arrowColour";

void applyTheme(QApplication& application);

// For lists and lines whose columns must stand under one another.
QFont fixedPitchFont();

} // namespace tavrel
