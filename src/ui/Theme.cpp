// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Theme.h"

#include "ui/Icons.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>

namespace tavrel {

namespace {

constexpr int textPixels = 12;

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, theme::window);
    palette.setColor(QPalette::WindowText, theme::text);
    palette.setColor(QPalette::Base, QColor(0x1F, 0x21, 0x24));
    palette.setColor(QPalette::AlternateBase, theme::panel);
    palette.setColor(QPalette::Text, theme::text);
    palette.setColor(QPalette::PlaceholderText, theme::mutedText);
    palette.setColor(QPalette::Button, QColor(0x3A, 0x3E, 0x45));
    palette.setColor(QPalette::ButtonText, theme::text);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDF));
    palette.setColor(QPalette::ToolTipText, theme::accentText);
    palette.setColor(QPalette::Highlight, theme::accent);
    palette.setColor(QPalette::HighlightedText, theme::accentText);
    palette.setColor(QPalette::Link, theme::accent);
    palette.setColor(QPalette::LinkVisited, theme::accent.darker(115));
    palette.setColor(QPalette::BrightText, QColor(0xFF, 0xFF, 0xFF));
    // Of edges, from light to dark; the style's own are those of a light window.
    palette.setColor(QPalette::Light, QColor(0x54, 0x59, 0x62));
    palette.setColor(QPalette::Midlight, QColor(0x47, 0x4C, 0x55));
    palette.setColor(QPalette::Mid, QColor(0x30, 0x33, 0x38));
    palette.setColor(QPalette::Dark, theme::edge);
    palette.setColor(QPalette::Shadow, QColor(0x0E, 0x0F, 0x10));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::HighlightedText, QPalette::PlaceholderText}) {
        palette.setColor(QPalette::Disabled, role, theme::disabledText);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x3A, 0x3E, 0x45));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x2A, 0x2D, 0x31));
    return palette;
}

// Fusion's boxes and options drown in a dark window.
class TavrelStyle : public QProxyStyle
{
public:
    TavrelStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) {
            drawIndicator(element == PE_IndicatorRadioButton, *option, *painter);
        } else if (element == PE_IndicatorArrowDown) {
            const bool enabled = option->state.testFlag(State_Enabled);
            drawArrow(enabled ? theme::text : theme::disabledText, option->rect, *painter);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) {
            return 0; // a light copy below would make them the brightest of all
        }
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) {
            return 0; // coloured ones of the toolkit, in its dialogs for files and colours
        }
        // A list under the box; a menu would take the box's own colours.
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    static void drawArrow(const QColor& colour, const QRect& area, QPainter& painter)
    {
        constexpr int side = 14;
        QRect box(0, 0, side, side);
        box.moveCenter(area.center());
        glyphIcon(Glyph::PanelOpen, colour).paint(&painter, box);
    }
    static void drawIndicator(bool isRound, const QStyleOption& option, QPainter& painter)
    {
        const bool enabled = option.state.testFlag(State_Enabled);
        const bool focused = option.state.testFlag(State_HasFocus) || option.state.testFlag(State_MouseOver);
        const QColor frame = !enabled ? QColor(0x4A, 0x4E, 0x56) : focused ? theme::accent : theme::mutedText;
        const QColor mark = enabled ? theme::accent : QColor(0x7C, 0x7B, 0x73);
        const int side = std::min(option.rect.width(), option.rect.height());
        QRectF box(0, 0, side, side);
        box.moveCenter(QRectF(option.rect).center());
        box.adjust(0.5, 0.5, -0.5, -0.5);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(frame);
        painter.setBrush(QColor(0x1F, 0x21, 0x24));
        const qreal corner = isRound ? box.width() / 2 : 2.5;
        painter.drawRoundedRect(box, corner, corner);
        if (option.state.testFlag(State_NoChange)) { // neither on nor off for all
            const qreal bar = box.height() / 4;
            painter.fillRect(box.adjusted(bar, 1.5 * bar, -bar, -1.5 * bar), mark);
        } else if (option.state.testFlag(State_On)) {
            if (isRound) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(mark);
                painter.drawEllipse(box.center(), box.width() / 4, box.width() / 4);
            } else {
                glyphIcon(Glyph::Accept, mark).paint(&painter, box.toAlignedRect());
            }
        }
        painter.restore();
    }
};

