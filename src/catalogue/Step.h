// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavrel {

// What became of one line.
struct LineDelta
{
    enum class Kind { Changed, PutIn, TakenOut };

    Kind kind = Kind::Changed;
    std::size_t number = 0; // of the sound, as it is numbered at that moment
    std::string before;     // empty for a line that was put in
    std::string after;      // empty for a line that was taken out

    friend bool operator==(const LineDelta&, const LineDelta&) = default;
};

// Whoever keeps the history of a catalogue: it is told of every change of a line, and which changes belong
// together.
class StepRecorder
{
public:
    StepRecorder() = default;
    StepRecorder(const StepRecorder&) = delete;
    StepRecorder& operator=(const StepRecorder&) = delete;
    virtual ~StepRecorder() = default;

    virtual void beginStep(const BilingualText& label) = 0;
    virtual void endStep() = 0;
    virtual void record(LineDelta delta) = 0;
};

class SoundCatalogue;

// Whatever changes while it lives is one step for the user, under the label of the outermost. Commands open
// one around their changes, and close it before they tell the user about them. Without a recorder it does
// nothing.
class Step
{
public:
    Step(const SoundCatalogue& catalogue, const BilingualText& label);
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step();

private:
    StepRecorder* m_recorder;
};

// "Accept values, 12: METAL_SCRAPE_LOOP"
BilingualText stepLabel(const BilingualText& command, const SoundCatalogue& catalogue, std::size_t number);

} // namespace tavrel
