// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Icons.h"

#include "ui/Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <string_view>
#include <system_error>
#include <utility>

namespace tavrel {

namespace {

constexpr double gridSide = 24.0;
constexpr double strokeWidth = 1.75;
constexpr double disabledOpacity = 0.35;

// Paths in the manner of SVG: M, L, H, V, Q, C and Z with absolute coordinates on a 24 x 24 grid,
// and "O x y r" for a circle.
struct Drawing
{
    Glyph glyph;
    std::string_view stroked;
    std::string_view filled = {};
};

// At 16 pixels a grid unit is 2/3 of a pixel: strokes at 0.75 + 1.5 n run through the middle of a pixel and
// fills at 1.5 n end between two. A glyph with a middle stroke is therefore centred on 11.25 and not on 12.
// A filled part must stay clear of the strokes, or the overlap would show in a faded icon.
constexpr auto drawings = std::to_array<Drawing>({
    {Glyph::Accept, "M2.25 11.25 L8.25 17.25 L20.25 5.25"},
    {Glyph::RestoreLine,
     "M8.25 3.75 L3.75 8.25 L8.25 12.75 M3.75 8.25 H14.25 C17.6 8.25 20.25 10.9 20.25 14.25"
     " C20.25 17.6 17.6 20.25 14.25 20.25 H9.75"},
    {Glyph::Apply,
     "M5.25 3.75 H15.75 L20.25 8.25 V18.75 Q20.25 20.25 18.75 20.25 H5.25 Q3.75 20.25 3.75 18.75 V5.25"
     " Q3.75 3.75 5.25 3.75 Z M6.75 20.25 V14.25 H17.25 V20.25 M8.25 3.75 V8.25 H14.25"},
    {Glyph::CopyLine,
     "M9.75 8.25 H18.75 Q20.25 8.25 20.25 9.75 V18.75 Q20.25 20.25 18.75 20.25 H9.75"
     " Q8.25 20.25 8.25 18.75 V9.75 Q8.25 8.25 9.75 8.25 Z M5.25 15.75 Q3.75 15.75 3.75 14.25 V5.25"
     " Q3.75 3.75 5.25 3.75 H14.25 Q15.75 3.75 15.75 5.25"},
    {Glyph::OpenFile,
     "M9.75 21.75 H5.25 Q3.75 21.75 3.75 20.25 V3.75 Q3.75 2.25 5.25 2.25 H12.75 L17.25 6.75 V9.75"
     " M6.75 8.25 H11.25 M6.75 12.75 H11.25",
     "M12 22.5 V19.5 L19.5 12 L22.5 15 L15 22.5 Z"},
    {Glyph::ShowGlobals,
     "M2.25 11.25 Q5.7 5.25 11.25 5.25 Q16.8 5.25 20.25 11.25 Q16.8 17.25 11.25 17.25"
     " Q5.7 17.25 2.25 11.25 Z",
     "O11.25 11.25 2.7"},
    {Glyph::Generate, "M3.75 11.25 V15.75 M8.25 6.75 V20.25 M12.75 11.25 V15.75 M17.25 14.25 V20.25",
     "M17.25 1.5 Q17.7 6.3 22.5 6.75 Q17.7 7.2 17.25 12 Q16.8 7.2 12 6.75 Q16.8 6.3 17.25 1.5 Z"},
    {Glyph::ImportSam, "M2.25 6.75 V9.75 M6.75 2.25 V14.25 M11.25 5.25 V11.25"
                       " M17.25 2.25 V17.25 M14.25 14.25 L17.25 17.25 L20.25 14.25"
                       " M2.25 18.75 V20.25 Q2.25 21.75 3.75 21.75 H20.25 Q21.75 21.75 21.75 20.25 V18.75"},
    {Glyph::ImportWas,
     "M8.25 2.25 L14.25 5.25 V11.25 L8.25 14.25 L2.25 11.25 V5.25 Z M2.25 5.25 L8.25 8.25 L14.25 5.25"
     " M8.25 8.25 V14.25 M18.75 2.25 V17.25 M15.75 14.25 L18.75 17.25 L21.75 14.25"
     " M2.25 18.75 V20.25 Q2.25 21.75 3.75 21.75 H20.25 Q21.75 21.75 21.75 20.25 V18.75"},
    {Glyph::ViewWad, "M2.25 3.75 H20.25 M2.25 8.25 H8.25 M2.25 12.75 H5.25 M2.25 17.25 H6.75 O14.25 14.25 4.5"
                     " M17.7 17.7 L21.75 21.75"},
    {Glyph::Register, "M3.75 11.25 V5.25 Q3.75 3.75 5.25 3.75 H11.25 L20.25 12.75 L12.75 20.25 Z",
     "O8.25 8.25 1.75"},
    {Glyph::Statistics, "M2.25 2.25 V20.25 H21.75",
     "M6 12 H9 V18 H6 Z M10.5 4.5 H13.5 V18 H10.5 Z M15 9 H18 V18 H15 Z"},
    {Glyph::CheckSamples,
     "M3.75 3.75 H8.25 L11.25 6.75 H20.25 Q21.75 6.75 21.75 8.25 V18.75 Q21.75 20.25 20.25 20.25 H3.75"
     " Q2.25 20.25 2.25 18.75 V5.25 Q2.25 3.75 3.75 3.75 Z M8.25 12.75 L11.25 15.75 L15.75 11.25"},
    {Glyph::ImportBackup,
     "M6.75 8.25 H5.25 Q3.75 8.25 3.75 9.75 V18.75 Q3.75 20.25 5.25 20.25 H17.25"
     " Q18.75 20.25 18.75 18.75 V9.75 Q18.75 8.25 17.25 8.25 H15.75 M11.25 2.25 V15.75 M8.25 12.75"
     " L11.25 15.75 L14.25 12.75"},
    {Glyph::ExportBackup,
     "M6.75 8.25 H5.25 Q3.75 8.25 3.75 9.75 V18.75 Q3.75 20.25 5.25 20.25 H17.25"
     " Q18.75 20.25 18.75 18.75 V9.75 Q18.75 8.25 17.25 8.25 H15.75 M11.25 2.25 V15.75 M8.25 5.25"
     " L11.25 2.25 L14.25 5.25"},
    {Glyph::Play, "", "M6 4.5 Q6 3 7.5 3.75 L20.25 11.1 Q21.75 12 20.25 12.9 L7.5 20.25 Q6 21 6 19.5 Z"},
    {Glyph::Stop, "",
     "M6 4.5 H18 Q19.5 4.5 19.5 6 V18 Q19.5 19.5 18 19.5 H6 Q4.5 19.5 4.5 18 V6 Q4.5 4.5 6 4.5 Z"},
    {Glyph::Rename, "M3.75 17.25 V12.75 L12.75 3.75 L17.25 8.25 L8.25 17.25 Z M3.75 21.75 H20.25"},
    {Glyph::AddItem, "M11.25 3.75 V18.75 M3.75 11.25 H18.75"},
    {Glyph::RemoveItem, "M3.75 11.25 H18.75"},
    {Glyph::ChooseFile,
     "M3.75 3.75 H8.25 L11.25 6.75 H20.25 Q21.75 6.75 21.75 8.25 V18.75 Q21.75 20.25 20.25 20.25 H3.75"
     " Q2.25 20.25 2.25 18.75 V5.25 Q2.25 3.75 3.75 3.75 Z"},
    {Glyph::Search, "O9.75 9.75 6 M14.25 14.25 L20.25 20.25"},
    {Glyph::ReplaceLetter,
     "M2.25 6.75 H20.25 M15.75 2.25 L20.25 6.75 L15.75 11.25 M3.75 17.25 H21.75 M8.25 12.75 L3.75 17.25"
     " L8.25 21.75"},
    {Glyph::EraseLetter,
     "M8.25 20.25 L2.25 14.25 L12.75 3.75 L20.25 11.25 L11.25 20.25 M6.75 9.75 L14.25 17.25 M8.25 20.25"
     " H20.25"},
    {Glyph::EraseText,
     "M8.25 3.75 H20.25 Q21.75 3.75 21.75 5.25 V17.25 Q21.75 18.75 20.25 18.75 H8.25 L2.25 11.25 Z"
     " M9.75 7.5 L17.25 15 M17.25 7.5 L9.75 15"},
    {Glyph::ObjectSelection,
     "M11.25 2.25 L20.25 6.75 V17.25 L11.25 21.75 L2.25 17.25 V6.75 Z M2.25 6.75 L11.25 11.25"
     " L20.25 6.75 M11.25 11.25 V21.75"},
    {Glyph::Help,
     "O11.25 11.25 9 M8.25 8.25 V6.75 Q8.25 5.25 9.75 5.25 H12.75 Q14.25 5.25 14.25 6.75 V8.25"
     " L11.25 11.25 V12.75",
     "O11.25 15.75 1.2"},
    {Glyph::Parameters,
     "M2.25 5.25 H11.25 M20.25 5.25 H21.75 M2.25 11.25 H3.75 M12.75 11.25 H21.75 M2.25 17.25 H9.75"
     " M18.75 17.25 H21.75",
     "O15.75 5.25 2.7 O8.25 11.25 2.7 O14.25 17.25 2.7"},
    {Glyph::Colours,
     "M11.25 2.25 C6.3 2.25 2.25 6.3 2.25 11.25 C2.25 16.2 6.3 20.25 11.25 20.25 C13.5 20.25 12.75 17.4 12.75 15.75"
     " C12.75 13.5 14.25 12.75 16.5 12.75 C18.75 12.75 20.25 12 20.25 9.75 C20.25 5.4 16.2 2.25 11.25 2.25 Z",
     "O6.75 10.5 1.5 O9.75 6 1.5 O15 6.75 1.5"},
    {Glyph::ToStart, "M3.75 3.75 H18.75 M11.25 20.25 V8.25 M6.75 12.75 L11.25 8.25 L15.75 12.75"},
    {Glyph::Quit,
     "M9.75 2.25 H5.25 Q3.75 2.25 3.75 3.75 V18.75 Q3.75 20.25 5.25 20.25 H9.75 M9.75 11.25 H20.25"
     " M15.75 6.75 L20.25 11.25 L15.75 15.75"},
    {Glyph::PanelOpen, "M5.25 8.25 L11.25 14.25 L17.25 8.25"},
    {Glyph::PanelClosed, "M8.25 5.25 L14.25 11.25 L8.25 17.25"},
    {Glyph::Close, "M5.25 5.25 L18.75 18.75 M18.75 5.25 L5.25 18.75"},
    {Glyph::Proceed, "O11.25 11.25 9 M11.25 6.75 V15.75 M6.75 11.25 H15.75"},
    {Glyph::Undo, "M3.75 4.5 V11.25 H10.5 M4.5 10.5 C6.5 7.2 9 5.25 12.75 5.25 C17 5.25 20.25 8.6 20.25 12.75"
                  " C20.25 16.9 17 20.25 12.75 20.25"},
    {Glyph::Redo, "M18.75 4.5 V11.25 H12 M18 10.5 C16 7.2 13.5 5.25 9.75 5.25 C5.5 5.25 2.25 8.6 2.25 12.75"
                  " C2.25 16.9 5.5 20.25 9.75 20.25"},
    {Glyph::BackToFile, "M12.75 2.25 H17.25 Q18.75 2.25 18.75 3.75 V18.75 Q18.75 20.25 17.25 20.25 H8.25"
                        " Q6.75 20.25 6.75 18.75 V15.75 M2.25 8.25 H12.75 M6.75 3.75 L2.25 8.25 L6.75 12.75"},
    {Glyph::Minimise, "M5.25 17.25 H17.25"},
    {Glyph::Maximise, "M5.25 5.25 H17.25 V17.25 H5.25 Z"},
    {Glyph::RestoreWindow, "M4.5 8.25 H14.25 V18 H4.5 Z M8.25 8.25 V4.5 H18 V14.25 H14.25"},
    {Glyph::Information, "O11.25 11.25 9 M11.25 11.25 V15.75", "O11.25 7.2 1.2"},
    {Glyph::Exclamation, "M11.25 2.25 L21 19.5 H1.5 Z M11.25 8.25 V12.75", "O11.25 15.9 1.2"},
    {Glyph::Critical, "O11.25 11.25 9 M8.25 8.25 L14.25 14.25 M14.25 8.25 L8.25 14.25"},
});

constexpr bool drawingsFollowGlyphs()
{
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        if (drawings[i].glyph != static_cast<Glyph>(i)) {
            return false;
        }
    }
    return static_cast<Glyph>(drawings.size() - 1) == Glyph::Critical;
}
static_assert(drawingsFollowGlyphs(), "drawings are looked up by the number of their glyph");

// Moves coordinates to the nearest pixel, so that straight edges are sharp at every size.
struct PixelGrid
{
    double pixelsPerUnit;
    double offset; // 0.5 aims at the middle of a pixel, 0 at its edge.

