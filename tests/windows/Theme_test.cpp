// SPDX-License-Identifier: GPL-3.0-or-later
// Whether every pair of colours can be told apart: texts by 4.5, what else says something by 3. What is
// greyed may be fainter, and so may edges that only divide.
#include "ui/Colours.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace tavrel;

namespace {

constexpr double forText = 4.5;
constexpr double forMarks = 3.0;

void expectContrast(const QColor& ink, const QColor& ground, double least, const QString& where)
{
    EXPECT_GE(contrastOf({colourValue(ground), colourValue(ink)}), least)
        << where.toStdString() << ": " << ink.name().toStdString() << " on " << ground.name().toStdString();
}

// One rule of the style sheet.
struct Rule
{
    QString selector;
    QString body;

    // The colour that a property ends in; invalid when it is not there.
    QColor colour(const QString& property) const
    {
        const QRegularExpression wanted("(?:^|[\\s;])" + property + ":[^;]*(#[0-9A-Fa-f]{6})");
        return QColor::fromString(wanted.match(body).captured(1));
    }
};

std::vector<Rule> rules()
{
    std::vector<Rule> found;
    const QRegularExpression rule("([^{}]+)\\{([^{}]*)\\}");
    for (const QRegularExpressionMatch& match : rule.globalMatch(qApp->styleSheet())) {
        if (!match.captured(1).contains(":disabled")) {
            found.push_back({match.captured(1).trimmed(), match.captured(2)});
        }
    }
    return found;
}

// Rules whose ground and text come from two rules are looked at one by one.
bool isWhole(const Rule& rule)
{
    static const QRegularExpression bare("::(separator|handle|chunk)|QScrollBar|QProgressBar|paper|PnWad");
    return !rule.selector.contains(bare);
}

QColor colourIn(const QString& selector, const QString& property)
{
    for (const Rule& rule : rules()) {
        if (rule.selector == selector) {
            return rule.colour(property);
        }
    }
    ADD_FAILURE() << "no rule " << selector.toStdString();
    return {};
}

} // namespace

TEST(Theme, TheStyleSheetIsReadable)
{
    EXPECT_GT(rules().size(), 40U);
    const QRegularExpression state(":focus|:default|attention|wrong");
    for (const Rule& rule : rules()) {
        const QColor ground = rule.colour("background");
        const QColor ink = rule.colour("color");
        if (isWhole(rule) && (ground.isValid() || ink.isValid())) {
            for (const QColor& behind :
                 ground.isValid() ? QList{ground} : QList{theme::window, theme::panel}) {
                expectContrast(ink.isValid() ? ink : theme::text, behind, forText, rule.selector);
            }
        }
        const QColor frame = rule.colour("border(?:-color)?");
        if (rule.selector.contains(state) && frame.isValid()) {
            expectContrast(frame, theme::window, forMarks, rule.selector);
            expectContrast(frame, theme::panel, forMarks, rule.selector);
        }
    }
    const QColor paper = colourIn("QLabel[paper=\"calm\"], QLabel[paper=\"alarm\"]", "background");
    for (const char* const selector : {"QLabel[paper=\"calm\"]", "QLabel[paper=\"alarm\"]"}) {
        expectContrast(colourIn(selector, "color"), paper, forText, selector);
    }
    for (const char* const handle : {"QScrollBar::handle", "QScrollBar::handle:hover"}) {
        expectContrast(colourIn(handle, "background"), colourIn("QScrollBar:vertical", "background"),
                       forMarks, handle);
    }
    expectContrast(colourIn("QProgressBar::chunk", "background"), colourIn("QProgressBar", "background"),
                   forMarks, "QProgressBar");
}

// Its colours are given, and the grounds are chosen for them.
TEST(Theme, TheWadPanelIsReadable)
{
    const QColor box = colourIn("QWidget#PnWad QComboBox", "background");
    expectContrast(theme::text, box, forText, "the chooser's text");
    expectContrast(colourFrom(33023), box, forMarks, "the chooser's frame and arrow");
    expectContrast(colourFrom(192), box, forMarks, "its reminder");
    expectContrast(colourFrom(16576), colourIn("QWidget#PnWad QLineEdit:read-only", "background"), forText,
                   "the WAD's texts");
}

TEST(Theme, ThePaletteIsReadable)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {
        {QPalette::WindowText, QPalette::Window},  {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase}, {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},  {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::BrightText, QPalette::Window},  {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Window},        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Window}, {QPalette::LinkVisited, QPalette::Base},
    };
    const QPalette palette = QApplication::palette();
    for (const auto& [text, ground] : texts) {
        expectContrast(palette.color(text), palette.color(ground), forText, QString("role %1").arg(text));
    }
}

// What the lists add to the colours that the user chooses, with those that nobody has changed and with a
// light pair.
TEST(Theme, MarksInListsAreReadable)
{
    const ColourScheme scheme;
    std::vector<ColourPair> pairs(scheme.slots.begin(), scheme.slots.end());
    pairs.push_back({0xFFFFFF, 0x000000});
    for (const ColourPair& pair : pairs) {
        const QColor ground = colourFrom(pair.back);
        const QString where = ground.name();
        expectContrast(colourFrom(pair.text), ground, forText, "text on " + where);
        expectContrast(markColour(pair), ground, forText, "mark on " + where);
        expectContrast(mutedColour(pair), ground, forText, "muted on " + where);
        expectContrast(alarmColour(pair), ground, forMarks, "alarm on " + where);
    }
    expectContrast(theme::accentText, theme::accent, forText, "what is selected");
    for (const QColor& ground : {theme::window, theme::panel}) {
        expectContrast(theme::alarm, ground, forMarks, "icon of an error");
        expectContrast(theme::accent, ground, forText, "heading");
        expectContrast(theme::mutedText, ground, forText, "muted text");
    }
}
