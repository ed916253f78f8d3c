// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/HistoryTrack.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tavrel {

namespace {

// The last of the steps that changed lines; 0 for none.
std::uint64_t lastThatChangesLines(std::span<const HistoryStep> steps)
{
    const auto found = std::find_if(steps.rbegin(), steps.rend(),
                                    [](const HistoryStep& step) { return step.changesLines(); });
    return found == steps.rend() ? 0 : found->id;
}

std::span<const HistoryStep> before(const std::vector<HistoryStep>& steps, std::size_t position)
{
    return std::span(steps).first(position);
}

} // namespace

bool HistoryStep::movesLines() const
{
    return std::ranges::any_of(lines,
                               [](const LineDelta& delta) { return delta.kind != LineDelta::Kind::Changed; });
}

std::vector<std::size_t> HistoryStep::numbers() const
{
    std::vector<std::size_t> result;
    result.reserve(lines.size());
    std::ranges::transform(lines, std::back_inserter(result), &LineDelta::number);
    std::ranges::sort(result);
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

std::optional<std::size_t> HistoryStep::firstNumber() const
{
    const auto first = std::ranges::min_element(lines, {}, &LineDelta::number);
    return first == lines.end() ? std::nullopt : std::optional(first->number);
}

void HistoryTrack::append(HistoryStep step)
{
    const auto undone = steps.begin() + static_cast<std::ptrdiff_t>(position);
    if (position < savedPosition) {
        cutOff.insert(cutOff.begin(), undone, steps.begin() + static_cast<std::ptrdiff_t>(savedPosition));
        savedPosition = position;
    }
    steps.erase(undone, steps.end());
    steps.push_back(std::move(step));
    position = steps.size();
}

void HistoryTrack::markSaved()
{
    savedPosition = position;
    cutOff.clear();
    differsFromStart = false;
}

bool HistoryTrack::pending() const
{
    const std::uint64_t cut = lastThatChangesLines(cutOff);
    const std::uint64_t saved = cut != 0 ? cut : lastThatChangesLines(before(steps, savedPosition));
    return differsFromStart || lastThatChangesLines(before(steps, position)) != saved;
}

std::vector<HistoryTrack::Move> HistoryTrack::wayFromSaved() const
{
    std::vector<Move> moves;
    for (std::size_t i = cutOff.size(); i > 0; --i) {
        moves.push_back({&cutOff[i - 1], false});
    }
    for (std::size_t i = savedPosition; i > position; --i) {
        moves.push_back({&steps[i - 1], false});
    }
    for (std::size_t i = savedPosition; i < position; ++i) {
        moves.push_back({&steps[i], true});
    }
    return moves;
}

std::vector<HistoryTrack::Move> HistoryTrack::wayToSaved() const
{
    std::vector<Move> moves = wayFromSaved();
    std::ranges::reverse(moves);
    for (Move& move : moves) {
        move.forward = !move.forward;
    }
    return moves;
}

} // namespace tavrel
