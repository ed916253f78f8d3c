// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace tavrel {

struct EmbeddedFile
{
    std::string_view name;
    std::string_view bytes;
};

std::span<const EmbeddedFile> embeddedFiles();

} // namespace tavrel
