// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadView.h"

#include "catalogue/ChangedLines.h"
#include "catalogue/SoundLine.h"
#include "references/LetterList.h"

#include <algorithm>
#include <set>

namespace tavrel {

namespace {

// A name's place in a list counts once, however often the list has it.
std::vector<std::string> withoutRepetitions(const std::vector<std::string>& names)
{
    std::set<std::string_view> known;
    std::vector<std::string> result;
    std::ranges::copy_if(names, std::back_inserter(result),
                         [&known](const std::string& name) { return known.insert(name).second; });
    return result;
}

class ViewBuilder
{
public:
    ViewBuilder(const SoundCatalogue& catalogue, const CurrentWad& wad, const ChangedLines& saved)
        : m_catalogue(catalogue), m_asked(catalogue.size(), false), m_saved(catalogue.size(), false)
    {
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            const std::vector<std::string> letters = lettersOf(ParseSoundLine(catalogue.currentLine(k)));
            m_carries.push_back(std::ranges::find(letters, wad.letter) != letters.end());
        }
        for (const ChangedLine& line : saved.lines) {
            m_saved[line.number] = true;
        }
    }

    std::vector<WadViewRow> samples(const WadList& list)
    {
        std::vector<std::string> lines;
        for (std::size_t k = 0; k < m_catalogue.size(); ++k) {
            lines.push_back(m_catalogue.currentLine(k));
        }
        const SampleUses uses(std::move(lines));
        std::vector<WadViewRow> rows;
        for (const std::string& sample : withoutRepetitions(list.names)) {
            const std::vector<std::size_t> sounds = uses.of(sample);
            for (const std::size_t number : sounds) {
                rows.push_back(rowOf(sample, number, m_catalogue.doubles().of(number)));
            }
            if (sounds.empty()) {
                rows.push_back({sample, std::nullopt, WadViewMark::Lacking, false});
            }
        }
        return rows;
    }

    std::vector<WadViewRow> objects(const WadList& list)
    {
        std::vector<WadViewRow> rows;
        for (const std::string& object : withoutRepetitions(list.names)) {
            const std::vector<std::size_t> sounds = soundsOfListedObject(m_catalogue, object);
            for (const std::size_t number : sounds) {
                rows.push_back(rowOf(object, number));
            }
            if (sounds.empty()) {
                rows.push_back({object, std::nullopt, WadViewMark::None, false});
            }
        }
        const auto isUnderwater = [](const WadViewRow& row) { return row.sound == underwaterSound; };
        if (underwaterSound < m_catalogue.size() && std::ranges::none_of(rows, isUnderwater)) {
            rows.push_back(rowOf({}, underwaterSound));
        }
        return rows;
    }

    std::vector<WadViewRow> surplus() const
    {
        std::vector<WadViewRow> rows;
        for (std::size_t k = 0; k < m_catalogue.size(); ++k) {
            if (m_carries[k] && !m_asked[k]) {
                rows.push_back({{}, k, WadViewMark::None, m_saved[k]});
            }
        }
        return rows;
    }

private:
    WadViewRow rowOf(const std::string& name, std::size_t number,
                     std::string_view status = DoublesStatus::takesPart)
    {
        m_asked[number] = true;
        WadViewMark mark = WadViewMark::None;
        if (!m_carries[number] && !m_catalogue.isGlobal(number)) {
            mark = status == DoublesStatus::takesPart ? WadViewMark::Lacking : WadViewMark::LeftOut;
        }
        return {name, number, mark, m_saved[number]};
    }

    const SoundCatalogue& m_catalogue;
    std::vector<bool> m_carries;
    std::vector<bool> m_asked;
    std::vector<bool> m_saved;
};

// The value; its failure goes to the notices.
template <typename Value>
const Value* valueOf(const Result<Value>& result, std::vector<Failure>& notices)
{
    if (!result) {
        notices.push_back(result.failure());
        return nullptr;
    }
    notices.insert(notices.end(), result->notices.begin(), result->notices.end());
    return &*result;
}

} // namespace

WadView viewWad(const SoundCatalogue& catalogue, const CurrentWad& wad, const Places& places)
{
    const auto savedFile = readChangedLines(places.program, wad.wadName, catalogue);
    const auto samplesFile = readWadList(places.wads, wad.wadName, WadListKind::Samples);
    const auto objectsFile = readWadList(places.wads, wad.wadName, WadListKind::Objects);
    WadView view;
    const ChangedLines* const saved = valueOf(savedFile, view.notices);
    const WadList* const samples = valueOf(samplesFile, view.notices);
    const WadList* const objects = valueOf(objectsFile, view.notices);
    ViewBuilder builder(catalogue, wad, saved ? *saved : ChangedLines());
    if (samples) {
        view.samples = builder.samples(*samples);
    }
    if (objects) {
        view.objects = builder.objects(*objects);
    }
    if (samples && objects) {
        view.surplus = builder.surplus();
    }
    return view;
}

} // namespace tavrel
