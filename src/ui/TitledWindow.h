// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <optional>

class QHBoxLayout;
class QVBoxLayout;

namespace tavrel {

// What windows remember of themselves until the next time.
class WindowMemory
{
public:
    WindowMemory() = default;
    WindowMemory(const WindowMemory&) = delete;
    WindowMemory& operator=(const WindowMemory&) = delete;
    virtual ~WindowMemory() = default;

    // By the window's object name.
    virtual std::optional<QSize> sizeOf(const QString& window) const = 0;
    virtual void keepSize(const QString& window, QSize size) = 0;
};

// What the help is asked about: the title of a window or message, or a chapter.
struct HelpTopic
{
    QString title = {};
    bool isMessage = false;
};

// A window without the system's title bar: a title image to drag it by, and the keyboard to move it
// (Shift+Alt and an arrow key), to close it (Alt+F4, Esc in secondary windows) and to open the help (F1).
class TitledWindow : public QDialog
{
    Q_OBJECT

public:
    explicit TitledWindow(QWidget* parent = nullptr);

    // Brings the window back when its title has left every screen.
    void moveIntoReach();
    // Of a window that offers it.
    void toggleMaximised();
    // Windows that can be sized remember how large they were.
    void setVisible(bool visible) override;

protected:
    // The system's commands for sizing the window, and a double click on its title.
    void offerMaximising();
    // Secondary windows ask the one that opened them. None is null.
    virtual WindowMemory* memory();
    virtual HelpTopic helpTopic() const;
    // Secondary windows ask the one that opened them.
    virtual void showHelp(const HelpTopic& topic);

    // Beside the title image.
    QHBoxLayout& titleRow() { return *m_titleRow; }
    // Below it.
    QVBoxLayout& content() { return *m_content; }

    void paintEvent(QPaintEvent* event) override;
    // Beside the image and the controls of the title row, the system moves the window, and snaps it where it
    // knows how.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    // Enter presses the button that has the focus.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addMoveShortcut(Qt::Key arrow, QPoint step);
    bool isOnTitleRow(QPointF position) const;
    void rememberSize();

    QWidget* m_titleImage;
    QHBoxLayout* m_titleRow;
    QVBoxLayout* m_content;
    bool m_mayMaximise = false;
    bool m_sized = false; // as it was the last time
};

} // namespace tavrel
