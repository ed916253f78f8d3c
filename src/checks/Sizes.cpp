// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Sizes.h"

namespace tavrel {

BilingualText shownSize(std::uintmax_t bytes)
{
    constexpr std::uintmax_t unit = 1024;
    if (bytes < unit) {
        const std::string count = std::to_string(bytes);
        return bytes == 1 ? BilingualText("1 byte", "1 octet")
                          : BilingualText(count + " bytes", count + " octets");
    }
    const bool isLarge = bytes >= unit * unit;
    const std::uintmax_t divisor = isLarge ? unit * unit : unit;
    const std::uintmax_t tenths = (bytes * 10 + divisor / 2) / divisor;
    const std::string whole = std::to_string(tenths / 10);
    const std::string tenth = std::to_string(tenths % 10);
    return BilingualText(whole + "." + tenth, whole + "," + tenth) +
           (isLarge ? BilingualText(" MB", " Mo") : BilingualText(" KB", " Ko"));
}

} // namespace tavrel
