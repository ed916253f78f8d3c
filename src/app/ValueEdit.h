// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ValueBoxes.h"

#include <QLineEdit>

namespace tavrel {

// The edit box of a value. A click selects all, so that typing replaces it; arrows, page keys and the wheel
// step; what does not fit is not typed, and told.
class ValueEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit ValueEdit(ValueBox box);

Q_SIGNALS:
    void stepped(int by);
    void refused();
    // A key that empties the box, in an empty one: its lines may have several values.
    void emptied();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // Whether the box can hold its text with this in the place of what is selected.
    bool takes(const QString& typed) const;

    int m_turned = 0; // of the wheel, less than a step
};

} // namespace tavrel
