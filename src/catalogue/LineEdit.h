// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundLine.h"
#include "catalogue/ValueBoxes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

enum class LineFlag { P, V, R, N, L };
constexpr std::size_t lineFlagCount = 5;
constexpr std::array<LineFlag, lineFlagCount> allLineFlags = {LineFlag::P, LineFlag::V, LineFlag::R,
                                                              LineFlag::N, LineFlag::L};

char letterOf(LineFlag flag);
bool hasFlag(const SoundLine& record, LineFlag flag);
// R and N clear each other.
void setFlag(SoundLine& record, LineFlag flag, bool on);
// What the box shows of the record: the digits as they stand.
std::string boxText(const SoundLine& record, ValueBox box);
// The text is a corrected one.
void setBoxText(SoundLine& record, ValueBox box, std::string_view text);

// What becomes of a line, whichever it is. A field that is not named stays as it is.
struct LineEdit
{
    struct Value
    {
        std::optional<std::string> text; // corrected
        int by = 0;                      // without a text: so much up or down, as far as the value can go

        friend bool operator==(const Value&, const Value&) = default;
    };

    std::array<std::optional<Value>, valueBoxCount> values{};
    std::array<std::optional<bool>, lineFlagCount> flags{};
    std::optional<std::vector<std::string>> samples;
    std::optional<std::string> letters; // "#g #ab"

    std::optional<Value>& value(ValueBox box) { return values[static_cast<std::size_t>(box)]; }
    const std::optional<Value>& value(ValueBox box) const { return values[static_cast<std::size_t>(box)]; }
    // The text that the box gets in the place of this one.
    std::string valueText(ValueBox box, std::string_view before) const;
    const std::optional<bool>& flag(LineFlag flag) const { return flags[static_cast<std::size_t>(flag)]; }
    void setFlag(LineFlag flag, bool on);

    SoundLine applied(SoundLine record) const;
    friend bool operator==(const LineEdit&, const LineEdit&) = default;
};

// What makes the one line of the other, their names aside.
LineEdit editBetween(const SoundLine& before, const SoundLine& after);

// The parts of a sound that can be carried over to others.
struct CarriedParts
{
    bool values = true;
    bool flags = true;
    bool samples = false;
};
LineEdit editTo(const SoundLine& source, const CarriedParts& parts);

} // namespace tavrel
