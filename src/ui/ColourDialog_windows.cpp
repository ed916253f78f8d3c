// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ColourDialog.h"

#include <QWidget>

#include <windows.h>

#include <algorithm>
#include <commdlg.h>

namespace tavrel {

std::optional<ColourValue> askForColour(QWidget* parent, ColourValue current, KeptColours& kept,
                                        Language /*language*/)
{
    std::array<COLORREF, std::tuple_size_v<KeptColours>> custom{};
    std::ranges::copy(kept, custom.begin());
    CHOOSECOLORW request{};
    request.lStructSize = sizeof(request);
    request.hwndOwner = parent != nullptr ? reinterpret_cast<HWND>(parent->window()->winId()) : nullptr;
    request.rgbResult = static_cast<COLORREF>(current);
    request.lpCustColors = custom.data();
    request.Flags = CC_RGBINIT | CC_FULLOPEN;
    const bool accepted = ChooseColorW(&request) != FALSE;
    std::ranges::transform(custom, kept.begin(),
                           [](COLORREF colour) { return static_cast<ColourValue>(colour); });
    return accepted ? std::optional(static_cast<ColourValue>(request.rgbResult)) : std::nullopt;
}

} // namespace tavrel
