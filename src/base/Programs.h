// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

enum class WindowMode { Normal, Maximised };

// Starting other programs, without waiting for them. False when the program could not be started.
class Programs
{
public:
    Programs() = default;
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;
    virtual ~Programs() = default;

    virtual bool start(const std::filesystem::path& program, const std::vector<std::string>& arguments) = 0;
    virtual bool editText(const std::filesystem::path& file, WindowMode mode) = 0;
};

} // namespace tavrel
