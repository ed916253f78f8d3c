// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/LineEdit.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What the list shows of a sound, each in a column of its own.
enum class SoundColumn { Sound, Samples, Values, Flags, Letters };
constexpr std::size_t soundColumnCount = 5;
BilingualText columnTitle(SoundColumn column);
// Of all but the first, which is the catalogue's list entry.
std::string columnText(const SoundLine& record, SoundColumn column);

// What a filter looks at, read from a line once.
struct FilteredSound
{
    FilteredSound(std::size_t number, std::string_view line);

    std::size_t number = 0;
    std::string words;   // name, samples and letters in capitals, a line feed behind each
    std::string letters; // "#g #ab"
    std::array<std::optional<std::int8_t>, valueBoxCount> values{}; // as they are heard
    std::uint8_t flags = 0;
    bool isGlobal = false;
};

// Words that a sound has to match, all of them and in any order: "foot #oa vol>80 flag:l 62". A number is
// that of the sound, a value is compared, a flag is set, a letter is looked for as it is written, and any
// other word is looked for in name, samples and letters without regard to letter case.
class SoundFilter
{
public:
    SoundFilter() = default;
    // Code page bytes.
    explicit SoundFilter(std::string_view text);

    bool empty() const { return m_words.empty(); }
    bool matches(const FilteredSound& sound) const;
    // The first comparison or flag that is not written to its end. It restricts nothing, for somebody may
    // still be typing it.
    const std::optional<std::string>& unfinished() const { return m_unfinished; }

    // Which bytes of a shown text are the reason why its sound is listed, in ascending order.
    struct Part
    {
        std::size_t from = 0;
        std::size_t length = 0;

        friend bool operator==(const Part&, const Part&) = default;
    };
    std::vector<Part> matchingParts(std::string_view shown, SoundColumn column) const;

private:
    enum class Kind { Text, Letter, Number, Value, Flags };
    struct Word
    {
        Kind kind = Kind::Text;
        std::string text; // of a text (in capitals) or a letter; the flags
        ValueBox box = ValueBox::Vol;
        std::string_view comparison = {};
        long number = 0; // of the sound, or compared with
        std::uint8_t flags = 0;
    };

    void read(std::string_view word);
    bool readComparison(std::string_view word);
    bool readFlags(std::string_view word);
    static bool matches(const Word& word, const FilteredSound& sound);
    static void addParts(const Word& word, std::string_view shown, SoundColumn column,
                         std::vector<Part>& parts);

    std::vector<Word> m_words;
    std::optional<std::string> m_unfinished;
};

} // namespace tavrel
