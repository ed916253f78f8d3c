// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tavrel {

// What scripts see.
enum class ExitStatus {
    Done = 0,
    Refused = 1, // the command's own no: wrong samples, a refusal, a question that was not agreed to
    WrongUsage = 2,
    FileFailure = 3 // a file could not be read or written
};

} // namespace tavrel
