// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Finding.h"

#include "references/LineLetters.h"

#include <algorithm>

namespace tavrel {

std::string_view nameOf(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return {};
}

const std::string& LineDraft::line(std::size_t sound) const
{
    const auto found = m_lines.find(sound);
    return found == m_lines.end() ? m_catalogue.currentLine(sound) : found->second;
}

std::vector<SoundCatalogue::LineChange> LineDraft::changes() const
{
    std::vector<SoundCatalogue::LineChange> changes;
    for (const auto& [sound, text] : m_lines) {
        if (text != m_catalogue.currentLine(sound)) {
            changes.push_back({sound, text});
        }
    }
    return changes;
}

bool concernsWad(const Finding& finding, const SoundCatalogue& catalogue, const CurrentWad& wad)
{
    if (!finding.wadName.empty()) {
        return finding.wadName == wad.wadName;
    }
    if (finding.sounds.empty()) {
        return finding.check != "sample-unused"; // which is no level's
    }
    const bool isOfFile = finding.check == "line-shifted" || finding.check == "colon-comment";
    return isOfFile || std::ranges::any_of(finding.sounds, [&](std::size_t sound) {
               return belongsToLevel(catalogue.currentLine(sound), wad.letter);
           });
}

std::vector<SoundCatalogue::LineChange> changesOf(const std::vector<const Finding*>& findings,
                                                  const SoundCatalogue& catalogue)
{
    LineDraft draft(catalogue);
    for (const Finding* const finding : findings) {
        if (const auto* const fix = finding->fix ? std::get_if<LineFix>(&finding->fix->action) : nullptr) {
            (*fix)(draft);
        }
    }
    return draft.changes();
}

std::vector<LineReadOtherwise> linesToReadOtherwise(const std::vector<const Finding*>& findings)
{
    std::vector<LineReadOtherwise> lines;
    for (const Finding* const finding : findings) {
        if (const auto* const line =
                finding->fix ? std::get_if<LineReadOtherwise>(&finding->fix->action) : nullptr) {
            lines.push_back(*line);
        }
    }
    return lines;
}

} // namespace tavrel
