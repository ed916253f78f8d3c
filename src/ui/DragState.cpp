// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/DragState.h"

#include <cmath>
#include <limits>

namespace tavrel {

namespace {

bool fits(std::int64_t value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return value >= Limits::min() && value <= Limits::max();
}

std::int64_t rounded(double value)
{
    return std::llrint(value); // to nearest, a half to even
}

} // namespace

void DragState::begin(double x, double y)
{
    if (fits(rounded(x)) && fits(rounded(y))) {
        m_x = static_cast<std::int32_t>(rounded(x));
        m_y = static_cast<std::int32_t>(rounded(y));
    }
}

void DragState::end()
{
    m_x = noDrag;
    m_y = noDrag;
}

std::optional<DragState::Offset> DragState::moveTo(double x, double y) const
{
    if (m_x == noDrag) {
        return std::nullopt;
    }
    const std::int64_t dx = rounded(x) - m_x;
    const std::int64_t dy = rounded(y) - m_y;
    if (!fits(dx) || !fits(dy)) {
        return std::nullopt;
    }
    return Offset{static_cast<std::int32_t>(dx), static_cast<std::int32_t>(dy)};
}

} // namespace tavrel
