// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/Step.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace tavrel {

// One of the user's references that became another, that came, or that went.
struct ReferenceDelta
{
    std::size_t index = 0; // among the user's own
    std::optional<WadReference> before;
    std::optional<WadReference> after;

    friend bool operator==(const ReferenceDelta&, const ReferenceDelta&) = default;
};

// What a command did, with all that it takes to undo it and to do it again.
struct HistoryStep
{
    std::uint64_t id = 0; // above 0; not used twice between two loads
    BilingualText label;
    std::chrono::sys_seconds time;
    std::vector<LineDelta> lines; // in the order in which they were changed
    std::vector<ReferenceDelta> references;
    std::optional<std::pair<CurrentWad, CurrentWad>> wad; // before and after

    bool changesLines() const { return !lines.empty(); }
    bool changesRegister() const { return !references.empty(); }
    bool empty() const { return lines.empty() && references.empty() && !wad; }
    // Lines were put in or taken out.
    bool movesLines() const;
    // The sounds whose lines it changed, ascending; the first of them.
    std::vector<std::size_t> numbers() const;
    std::optional<std::size_t> firstNumber() const;

    friend bool operator==(const HistoryStep&, const HistoryStep&) = default;
};

// The steps since a load, where the user stands among them, and where the file does.
struct HistoryTrack
{
    std::vector<HistoryStep> steps; // those from the position on were undone
    std::size_t position = 0;
    // The file holds what the steps before this one did, and then those that were cut off: they were undone,
    // and another step took their place.
    std::size_t savedPosition = 0;
    std::vector<HistoryStep> cutOff;
    // Before the first step the lines were not those of the file either.
    bool differsFromStart = false;

    // Behind the position; whatever was undone can be done again no more.
    void append(HistoryStep step);
    void markSaved();
    // The lines are not those of the file, counting steps and not texts.
    bool pending() const;

    // The way from the file's place to the user's.
    struct Move
    {
        const HistoryStep* step;
        bool forward;
    };
    std::vector<Move> wayFromSaved() const;
    // And back.
    std::vector<Move> wayToSaved() const;
};

} // namespace tavrel
