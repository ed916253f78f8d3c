// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace tavrel {

// The drag of a window by its title image. Positions are within the image, in whole units; a half goes to the
// even neighbour.
class DragState
{
public:
    struct Offset
    {
        std::int32_t x;
        std::int32_t y;
    };

    void begin(double x, double y);
    void end();
    // How far the window has to move; nothing while no drag is under way. The grip point stays as it was: the
    // image moves with the window, so each move brings only the new offset.
    std::optional<Offset> moveTo(double x, double y) const;

private:
    static constexpr std::int32_t noDrag = -9999;

    std::int32_t m_x = noDrag;
    std::int32_t m_y = noDrag;
};

} // namespace tavrel
