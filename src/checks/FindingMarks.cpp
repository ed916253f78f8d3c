// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/FindingMarks.h"

#include "base/CodePage.h"

namespace tavrel {

namespace {

// A sample is named with its ending in a finding, and without it on a line.
std::string keyOf(std::string_view sample)
{
    constexpr std::string_view ending = ".wav";
    const bool hasEnding =
        sample.size() > ending.size() && sameName(sample.substr(sample.size() - ending.size()), ending);
    return upperCase(hasEnding ? sample.substr(0, sample.size() - ending.size()) : sample);
}

void add(FindingMark& mark, const Finding& finding)
{
    if (mark.text.empty()) {
        mark = {finding.severity, finding.text};
        return;
    }
    mark.severity = std::min(mark.severity, finding.severity);
    if (mark.text.english.find(finding.text.english) == std::string::npos) {
        mark.text = mark.text + BilingualText::same("\n") + finding.text;
    }
}

} // namespace

const FindingMark* FindingMarks::ofSample(std::string_view name) const
{
    const auto found = samples.find(keyOf(name));
    return found == samples.end() ? nullptr : &found->second;
}

FindingMarks marksOf(const CheckReport& report)
{
    FindingMarks marks;
    for (const Finding& finding : report.findings) {
        if (finding.severity == Severity::Note) {
            continue;
        }
        for (const std::size_t sound : finding.sounds) {
            add(marks.sounds[sound], finding);
        }
        if (finding.check.starts_with("sample-") && !finding.file.empty()) {
            add(marks.samples[keyOf(finding.file)], finding);
        }
    }
    return marks;
}

} // namespace tavrel
