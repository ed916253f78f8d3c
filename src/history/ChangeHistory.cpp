// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeHistory.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

// References that stand at the front or at the end of both are the same ones.
std::vector<ReferenceDelta> differenceOf(const std::vector<WadReference>& before,
                                         const std::vector<WadReference>& after)
{
    const std::size_t most = std::min(before.size(), after.size());
    std::size_t front = 0;
    while (front < most && before[front] == after[front]) {
        ++front;
    }
    std::size_t back = 0;
    while (back < most - front && before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
        ++back;
    }
    const std::size_t gone = before.size() - front - back;
    const std::size_t come = after.size() - front - back;
    const std::size_t changed = std::min(gone, come);
    std::vector<ReferenceDelta> deltas;
    for (std::size_t i = front; i < front + changed; ++i) {
        if (before[i] != after[i]) {
            deltas.push_back({i, before[i], after[i]});
        }
    }
    for (std::size_t i = front + changed; i < front + gone; ++i) {
        deltas.push_back({front + changed, before[i], std::nullopt});
    }
    for (std::size_t i = front + changed; i < front + come; ++i) {
        deltas.push_back({i, std::nullopt, after[i]});
    }
    return deltas;
}

std::vector<ReferenceDelta> inOrder(const HistoryTrack::Move& move)
{
    std::vector<ReferenceDelta> deltas = move.step->references;
    if (!move.forward) {
        std::ranges::reverse(deltas);
    }
    return deltas;
}

// What must be there, and what takes its place.
using MaybeReference = std::optional<WadReference>;
std::pair<MaybeReference, MaybeReference> ends(const ReferenceDelta& delta, bool forward)
{
    return forward ? std::pair(delta.before, delta.after) : std::pair(delta.after, delta.before);
}

std::chrono::sys_seconds now()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

class Flagged
{
public:
    explicit Flagged(bool& flag) : m_flag(flag) { m_flag = true; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    ~Flagged() { m_flag = false; }

private:
    bool& m_flag;
};

} // namespace

ChangeHistory::ChangeHistory(SoundCatalogue& catalogue, ReferenceRegister& references, CurrentWad& wad,
                             HistoryObserver& observer)
    : m_catalogue(catalogue), m_references(references), m_wad(wad), m_observer(observer)
{
    m_catalogue.setRecorder(this);
}

ChangeHistory::~ChangeHistory()
{
    m_catalogue.setRecorder(nullptr);
}

std::vector<WadReference> ChangeHistory::userReferences() const
{
    const std::vector<WadReference>& all = m_references.all();
    return {all.begin() + static_cast<std::ptrdiff_t>(m_references.userBegin()), all.end()};
}

const HistoryStep& ChangeHistory::undo()
{
    const HistoryStep& step = m_track.steps.at(m_track.position - 1);
    move({&step, false});
    --m_track.position;
    m_observer.stepMoved(step);
    return step;
}

const HistoryStep& ChangeHistory::redo()
{
    const HistoryStep& step = m_track.steps.at(m_track.position);
    move({&step, true});
    ++m_track.position;
    m_observer.stepMoved(step);
    return step;
}

void ChangeHistory::restart(bool differsFromFile)
{
    m_track = {};
    m_track.differsFromStart = differsFromFile;
    m_depth = 0;
}

void ChangeHistory::adopt(HistoryTrack track)
{
    m_track = std::move(track);
    for (const std::vector<HistoryStep>* const steps : {&m_track.steps, &m_track.cutOff}) {
        for (const HistoryStep& step : *steps) {
            m_lastId = std::max(m_lastId, step.id);
        }
    }
    for (const HistoryTrack::Move& move : m_track.wayFromSaved()) {
        moveLines(move);
        moveReferences(move);
    }
}

std::vector<ReferenceDelta> ChangeHistory::moveReferencesToSaved(const HistoryTrack& track)
{
    std::vector<ReferenceDelta> left;
    for (const HistoryTrack::Move& move : track.wayToSaved()) {
        if (!move.step->changesLines()) {
            continue;
        }
        for (const ReferenceDelta& delta : inOrder(move)) {
            if (isTaken(delta, move.forward) || !moveReference(delta, move.forward)) {
                left.push_back(delta);
            }
        }
    }
    return left;
}

void ChangeHistory::move(const HistoryTrack::Move& move)
{
    moveLines(move);
    moveReferences(move);
    if (!move.step->wad) {
        return;
    }
    const auto& [before, after] = *move.step->wad;
    if (m_wad == (move.forward ? before : after)) { // else the user has chosen another since
        m_wad = move.forward ? after : before;
    }
}

void ChangeHistory::moveLines(const HistoryTrack::Move& move)
{
    const Flagged moving(m_moving);
    if (move.forward) {
        std::ranges::for_each(move.step->lines,
                              [this](const LineDelta& delta) { m_catalogue.repeat(delta); });
    } else {
        std::for_each(move.step->lines.rbegin(), move.step->lines.rend(),
                      [this](const LineDelta& delta) { m_catalogue.reverse(delta); });
    }
}

void ChangeHistory::moveReferences(const HistoryTrack::Move& move)
{
    for (const ReferenceDelta& delta : inOrder(move)) {
        moveReference(delta, move.forward);
    }
}

bool ChangeHistory::moveReference(const ReferenceDelta& delta, bool forward)
{
    const auto [from, to] = ends(delta, forward);
    const std::vector<WadReference> present = userReferences();
    if (!from) {
        if (std::ranges::find(present, *to) == present.end()) {
            m_references.insertUser(std::min(delta.index, present.size()), *to);
        }
        return true;
    }
    const auto found = std::ranges::find(present, *from);
    if (found == present.end()) {
        return false;
    }
    const std::size_t place = m_references.userBegin() + static_cast<std::size_t>(found - present.begin());
    if (to) {
        m_references.replace(place, *to);
    } else {
        m_references.remove(place);
    }
    return true;
}

// Another reference has the name or the letter by now.
bool ChangeHistory::isTaken(const ReferenceDelta& delta, bool forward) const
{
    const std::pair way = ends(delta, forward);
    const MaybeReference& from = way.first;
    const MaybeReference& to = way.second;
    return to && std::ranges::any_of(userReferences(), [&from, &to](const WadReference& reference) {
               return reference != from && reference != to &&
                      (reference.wadName == to->wadName || reference.letter == to->letter);
           });
}

void ChangeHistory::beginStep(const BilingualText& label)
{
    if (m_depth++ > 0) {
        return;
    }
    m_open = {};
    m_open.label = label;
    m_referencesBefore = userReferences();
    m_wadBefore = m_wad;
}

void ChangeHistory::endStep()
{
    if (m_depth == 0 || --m_depth > 0) { // a load within a step has ended it
        return;
    }
    m_open.references = differenceOf(m_referencesBefore, userReferences());
    if (m_wad != m_wadBefore && !(m_open.lines.empty() && m_open.references.empty())) {
        m_open.wad = {m_wadBefore, m_wad};
    }
    if (m_open.empty()) {
        return;
    }
    m_open.id = ++m_lastId;
    m_open.time = now();
    m_track.append(std::exchange(m_open, {}));
    m_observer.stepDone(m_track.steps.back());
}

void ChangeHistory::record(LineDelta delta)
{
    if (m_moving) {
        return;
    }
    if (m_depth > 0) {
        m_open.lines.push_back(std::move(delta));
        return;
    }
    beginStep({"Change of a line", "Modification d'une ligne"});
    m_open.lines.push_back(std::move(delta));
    endStep();
}

} // namespace tavrel
