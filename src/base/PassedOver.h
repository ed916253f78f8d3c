// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// The lines of a file that do not count. Only the first are kept to be named, for a damaged file may have
// millions of them.
class PassedOver
{
public:
    // Lines count from 1.
    void add(std::size_t line, std::string_view content);
    // One notice of them all: the text, then where they stand and what is there.
    void tell(const std::filesystem::path& file, BilingualText text, std::vector<Failure>& notices) const;

private:
    struct Place
    {
        std::size_t line = 0;
        std::string content;
    };

    std::vector<Place> m_named;
    std::size_t m_count = 0;
};

} // namespace tavrel
