// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"
#include "samples/SamplesFolder.h"

#include <set>

namespace tavrel {

namespace {

constexpr std::size_t endingLength = 4;

// Finds names that differ by one character: another one, one more, one less. Names with one character left
// out lead from the one to the other.
class SimilarNames
{
public:
    explicit SimilarNames(const std::vector<SampleFile>& samples)
    {
        for (const SampleFile& sample : samples) {
            std::string name = sample.name.substr(0, sample.name.size() - endingLength);
            if (!sample.exactName || name.find_first_of(" \t#:") != std::string::npos) {
                continue; // no line can hold it
            }
            const std::size_t index = m_names.size();
            for (const std::string& key : keysOf(name)) {
                m_byKey[key].push_back(index);
            }
            m_names.push_back(std::move(name));
        }
    }

    // The only one; nothing when there are several.
    std::optional<std::string> only(const std::string& name) const
    {
        std::set<std::size_t> similar;
        for (const std::string& key : keysOf(name)) {
            const auto found = m_byKey.find(key);
            if (found == m_byKey.end()) {
                continue;
            }
            std::ranges::copy_if(found->second, std::inserter(similar, similar.end()),
                                 [&](std::size_t index) { return differByOne(name, m_names[index]); });
        }
        return similar.size() == 1 ? std::optional(m_names[*similar.begin()]) : std::nullopt;
    }

private:
    static std::set<std::string> keysOf(const std::string& name)
    {
        const std::string capitals = upperCase(name);
        std::set<std::string> keys = {capitals};
        for (std::size_t i = 0; i < capitals.size(); ++i) {
            keys.insert(std::string(capitals).erase(i, 1));
        }
        return keys;
    }

    static bool differByOne(const std::string& left, const std::string& right)
    {
        const std::string shorter = upperCase(left.size() < right.size() ? left : right);
        const std::string longer = upperCase(left.size() < right.size() ? right : left);
        if (longer.size() - shorter.size() > 1) {
            return false;
        }
        const auto front = std::ranges::mismatch(shorter, longer);
        const std::size_t skipped = longer.size() == shorter.size() ? 1 : 0;
        const auto start = static_cast<std::size_t>(front.in1 - shorter.begin());
        return start < longer.size() &&
               std::string_view(shorter).substr(std::min(start + skipped, shorter.size())) ==
                   std::string_view(longer).substr(start + 1);
    }

    std::vector<std::string> m_names;
    std::unordered_map<std::string, std::vector<std::size_t>> m_byKey;
};

// The line with another name in the place of a sample.
std::string withSample(const std::string& line, std::string_view before, std::string_view after)
{
    const std::size_t end = samplesEnd(line);
    for (std::size_t start = line.find(':') + 1; end != std::string::npos && start < end;) {
        start = line.find_first_not_of(" \t", start);
        const std::size_t wordEnd = std::min(line.find_first_of(" \t", start), line.size());
        if (std::string_view(line).substr(start, wordEnd - start) == before) {
            return std::string(line).replace(start, before.size(), after);
        }
        start = wordEnd;
    }
    return line;
}

} // namespace

void checks::sampleMissing(CheckRun& run)
{
    if (!run.hasSamples()) {
        return;
    }
    std::optional<SimilarNames> similar;
    run.forEachSound([&](const LineReading& reading) {
        std::set<std::string_view> told;
        for (const std::string& sample : reading.samples) {
            if (run.findSample(sample) || reading.isNamed(sample) || !told.insert(sample).second) {
                continue;
            }
            const std::string shown = bracketed(sampleFileName(sample));
            Finding& finding = run.addForSound(
                "sample-missing", reading.letters.empty() ? Severity::Warning : Severity::Error, reading,
                {shown + " is not in the samples folder.",
                 shown + " n'est pas dans le répertoire des samples."});
            finding.file = sampleFileName(sample);
            if (!similar) {
                similar.emplace(run.samples());
            }
            if (const std::optional<std::string> other = similar->only(sample)) {
                const std::string instead = bracketed(sampleFileName(*other));
                run.offerRewrite(finding, {"Use " + instead, "Utiliser " + instead},
                                 [sample, other = *other](const std::string& line) {
                                     return withSample(line, sample, other);
                                 });
            }
        }
    });
}

} // namespace tavrel