    double snapped(double value) const
    {
        // The tiny addition sends all ties the same way, whatever the rounding of the product.
        return (std::floor(value * pixelsPerUnit - offset + 0.5 + 1e-6) + offset) / pixelsPerUnit;
    }
};

class PathReader
{
public:
    PathReader(std::string_view text, const PixelGrid& grid) : m_text(text), m_grid(grid) {}

    QPainterPath read()
    {
        while (skipBlanks()) {
            const char command = m_text.front();
            m_text.remove_prefix(1);
            addElement(command);
        }
        return m_path;
    }

private:
    bool skipBlanks()
    {
        m_text.remove_prefix(std::min(m_text.find_first_not_of(' '), m_text.size()));
        return !m_text.empty();
    }

    double number()
    {
        skipBlanks();
        double value = 0.0;
        const char* const end = m_text.data() + m_text.size();
        const auto [rest, error] = std::from_chars(m_text.data(), end, value);
        Q_ASSERT(error == std::errc());
        m_text.remove_prefix(static_cast<std::size_t>(rest - m_text.data()));
        return value;
    }

    double coordinate() { return m_grid.snapped(number()); }

    QPointF point()
    {
        const double x = coordinate();
        return {x, coordinate()};
    }

    void addElement(char command)
    {
        const QPointF here = m_path.currentPosition();
        switch (command) {
        case 'M':
            m_path.moveTo(point());
            break;
        case 'L':
            m_path.lineTo(point());
            break;
        case 'H':
            m_path.lineTo(coordinate(), here.y());
            break;
        case 'V':
            m_path.lineTo(here.x(), coordinate());
            break;
        case 'Q': {
            const QPointF control = point();
            m_path.quadTo(control, point());
            break;
        }
        case 'C': {
            const QPointF first = point();
            const QPointF second = point();
            m_path.cubicTo(first, second, point());
            break;
        }
        case 'O':
            addCircle();
            break;
        case 'Z':
            m_path.closeSubpath();
            break;
        default:
            Q_UNREACHABLE();
        }
    }

