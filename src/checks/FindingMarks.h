// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "checks/Checks.h"

#include <map>
#include <string>

namespace tavrel {

// Beside a sound or a sample in a list: the gravest of what was found there, and all of it in words.
struct FindingMark
{
    Severity severity = Severity::Warning;
    BilingualText text; // a line for each finding
};

// Errors and warnings of a report, by what they are about. Notes mark nothing.
struct FindingMarks
{
    std::map<std::size_t, FindingMark> sounds;
    std::map<std::string, FindingMark> samples; // in capitals, without their ending

    // By its name on a line. None is null.
    const FindingMark* ofSample(std::string_view name) const;
};
FindingMarks marksOf(const CheckReport& report);

} // namespace tavrel
