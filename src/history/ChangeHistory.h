// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"
#include "history/HistoryTrack.h"

#include <cstddef>
#include <vector>

namespace tavrel {

class HistoryObserver
{
public:
    HistoryObserver() = default;
    HistoryObserver(const HistoryObserver&) = delete;
    HistoryObserver& operator=(const HistoryObserver&) = delete;
    virtual ~HistoryObserver() = default;

    // A command has done something. What had been undone can be done again no more.
    virtual void stepDone(const HistoryStep& step) = 0;
    // A step was undone, or done again.
    virtual void stepMoved(const HistoryStep& step) = 0;
};

// All that was done since the catalogue was loaded, in steps that can be undone and done again. It is told by
// the catalogue of every change of a line, and looks at the register and the current WAD when a step begins
// and when it ends.
class ChangeHistory : public StepRecorder
{
public:
    ChangeHistory(SoundCatalogue& catalogue, ReferenceRegister& references, CurrentWad& wad,
                  HistoryObserver& observer);
    ChangeHistory(const ChangeHistory&) = delete;
    ChangeHistory& operator=(const ChangeHistory&) = delete;
    ~ChangeHistory() override;

    const HistoryTrack& track() const { return m_track; }
    bool pending() const { return m_track.pending(); }
    bool canUndo() const { return m_track.position > 0; }
    bool canRedo() const { return m_track.position < m_track.steps.size(); }
    const HistoryStep& undo();
    const HistoryStep& redo();

    // The catalogue was loaded: there is nothing to be undone.
    void restart(bool differsFromFile = false);
    // It was written.
    void markSaved() { m_track.markSaved(); }
    // Takes over what an earlier run of the program had done to this file. The lines become what they were
    // then; the register was written at once, and only what is missing there is done again.
    void adopt(HistoryTrack track);
    // The file stays as it is and the lines are given up: takes back, or does again, the register's part of
    // the steps in between that changed lines too. Gives what stays because the register has changed since.
    std::vector<ReferenceDelta> moveReferencesToSaved(const HistoryTrack& track);

    // StepRecorder
    void beginStep(const BilingualText& label) override;
    void endStep() override;
    void record(LineDelta delta) override;

private:
    std::vector<WadReference> userReferences() const;
    void move(const HistoryTrack::Move& move);
    void moveLines(const HistoryTrack::Move& move);
    void moveReferences(const HistoryTrack::Move& move);
    // False when the register does not stand as the step left it.
    bool moveReference(const ReferenceDelta& delta, bool forward);
    bool isTaken(const ReferenceDelta& delta, bool forward) const;

    SoundCatalogue& m_catalogue;
    ReferenceRegister& m_references;
    CurrentWad& m_wad;
    HistoryObserver& m_observer;

    HistoryTrack m_track;
    std::uint64_t m_lastId = 0;
    int m_depth = 0;       // of steps within steps
    bool m_moving = false; // lines change because a step moves
    HistoryStep m_open;
    std::vector<WadReference> m_referencesBefore;
    CurrentWad m_wadBefore;
};

} // namespace tavrel
