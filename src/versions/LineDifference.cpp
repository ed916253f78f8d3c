// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/LineDifference.h"

#include "base/CodePage.h"
#include "catalogue/LineWords.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

namespace tavrel {

namespace {

constexpr auto npos = std::string_view::npos;

std::string_view nameIn(std::string_view line)
{
    return line.substr(0, line.find(':') + 1); // npos + 1 is 0: no name
}

using Words = std::vector<std::string>;

Words without(Words words, const Words& others)
{
    for (const std::string& other : others) {
        const auto found = std::ranges::find(words, other);
        if (found != words.end()) {
            words.erase(found);
        }
    }
    return words;
}

// The first word at or behind `start`: empty at the end. The name up to its ":" is one word, and a "#" starts
// a new one.
std::string_view wordFrom(std::string_view line, std::size_t start)
{
    const std::size_t name = nameIn(line).size();
    if (start < name) {
        return line.substr(0, name);
    }
    start = std::min(line.find_first_not_of(" \t", start), line.size());
    return line.substr(start, start < line.size() ? line.find_first_of(" \t#", start + 1) - start : 0);
}

std::size_t endOf(std::string_view word, std::string_view line)
{
    return static_cast<std::size_t>(word.data() + word.size() - line.data());
}

// In the same order, whatever the room between them.
bool areSameWords(std::string_view left, std::string_view right)
{
    std::string_view ofLeft = wordFrom(left, 0);
    std::string_view ofRight = wordFrom(right, 0);
    while (!ofLeft.empty() && ofLeft == ofRight) {
        ofLeft = wordFrom(left, endOf(ofLeft, left));
        ofRight = wordFrom(right, endOf(ofRight, right));
    }
    return ofLeft.empty() && ofRight.empty();
}

// A line as it is compared. One with more samples than the grammar takes has its name alone; all the rest of
// it is other text.
struct ReadLine
{
    explicit ReadLine(std::string_view line) : text(line), name(nameIn(line))
    {
        try {
            record = ParseSoundLine(line);
        } catch (const std::out_of_range&) {
            readable = false;
        }
    }

    Words unreadWords() const
    {
        if (!readable) {
            return {std::string(text.substr(name.size()))};
        }
        if (areSameWords(text, ComposeSoundLine(record))) { // as in most lines
            return {};
        }
        // Composing cuts long names and lists of samples, which were read all the same.
        Words read = record.Samples;
        read.emplace_back(name);
        return without(wordsChangedByComposing(text).vanishing, read);
    }

