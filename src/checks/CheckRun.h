// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/CodePage.h"
#include "base/Progress.h"
#include "checks/Alignment.h"
#include "checks/CheckSubject.h"
#include "checks/Finding.h"
#include "checks/LineReading.h"
#include "samples/SamplesFolder.h"

#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tavrel {

// One run of the checks: what several of them read, and what they have found.
class CheckRun
{
public:
    CheckRun(const CheckSubject& subject, Progress& progress, std::size_t checkCount);

    const CheckSubject& subject() const { return m_subject; }
    const SoundCatalogue& catalogue() const { return m_subject.catalogue; }
    const Alignment& alignment() const { return m_alignment; }
    std::vector<LineReading>& lines() { return m_lines; }
    std::span<const WadReference> userReferences() const;

    // Calls for every sound that is none by mistake.
    template <typename Look>
    void forEachSound(Look look)
    {
        for (LineReading& reading : m_lines) {
            if (!reading.isComment) {
                look(reading);
            }
        }
    }

    // The samples folder; none when it cannot be listed.
    bool hasSamples() const { return m_hasSamples; }
    const std::vector<SampleFile>& samples() const { return m_samples; }
    // By its name on a line, whatever its letter case; its place in the list.
    std::optional<std::size_t> findSample(std::string_view name) const;
    // The sounds that use each of the files.
    const std::vector<std::vector<std::size_t>>& uses();
    // What the files that are used say, none for the others.
    const std::vector<std::optional<SampleReading>>& readings();

    // The words of a line that read as values, by these rules or by the user's intention: not the name of a
    // sample that is there.
    template <typename Look>
    void forEachValue(Look look)
    {
        forEachSound([&](LineReading& reading) {
            for (const LineWord& word : reading.words) {
                const bool isCandidate = word.kind == WordKind::Value || word.kind == WordKind::Sample;
                const auto value = isCandidate ? readValueWord(word.text) : std::nullopt;
                if (value && (word.kind == WordKind::Value || !findSample(word.text))) {
                    look(reading, word, *value);
                }
            }
        });
    }

    Finding& add(std::string_view check, Severity severity, BilingualText text);
    Finding& addForSound(std::string_view check, Severity severity, const LineReading& reading,
                         BilingualText text);
    // Offers to rewrite one line, unless it is protected.
    void offerRewrite(Finding& finding, BilingualText button,
                      std::function<std::string(const std::string&)> rewrite) const;
    void note(const Failure& failure) { m_failures.push_back(failure); }

    // A step of the work is done. False when the user wants to stop.
    bool step();
    bool isCancelled() const { return m_cancelled; }

    std::vector<Finding> takeFindings() { return std::move(m_findings); }
    std::vector<Failure> takeFailures() { return std::move(m_failures); }

private:
    void readLines();
    void listFolder();

    const CheckSubject& m_subject;
    Progress& m_progress;
    Alignment m_alignment;
    std::vector<LineReading> m_lines;
    bool m_hasSamples = false;
    std::vector<SampleFile> m_samples;
    std::unordered_map<std::string, std::size_t> m_sampleByName; // in capitals, without its ending
    std::optional<std::vector<std::vector<std::size_t>>> m_uses;
    std::optional<std::vector<std::optional<SampleReading>>> m_readings;
    std::vector<Finding> m_findings;
    std::vector<Failure> m_failures;
    std::size_t m_done = 0;
    std::size_t m_total = 0;
    bool m_cancelled = false;
};

} // namespace tavrel
