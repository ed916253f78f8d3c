// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadView.h"

#include "catalogue/SoundLine.h"

#include <algorithm>
#include <set>

namespace tavrel {

namespace {

class ViewBuilder
{
public:
    ViewBuilder(const SoundCatalogue& catalogue, const CurrentWad& wad, const SavedLines& saved)
        : m_catalogue(catalogue)
    {
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            const std::vector<std::string> letters = lettersOf(ParseSoundLine(catalogue.currentLine(k)));
            m_carries.push_back(std::ranges::find(letters, wad.letter) != letters.end());
        }
        for (const SavedLine& line : saved.lines) {
            m_changed.insert(line.number);
        }
    }

    void addSamples(const WadList& list)
    {
        for (const ListedValue& value : list.values) {
            const std::string sample(sampleOfValue(value.text));
            const std::size_t before = view.samples.size();
            for (std::size_t k = 0; !sample.empty() && k < m_catalogue.size(); ++k) {
                if (standsAsFirstWord(m_catalogue.currentLine(k), sample)) {
                    view.samples.push_back(rowOf(sample, k));
                }
            }
            if (!sample.empty() && view.samples.size() == before) {
                view.samples.push_back({sample, std::nullopt, true, false});
            }
        }
    }

    void addObjects(const WadList& list)
    {
        for (const ListedValue& value : list.values) {
            const std::string listed(objectOfValue(value.text));
            const std::size_t before = view.objects.size();
            for (const SoundObject& object : m_catalogue.objects()) {
                for (const std::size_t number : object.sounds) {
                    if (objectsMatch(listed, object.name) && number < m_catalogue.size()) {
                        view.objects.push_back(rowOf(listed, number));
                    }
                }
            }
            if (!listed.empty() && view.objects.size() == before) {
                view.objects.push_back({listed, std::nullopt, false, false});
            }
        }
    }

    void addSurplus()
    {
        m_asked.insert(underwaterSound);
        for (std::size_t k = 0; k < m_catalogue.size(); ++k) {
            if (m_carries[k] && !m_asked.contains(k)) {
                view.surplus.push_back({{}, k, false, m_changed.contains(k)});
            }
        }
    }

    WadView view;

private:
    WadViewRow rowOf(const std::string& name, std::size_t number)
    {
        m_asked.insert(number);
        return {name, number, !m_carries[number] && !m_catalogue.isGlobal(number),
                m_changed.contains(number)};
    }

    const SoundCatalogue& m_catalogue;
    std::vector<bool> m_carries;
    std::set<std::size_t> m_changed;
    std::set<std::size_t> m_asked;
};

} // namespace

WadView viewWad(const SoundCatalogue& catalogue, const CurrentWad& wad, const ImportFolders& folders)
{
    const Result<SavedLines> saved = readSavedLines(folders.program, wad.wadName, catalogue);
    ViewBuilder builder(catalogue, wad, saved ? *saved : SavedLines());
    if (!saved) {
        builder.view.notices.push_back(saved.failure());
    }
    const Result<WadList> samples = readWadList(folders.wads, wad.wadName, ".SAM");
    const Result<WadList> objects = readWadList(folders.wads, wad.wadName, ".WAS");
    for (const Result<WadList>* list : {&samples, &objects}) {
        if (!*list) {
            builder.view.notices.push_back(list->failure());
        }
    }
    if (samples) {
        builder.addSamples(*samples);
    }
    if (objects) {
        builder.addObjects(*objects);
    }
    builder.addSurplus();
    return std::move(builder.view);
}

} // namespace tavrel
