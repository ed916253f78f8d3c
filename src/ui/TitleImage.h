// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/DragState.h"

#include <QWidget>

namespace tavrel {

class TitledWindow;

// The picture at the top of a window, by which the user drags it. It shows the window's title.
class TitleImage : public QWidget
{
    Q_OBJECT

public:
    explicit TitleImage(TitledWindow& window);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void moveWindow(DragState::Offset offset);

    TitledWindow& m_window;
    DragState m_drag;
};

} // namespace tavrel
