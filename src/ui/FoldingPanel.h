// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QAbstractButton;
class QVBoxLayout;

namespace tavrel {

// A group of controls under a title image; a click on the image folds the group away or shows it again.
class FoldingPanel : public QWidget
{
    Q_OBJECT

public:
    // `name` becomes the object name of the title image.
    FoldingPanel(const QString& name, QWidget* parent);

    // Folds and unfolds.
    QAbstractButton& title() const { return *m_title; }
    QVBoxLayout& content() { return *m_content; }
    bool isOpen() const;
    void setOpen(bool open);

Q_SIGNALS:
    void openChanged(bool open);

private:
    QAbstractButton* m_title;
    QWidget* m_body;
    QVBoxLayout* m_content;
};

} // namespace tavrel
