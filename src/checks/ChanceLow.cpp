// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ValueBoxes.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

namespace {

constexpr int always = 100;

int chanceOf(const SoundLine& record)
{
    const std::string digits = boxFromField(ValueBox::Ch, record.Ch.view());
    return digits.empty() ? always : leadingNumber(digits);
}

BilingualText howOften(int chance)
{
    if (chance == always) {
        return {"always", "à chaque fois"};
    }
    if (always % chance == 0) {
        const std::string times = std::to_string(always / chance);
        return {"one time in " + times, "une fois sur " + times};
    }
    const std::string times = std::to_string(chance);
    return {times + " times in 100", times + " fois sur 100"};
}

bool hasProperChance(const LineReading& reading)
{
    return std::ranges::any_of(reading.words, [&reading](const LineWord& word) {
        const auto value = word.kind == WordKind::Value ? readValueWord(word.text) : std::nullopt;
        return value && value->keyword == "CH" && value->inCapitals && !reading.isNamed(word.text);
    });
}

} // namespace

void checks::chanceLow(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        const std::optional<std::string_view> installed = run.alignment().installedLine(reading.sound);
        if (!installed || !hasProperChance(reading)) {
            return;
        }
        const int chance = chanceOf(reading.record);
        const int usual = chanceOf(ParseSoundLine(*installed));
        if (chance <= 0 || chance >= usual || usual <= 0) {
            return;
        }
        run.addForSound("ch-low", Severity::Note, reading,
                        BilingualText(std::string(reading.record.Ch.trimmed()) + ": plays ",
                                      std::string(reading.record.Ch.trimmed()) + " : se joue ") +
                            howOften(chance) +
                            BilingualText("; the installed line: ", " ; la ligne d'origine : ") +
                            howOften(usual) + ".");
    });
}

} // namespace tavrel
