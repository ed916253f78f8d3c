// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RecoverCommands.h"

#include <algorithm>
#include <map>

namespace tavrel {

namespace {

// The sounds as they are numbered now, each with the number and the line that it had in the file.
struct FollowedLine
{
    std::optional<std::string> before;
    std::string after;
};

// Follows lines whose number is not moved; a step that moves lines is told by its own lines.
void follow(std::map<std::size_t, FollowedLine>& followed, std::vector<RecoveredLine>& moved,
            const HistoryTrack::Move& move)
{
    const auto take = [&](const LineDelta& delta) {
        const std::string& from = move.forward ? delta.before : delta.after;
        const std::string& to = move.forward ? delta.after : delta.before;
        if (delta.kind != LineDelta::Kind::Changed) {
            moved.push_back({std::nullopt, from, to});
            return;
        }
        FollowedLine& line = followed[delta.number];
        if (!line.before) {
            line.before = from;
        }
        line.after = to;
    };
    if (move.forward) {
        std::ranges::for_each(move.step->lines, take);
    } else {
        std::for_each(move.step->lines.rbegin(), move.step->lines.rend(), take);
    }
}

std::optional<std::size_t> onlyLineWith(const SoundCatalogue& catalogue, const std::string& text)
{
    std::optional<std::size_t> found;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        if (catalogue.currentLine(k) == text) {
            if (found) {
                return std::nullopt;
            }
            found = k;
        }
    }
    return found;
}

bool standsAt(const SoundCatalogue& catalogue, const std::optional<std::size_t>& number,
              const std::string& text)
{
    return number && *number < catalogue.size() && catalogue.currentLine(*number) == text;
}

Recovered recoverByText(Session& session, const std::vector<RecoveredLine>& lines)
{
    Recovered result;
    std::vector<SoundCatalogue::LineChange> changes;
    const SoundCatalogue& catalogue = session.catalogue();
    for (const RecoveredLine& line : lines) {
        if (!line.after.empty() &&
            (standsAt(catalogue, line.number, line.after) || onlyLineWith(catalogue, line.after))) {
            ++result.lines;
            continue;
        }
        const std::optional<std::size_t> place = standsAt(catalogue, line.number, line.before)
                                                     ? line.number
                                                     : onlyLineWith(catalogue, line.before);
        if (!place || line.before.empty() || !SoundCatalogue::accepts(line.after)) {
            result.missed.push_back(line);
            continue;
        }
        changes.push_back({*place, line.after});
        ++result.lines;
    }
    const Step step(session.catalogue(), {"Recovered", "Récupération"});
    if (session.catalogue().setCurrentLines(std::move(changes))) {
        return {0, lines}; // each of them was accepted above
    }
    return result;
}

} // namespace

std::vector<RecoveredLine> netChanges(const HistoryTrack& track)
{
    std::map<std::size_t, FollowedLine> followed;
    std::vector<RecoveredLine> lines;
    for (const HistoryTrack::Move& move : track.wayFromSaved()) {
        follow(followed, lines, move);
    }
    std::vector<RecoveredLine> result;
    for (auto& [number, line] : followed) {
        if (line.before != line.after) {
            result.push_back({number, *line.before, std::move(line.after)});
        }
    }
    result.insert(result.end(), lines.begin(), lines.end());
    return result;
}

bool isOfThisFile(const RecoveryHeader& header, const Session& session)
{
    return header.sounds == session.catalogue().file().path;
}

bool isApplied(const RecoveryContent& content, const Session& session)
{
    const std::vector<RecoveredLine> lines = netChanges(content.track);
    return !content.values && isOfThisFile(content.header, session) &&
           std::ranges::all_of(lines, [&](const RecoveredLine& line) {
               return !line.after.empty() && standsAt(session.catalogue(), line.number, line.after);
           });
}

Recovered recover(Session& session, const RecoveryContent& content)
{
    const FileStamp& stamp = session.catalogue().file().stamp;
    const std::vector<RecoveredLine> lines = netChanges(content.track);
    const bool isSameFile = content.header.size == stamp.size && content.header.hash == stamp.hash;
    if (isSameFile && !session.pending() && session.adopt(content.track)) {
        return {lines.size(), {}};
    }
    return recoverByText(session, lines);
}

std::vector<Failure> discardRecovered(Session& session, const RecoveryContent& content)
{
    return session.discardReferencesOf(content.track);
}

} // namespace tavrel
