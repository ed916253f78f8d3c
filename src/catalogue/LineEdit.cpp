// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEdit.h"

namespace tavrel {

namespace {

// For a record that may be changed and for one that may not.
template <typename Record>
auto& valueField(Record& record, ValueBox box)
{
    switch (box) {
    case ValueBox::Vol:
        return record.Vol;
    case ValueBox::Pit:
        return record.Pit;
    case ValueBox::Rad:
        return record.Rad;
    case ValueBox::Ch:
        break;
    }
    return record.Ch;
}

template <typename Record>
auto& flagField(Record& record, LineFlag flag)
{
    switch (flag) {
    case LineFlag::P:
        return record.FlagP;
    case LineFlag::V:
        return record.FlagV;
    case LineFlag::R:
    case LineFlag::N:
        return record.FlagRN;
    case LineFlag::L:
        break;
    }
    return record.FlagL;
}

LineFlag otherOfRN(LineFlag flag)
{
    return flag == LineFlag::R ? LineFlag::N : LineFlag::R;
}

} // namespace

char letterOf(LineFlag flag)
{
    constexpr std::string_view letters = "PVRNL";
    return letters[static_cast<std::size_t>(flag)];
}

bool hasFlag(const SoundLine& record, LineFlag flag)
{
    return flagField(record, flag).view().front() == letterOf(flag);
}

void setFlag(SoundLine& record, LineFlag flag, bool on)
{
    const char letter = letterOf(flag);
    if (on) {
        flagField(record, flag) = std::string_view(&letter, 1);
    } else if (hasFlag(record, flag)) { // clearing R leaves an N in the shared field alone
        flagField(record, flag) = "";
    }
}

std::string boxText(const SoundLine& record, ValueBox box)
{
    return boxFromField(box, valueField(record, box).trimmed());
}

void setBoxText(SoundLine& record, ValueBox box, std::string_view text)
{
    valueField(record, box) = fieldFromBox(box, text);
}

std::string LineEdit::valueText(ValueBox box, std::string_view before) const
{
    const std::optional<Value>& edited = value(box);
    if (!edited) {
        return std::string(before);
    }
    return edited->text ? *edited->text : steppedBoxText(box, before, edited->by);
}

void LineEdit::setFlag(LineFlag flag, bool on)
{
    flags[static_cast<std::size_t>(flag)] = on;
    if (on && (flag == LineFlag::R || flag == LineFlag::N)) {
        flags[static_cast<std::size_t>(otherOfRN(flag))] = false;
    }
}

SoundLine LineEdit::applied(SoundLine record) const
{
    for (const ValueBox box : allValueBoxes) {
        const std::string before = boxText(record, box);
        const std::string after = valueText(box, before);
        if (after != before) {
            setBoxText(record, box, after);
        }
    }
    for (const bool on : {false, true}) { // R and N share a field: what is cleared goes first
        for (const LineFlag which : allLineFlags) {
            if (flag(which) == on) {
                tavrel::setFlag(record, which, on);
            }
        }
    }
    if (samples) {
        record.Samples = *samples;
        record.refreshSampleText();
    }
    if (letters) {
        record.Letters = *letters;
    }
    return record;
}

LineEdit editBetween(const SoundLine& before, const SoundLine& after)
{
    LineEdit edit;
    for (const ValueBox box : allValueBoxes) {
        if (boxText(before, box) != boxText(after, box)) {
            edit.value(box) = LineEdit::Value{boxText(after, box)};
        }
    }
    for (const LineFlag flag : allLineFlags) {
        if (hasFlag(before, flag) != hasFlag(after, flag)) {
            edit.flags[static_cast<std::size_t>(flag)] = hasFlag(after, flag);
        }
    }
    if (before.Samples != after.Samples) {
        edit.samples = after.Samples;
    }
    if (before.Letters != after.Letters) {
        edit.letters = after.Letters;
    }
    return edit;
}

LineEdit editTo(const SoundLine& source, const CarriedParts& parts)
{
    LineEdit edit;
    for (const ValueBox box : allValueBoxes) {
        if (parts.values) {
            edit.value(box) = LineEdit::Value{boxText(source, box)};
        }
    }
    for (const LineFlag flag : allLineFlags) {
        if (parts.flags) {
            edit.flags[static_cast<std::size_t>(flag)] = hasFlag(source, flag);
        }
    }
    if (parts.samples) {
        edit.samples = source.Samples;
    }
    return edit;
}

} // namespace tavrel
