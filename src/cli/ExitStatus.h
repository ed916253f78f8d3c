// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tavrel {

// What scripts see.
enum class ExitStatus {
    Done = 0,
    Refused = 1, // not done: refused before anything changed; or the command's answer is no
    WrongUsage = 2,
    FileFailure = 3,     // a file could not be read or written
    DoneWithMessages = 4 // done, but not with all, or something is left to look at
};

// The graver of two.
constexpr ExitStatus graver(ExitStatus left, ExitStatus right)
{
    const auto gravity = [](ExitStatus status) {
        return status == ExitStatus::DoneWithMessages ? 1 : 2 * static_cast<int>(status);
    };
    return gravity(left) < gravity(right) ? right : left;
}

} // namespace tavrel
