// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LocalTime.h"

#include <array>
#include <ctime>

namespace tavrel {

std::string localTimeText(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const std::tm* const parts = std::localtime(&seconds);
    constexpr std::size_t longest = 64; // of years that only a damaged disk has
    std::array<char, longest> text{};
    return parts == nullptr ? std::string()
                            : std::string(text.data(), std::strftime(text.data(), text.size(),
                                                                     "%Y-%m-%d %H:%M:%S", parts));
}

} // namespace tavrel