// Colours of the lists come from the user's scheme by palette, so their background is not set here.
constexpr const char* styleSheet = R"(
QToolTip { background: #FFFFDF; color: #1B1C1F; border: 1px solid #17181B; padding: 2px 4px; }

QPushButton {
    background: #3A3E45; color: #EEECDA; border: 1px solid #17181B; border-radius: 4px; padding: 3px 8px;
}
QPushButton:hover { background: #474C55; }
QPushButton:pressed { background: #2A2D32; }
QPushButton:focus, QPushButton:default { border-color: #E8A33D; }
QPushButton:disabled { background: #303338; color: #7C7B73; border-color: #232529; }
QPushButton[attention="true"] { background: #5A4522; border-color: #E8A33D; }
QPushButton[attention="true"]:hover { background: #6B5328; }
QPushButton[row="true"] { text-align: left; padding: 3px 6px; }
QPushButton[iconOnly="true"] { padding: 3px; min-width: 22px; }
QPushButton[frameless="true"] { background: transparent; border: 1px solid transparent; }
QPushButton[frameless="true"]:hover { background: #474C55; }
QPushButton[frameless="true"]:focus { border-color: #E8A33D; }

QToolButton {
    background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 3px 16px 3px 4px;
}
QToolButton:hover { background: #474C55; }
QToolButton:focus { border-color: #E8A33D; }
QToolButton::menu-button { border: none; width: 14px; }
QToolButton[popupMode="2"] { padding: 3px 14px 3px 8px; }
QToolButton#CdColumns { padding: 3px 4px; }
QToolButton#CdColumns::menu-indicator { image: none; width: 0; }
QToolButton:disabled { color: #7C7B73; }
QMenu { background: #2B2E33; color: #EEECDA; border: 1px solid #17181B; }
QMenu::item { padding: 3px 12px; }
QMenu::item:selected { background: #E8A33D; color: #1B1C1F; }
QMenu::item:disabled { color: #7C7B73; }
QMenu::separator { background: #4A4E56; height: 1px; margin: 3px 6px; }

QLineEdit {
    background: #1F2124; color: #EEECDA; border: 1px solid #17181B; border-radius: 3px; padding: 2px 4px;
    selection-background-color: #E8A33D; selection-color: #1B1C1F;
}
QLineEdit:focus { border-color: #E8A33D; }
QLineEdit[wrong="true"] { border: 2px solid #E86A52; padding: 1px 3px; }
QLineEdit[attention="true"], QComboBox[attention="true"] { background: #5A4522; }
QLineEdit:read-only { background: #2A2D31; }
QLineEdit:disabled { background: #2A2D31; color: #7C7B73; border-color: #232529; }

QListView, QTreeView, QPlainTextEdit { border: 1px solid #17181B; border-radius: 3px; outline: none; }
QListView:focus, QTreeView:focus, QPlainTextEdit:focus { border-color: #E8A33D; }
QListWidget::item, QListWidget::item:selected { padding: 1px 3px; border: none; }
QListWidget::item:selected { background: #E8A33D; color: #1B1C1F; }

QTreeView::item { padding: 2px 3px; border: none; }
QTreeView::item:selected { background: #E8A33D; color: #1B1C1F; }
QHeaderView { background: #2E3136; border: none; }
QHeaderView::section {
    background: #2E3136; color: #A3A194; border: none; border-right: 1px solid #26282C; padding: 3px 6px;
}
QHeaderView::section:hover { color: #EEECDA; }

QComboBox {
    background: #3A3E45; color: #EEECDA; border: 1px solid #17181B; border-radius: 3px; padding: 2px 6px;
}
QComboBox::drop-down { border: none; width: 22px; }
QComboBox:focus { border-color: #E8A33D; }
QComboBox:disabled { background: #303338; color: #7C7B73; border-color: #232529; }
QComboBox QAbstractItemView::item:selected { background: #E8A33D; color: #1B1C1F; }
QComboBox QAbstractItemView {
    background: #1F2124; color: #EEECDA; border: 1px solid #17181B; outline: none;
    selection-background-color: #E8A33D; selection-color: #1B1C1F;
}

QScrollBar:vertical { background: #232529; width: 12px; margin: 0; }
QScrollBar:horizontal { background: #232529; height: 8px; margin: 0; }
QScrollBar::handle { background: #6A707B; border-radius: 3px; margin: 2px; min-width: 24px; min-height: 24px; }
QScrollBar::handle:hover { background: #858B96; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }

QLabel[muted="true"] { color: #A3A194; }
QLabel[heading="true"] { color: #E8A33D; }
QLabel[paper="calm"], QLabel[paper="alarm"] { background: #E6E3D2; border-radius: 3px; padding: 2px 6px; }
QLabel[paper="calm"] { color: #404040; }
QLabel[paper="alarm"] { color: #C00000; }

QWidget#PnWad QLineEdit:read-only { background: #F6F4E8; border-color: #17181B; }
QWidget#PnWad QComboBox { background: #08090A; }

QProgressBar { background: #1F2124; border: 1px solid #17181B; border-radius: 3px; }
QProgressBar::chunk { background: #E8A33D; border-radius: 2px; }
)";

} // namespace

void applyTheme(QApplication& application)
{
    QApplication::setStyle(new TavrelStyle);
    QApplication::setPalette(darkPalette());
    QFont font = QApplication::font();
    font.setPixelSize(textPixels);
    QApplication::setFont(font);
    application.setStyleSheet(styleSheet);
}

QFont fixedPitchFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
#ifdef Q_OS_WIN
    // The system's own, Courier New, is too thin on a dark ground.
    font.setFamilies({"Consolas", font.family()});
#endif
    font.setPixelSize(textPixels);
    return font;
}

} // namespace tavrel