    std::string_view text;
    std::string_view name;
    SoundLine record;
    bool readable = true;
};

bool sameFlags(const SoundLine& left, const SoundLine& right)
{
    return left.FlagP == right.FlagP && left.FlagV == right.FlagV && left.FlagRN == right.FlagRN &&
           left.FlagL == right.FlagL;
}

LineFields fieldsOf(const ReadLine& before, const ReadLine& after)
{
    const SoundLine& left = before.record;
    const SoundLine& right = after.record;
    LineFields fields;
    fields.add(LineField::Name, before.name != after.name);
    fields.add(LineField::Samples, left.Samples != right.Samples);
    fields.add(LineField::Vol, left.Vol != right.Vol);
    fields.add(LineField::Pit, left.Pit != right.Pit);
    fields.add(LineField::Rad, left.Rad != right.Rad);
    fields.add(LineField::Ch, left.Ch != right.Ch);
    fields.add(LineField::Flags, !sameFlags(left, right));
    fields.add(LineField::Letters, left.Letters != right.Letters);
    fields.add(LineField::Text,
               fields.none() ? before.text != after.text : before.unreadWords() != after.unreadWords());
    return fields;
}

std::string joined(const Words& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + utf8FromCodePage(word);
    }
    return text;
}

// What comes between the words in another order or number.
void dropCommonEnds(Words& before, Words& after)
{
    const auto front = std::ranges::mismatch(before, after);
    before.erase(before.begin(), front.in1);
    after.erase(after.begin(), front.in2);
    while (!before.empty() && !after.empty() && before.back() == after.back()) {
        before.pop_back();
        after.pop_back();
    }
}

enum class Gender { Masculine, Feminine };

// The changes of one line, in the order of its fields.
class Description
{
public:
    void changed(const BilingualText& what, const std::string& before, const std::string& after,
                 Gender gender)
    {
        const bool severalOf = (before + after).find(' ') != npos;
        const std::string ending =
            std::string(gender == Gender::Feminine ? "e" : "") + (severalOf ? "s" : "");
        if (before.empty()) {
            add(what + after + BilingualText(" added", " ajouté" + ending));
        } else if (after.empty()) {
            add(what + before + BilingualText(" removed", " enlevé" + ending));
        } else {
            add(what + before + " → " + after);
        }
    }
    void add(const BilingualText& part)
    {
        m_text += m_text.empty() ? "" : ", ";
        m_text += part;
    }
    const BilingualText& text() const { return m_text; }

private:
    BilingualText m_text;
};

void describeValue(Description& description, std::string_view keyword, std::string_view before,
                   std::string_view after)
{
    // Most values have their keyword before them, and an empty one has none.
    const auto digits = [&](std::string_view field) {
        return std::string(field.substr(std::min(keyword.size(), field.size())));
    };
    if (before != after) {
        description.changed(BilingualText::same(std::string(keyword) + " "), digits(before), digits(after),
                            Gender::Masculine);
    }
}

void describeFlags(Description& description, const SoundLine& before, const SoundLine& after)
{
    const FixedText<2> SoundLine::*const flags[] = {&SoundLine::FlagP, &SoundLine::FlagV, &SoundLine::FlagRN,
                                                    &SoundLine::FlagL};
    for (const auto flag : flags) {
        if (before.*flag != after.*flag) {
            description.changed(BilingualText::same("flag "), std::string((before.*flag).trimmed()),
                                std::string((after.*flag).trimmed()), Gender::Masculine);
        }
    }
}

Words lettersIn(const SoundLine& record)
{
    Words letters;
    for (std::size_t start = 0; start < record.Letters.size();) {
        const std::size_t end = std::min(record.Letters.find(' ', start), record.Letters.size());
        letters.push_back(record.Letters.substr(start, end - start));
        start = end + 1;
    }
    return letters;
}

void describeLetters(Description& description, const SoundLine& before, const SoundLine& after)
{
    const Words old = lettersIn(before);
    const Words fresh = lettersIn(after);
    const Words removed = without(old, fresh);
    const Words added = without(fresh, old);
    if (!added.empty()) {
        description.changed({}, {}, joined(added), Gender::Feminine);
    }
    if (!removed.empty()) {
        description.changed({}, joined(removed), {}, Gender::Feminine);
    }
    if (added.empty() && removed.empty()) {
        description.add({"letters in another order", "lettres dans un autre ordre"});
    }
}

BilingualText oneOrMore(const Words& before, const Words& after, std::string_view what)
{
    return BilingualText::same(std::string(what) + (std::max(before.size(), after.size()) > 1 ? "s " : " "));
}

void describeText(Description& description, const ReadLine& before, const ReadLine& after)
{
    const Words left = before.unreadWords();
    const Words right = after.unreadWords();
    if (left == right) {
        description.add({"written differently", "écrit autrement"});
        return;
    }
    description.changed({"other text ", "autre texte "}, joined(without(left, right)),
                        joined(without(right, left)), Gender::Masculine);
}

struct Token
{
    std::size_t start;
    std::string_view text;
};

using Tokens = std::vector<Token>;

// Its words or, with the room between them, all of it.
Tokens tokensOf(std::string_view line, bool withRoom)
{
    Tokens tokens;
    std::size_t end = 0;
    for (std::string_view word = wordFrom(line, 0); !word.empty(); word = wordFrom(line, end)) {
        const std::size_t start = endOf(word, line) - word.size();
        if (withRoom && start > end) {
            tokens.push_back({end, line.substr(end, start - end)});
        }
        tokens.push_back({start, word});
        end = start + word.size();
    }
    if (withRoom && end < line.size()) {
        tokens.push_back({end, line.substr(end)});
    }
    return tokens;
}

// Row by row, how many words the rest of both lines have in common at most, in order.
std::vector<std::vector<std::size_t>> commonRests(const Tokens& left, const Tokens& right)
{
    std::vector<std::vector<std::size_t>> common(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
    for (std::size_t i = left.size(); i-- > 0;) {
        for (std::size_t j = right.size(); j-- > 0;) {
            common[i][j] = left[i].text == right[j].text ? common[i + 1][j + 1] + 1
                                                         : std::max(common[i + 1][j], common[i][j + 1]);
        }
    }
    return common;
}

DifferingWords differingTokens(const Tokens& left, const Tokens& right)
{
    const auto common = commonRests(left, right);
    DifferingWords words;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() || j < right.size()) {
        if (i < left.size() && j < right.size() && left[i].text == right[j].text) {
            ++i;
            ++j;
        } else if (j == right.size() || (i < left.size() && common[i + 1][j] >= common[i][j + 1])) {
            words.before.push_back({left[i].start, left[i].text.size()});
            ++i;
        } else {
            words.after.push_back({right[j].start, right[j].text.size()});
            ++j;
        }
    }
    return words;
}

} // namespace

std::string_view nameOf(LineField field)
{
    constexpr std::array<std::string_view, everyLineField.size()> names = {
        "name", "samples", "vol", "pit", "rad", "ch", "flags", "letters", "text"};
    return names.at(static_cast<std::size_t>(field));
}

LineFields differingFields(std::string_view before, std::string_view after)
{
    return before == after ? LineFields() : fieldsOf(ReadLine(before), ReadLine(after));
}

BilingualText describeDifference(std::string_view before, std::string_view after)
{
    const ReadLine left(before);
    const ReadLine right(after);
    const LineFields fields = fieldsOf(left, right);
    Description description;
    if (fields.has(LineField::Name)) {
        const auto shown = [](std::string_view name) {
            return utf8FromCodePage(name.substr(0, name.find(':')));
        };
        description.add(BilingualText("name ", "nom ") + shown(left.name) + " → " + shown(right.name));
    }
    if (fields.has(LineField::Samples)) {
        Words old = left.record.Samples;
        Words fresh = right.record.Samples;
        dropCommonEnds(old, fresh);
        description.changed(oneOrMore(old, fresh, "sample"), joined(old), joined(fresh), Gender::Masculine);
    }
    describeValue(description, "VOL", left.record.Vol.trimmed(), right.record.Vol.trimmed());
    describeValue(description, "PIT", left.record.Pit.trimmed(), right.record.Pit.trimmed());
    describeValue(description, "RAD", left.record.Rad.trimmed(), right.record.Rad.trimmed());
    describeValue(description, "CH", left.record.Ch.trimmed(), right.record.Ch.trimmed());
    describeFlags(description, left.record, right.record);
    if (fields.has(LineField::Letters)) {
        describeLetters(description, left.record, right.record);
    }
    if (fields.has(LineField::Text)) {
        describeText(description, left, right);
    }
    return description.text();
}

DifferingWords differingWords(std::string_view before, std::string_view after)
{
    const bool roomAlone = areSameWords(before, after);
    return differingTokens(tokensOf(before, roomAlone), tokensOf(after, roomAlone));
}

} // namespace tavrel
