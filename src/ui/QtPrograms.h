// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Programs.h"

namespace tavrel {

class QtPrograms : public Programs
{
public:
    bool start(const std::filesystem::path& program, const std::vector<std::string>& arguments) override;
    // Notepad on Windows, the system's text editor elsewhere, which decides on its window itself.
    bool editText(const std::filesystem::path& file, WindowMode mode) override;
};

} // namespace tavrel
