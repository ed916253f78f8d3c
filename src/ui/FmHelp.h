// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "ui/TitledWindow.h"

#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace tavrel {

// The help of the display language: the text as it is, a list of its headings beside it, and a search.
class FmHelp : public TitledWindow
{
    Q_OBJECT

public:
    // A line of the text with its depth: 0 for a chapter.
    struct Heading
    {
        QString title;
        int line = 0;
        int depth = 0;
    };

    FmHelp(QWidget* parent, const std::string& text, const std::vector<Heading>& headings,
           const ColourScheme& colours, Language language);

    // Opens there.
    void showLine(int line);

protected:
    // A click beside the text closes the window, too.
    void mousePressEvent(QMouseEvent* event) override;
    void showHelp(const HelpTopic& /*topic*/) override {}
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void fillContents(const std::vector<Heading>& headings);
    void showCaptions();
    void search();
    void say(const BilingualText& text);

    Language m_language;
    QTreeWidget* m_contents;
    QPlainTextEdit* m_view;
    QLineEdit* m_wanted;
    QPushButton* m_search;
    QLabel* m_said;
    QPushButton* m_close;
    int m_line = 0; // on top when the window opens
};

} // namespace tavrel
