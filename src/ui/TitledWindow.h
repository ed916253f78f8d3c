// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QHBoxLayout;
class QVBoxLayout;

namespace tavrel {

// A window without the system's title bar: a title image to drag it by, and the keyboard to move it
// (Shift+Alt and an arrow key), to close it (Alt+F4, Esc in secondary windows) and to open the help (F1).
class TitledWindow : public QDialog
{
    Q_OBJECT

public:
    explicit TitledWindow(QWidget* parent = nullptr);

    // Brings the window back when its title has left every screen.
    void moveIntoReach();

protected:
    // Secondary windows ask the one that opened them.
    virtual void showHelp();

    // Beside the title image.
    QHBoxLayout& titleRow() { return *m_titleRow; }
    // Below it.
    QVBoxLayout& content() { return *m_content; }

    void paintEvent(QPaintEvent* event) override;
    // Enter presses the button that has the focus.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addMoveShortcut(Qt::Key arrow, QPoint step);

    QWidget* m_titleImage;
    QHBoxLayout* m_titleRow;
    QVBoxLayout* m_content;
};

} // namespace tavrel
