// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleUsers.h"

#include "base/CodePage.h"
#include "references/LetterList.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <string>
#include <unordered_set>

namespace tavrel {

std::vector<std::size_t> soundsUsing(const SoundCatalogue& catalogue, std::string_view sample)
{
    std::vector<std::size_t> numbers;
    for (std::size_t k = 0; !sample.empty() && k < catalogue.size(); ++k) {
        const SoundLine record = ParseSoundLine(catalogue.currentLine(k));
        if (std::ranges::any_of(record.Samples,
                                [sample](const std::string& name) { return sameName(name, sample); })) {
            numbers.push_back(k);
        }
    }
    return numbers;
}

namespace {

std::string lettersText(const SoundLine& record, const ReferenceRegister& references, Language language)
{
    std::string letters;
    for (const std::string& entry : letterEntries(record, references, {}, language)) {
        letters += (letters.empty() ? "" : ", ") + entry;
    }
    return letters.empty() ? letters : " (" + utf8FromCodePage(letters) + ")";
}

} // namespace

BilingualText usersText(const SoundCatalogue& catalogue, const ReferenceRegister& references,
                        std::string_view sample)
{
    const std::vector<std::size_t> numbers = soundsUsing(catalogue, sample);
    if (numbers.empty()) {
        return {"No sound uses it.", "Aucun son ne l'utilise."};
    }
    BilingualText list;
    for (const std::size_t number : numbers) {
        const SoundLine record = ParseSoundLine(catalogue.currentLine(number));
        std::string name(record.Name.trimmed());
        name.erase(std::min(name.find(':'), name.size()));
        list += (list.empty() ? " " : "; ") + std::to_string(number) + " " + utf8FromCodePage(name);
        list += BilingualText(lettersText(record, references, Language::English),
                              lettersText(record, references, Language::French));
    }
    return BilingualText("Used by", "Utilisé par") + list;
}

Result<std::set<std::size_t>> soundsWithMissingSamples(const SoundCatalogue& catalogue,
                                                       const std::filesystem::path& folder)
{
    const Result<std::vector<SampleFile>> files = listSamples(folder);
    if (!files) {
        return files.failure();
    }
    std::unordered_set<std::string> present;
    for (const SampleFile& file : *files) {
        present.insert(lowerCase(file.name));
    }
    std::set<std::size_t> sounds;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const SoundLine record = ParseSoundLine(catalogue.currentLine(k));
        const auto end = record.Samples.begin() + static_cast<std::ptrdiff_t>(record.sampleCount());
        if (std::any_of(record.Samples.begin(), end, [&present](const std::string& sample) {
                return !present.contains(lowerCase(sampleFileName(sample)));
            })) {
            sounds.insert(k);
        }
    }
    return sounds;
}

} // namespace tavrel