    void addCircle()
    {
        const double x = number();
        const double y = number();
        const double radius = number();
        const QPointF topLeft(m_grid.snapped(x - radius), m_grid.snapped(y - radius));
        const QPointF bottomRight(m_grid.snapped(x + radius), m_grid.snapped(y + radius));
        m_path.addEllipse(QRectF(topLeft, bottomRight));
    }

    std::string_view m_text;
    PixelGrid m_grid;
    QPainterPath m_path;
};

// Both kinds of icon paint on the 24 x 24 grid; they are told how many device pixels a unit has.
using PaintFunction = std::function<void(QPainter& painter, double pixelsPerUnit, QIcon::Mode mode)>;

class VectorIconEngine final : public QIconEngine
{
public:
    explicit VectorIconEngine(PaintFunction paintFunction) : m_paintFunction(std::move(paintFunction)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        if (side <= 0) {
            return;
        }
        const double scale = side / gridSide;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QPoint whole((rect.width() - side) / 2, (rect.height() - side) / 2); // keeps the pixel grid
        painter->translate(rect.topLeft() + whole);
        painter->scale(scale, scale);
        if (mode == QIcon::Disabled) {
            painter->setOpacity(painter->opacity() * disabledOpacity);
        }
        m_paintFunction(*painter, painter->deviceTransform().m11(), mode);
        painter->restore();
    }

    // The size is in device pixels already.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        if (result.isNull()) {
            return result;
        }
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return result;
    }

    QIconEngine* clone() const override { return new VectorIconEngine(*this); }

private:
    PaintFunction m_paintFunction;
};

void paintGlyph(QPainter& painter, double pixelsPerUnit, const Drawing& drawing, const QColor& colour)
{
    // A stroke of an odd number of pixels is sharp around the middle of a pixel, an even one around an edge.
    const bool odd = std::lround(strokeWidth * pixelsPerUnit) % 2 != 0;
    const PixelGrid strokeGrid = {pixelsPerUnit, odd ? 0.5 : 0.0};
    const QPen pen(colour, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.strokePath(PathReader(drawing.stroked, strokeGrid).read(), pen);
    painter.fillPath(PathReader(drawing.filled, {pixelsPerUnit, 0.0}).read(), colour);
}

// A hash sign that turns into sound bars. All edges lie on whole pixels at 16 pixels.
void paintProgram(QPainter& painter)
{
    const QColor ground(0x2B, 0x2D, 0x31);
    const QColor amber(0xE8, 0xA3, 0x3D);
    const QColor cream(0xFF, 0xFF, 0xDF);
    const auto fill = [&painter](const QRectF& box, double radius, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(box, radius, radius);
    };
    painter.setPen(Qt::NoPen);
    fill({0, 0, 24, 24}, 5, ground);
    for (const double x : {4.5, 9.0}) {
        fill({x, 6, 1.5, 12}, 0.5, amber);
    }
    for (const double y : {9.0, 13.5}) {
        fill({3, y, 9, 1.5}, 0.5, amber);
    }
    fill({13.5, 9, 1.5, 6}, 0.5, cream);
    fill({16.5, 4.5, 1.5, 15}, 0.5, cream);
    fill({19.5, 7.5, 1.5, 9}, 0.5, cream);
}

} // namespace

QIcon glyphIcon(Glyph glyph, const QColor& colour)
{
    const Drawing& drawing = drawings[static_cast<std::size_t>(glyph)];
    return QIcon(
        new VectorIconEngine([&drawing, colour](QPainter& painter, double pixelsPerUnit, QIcon::Mode mode) {
            paintGlyph(painter, pixelsPerUnit, drawing, mode == QIcon::Selected ? theme::accentText : colour);
        }));
}

QIcon programIcon()
{
    return QIcon(new VectorIconEngine([](QPainter& painter, double, QIcon::Mode) { paintProgram(painter); }));
}

} // namespace tavrel
