// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckRun.h"

namespace tavrel {

namespace {

// So many lines or files make a step.
constexpr std::size_t linesOfStep = 4096;
constexpr std::size_t filesOfStep = 64;

std::size_t stepsFor(std::size_t count, std::size_t ofStep)
{
    return (count + ofStep - 1) / ofStep;
}

} // namespace

CheckRun::CheckRun(const CheckSubject& subject, Progress& progress, std::size_t checkCount)
    : m_subject(subject), m_progress(progress), m_alignment(subject.catalogue)
{
    listFolder();
    m_total = checkCount + stepsFor(subject.catalogue.size(), linesOfStep) +
              stepsFor(m_samples.size(), filesOfStep);
    readLines();
}

void CheckRun::readLines()
{
    m_lines.reserve(catalogue().size());
    for (std::size_t k = 0; k < catalogue().size(); ++k) {
        if (k % linesOfStep == 0 && !step()) {
            return;
        }
        m_lines.push_back(readLine(k, catalogue().currentLine(k)));
    }
}

void CheckRun::listFolder()
{
    Result<std::vector<SampleFile>> files = listSamples(m_subject.folders.samples);
    if (!files) {
        note(files.failure());
        return;
    }
    constexpr std::size_t endingLength = 4;
    m_hasSamples = true;
    m_samples = std::move(*files);
    std::ranges::sort(m_samples, {}, &SampleFile::name);
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        const std::string& name = m_samples[i].name;
        m_sampleByName.try_emplace(upperCase(name.substr(0, name.size() - endingLength)), i);
    }
}

std::span<const WadReference> CheckRun::userReferences() const
{
    return std::span(m_subject.references.all()).subspan(m_subject.references.userBegin());
}

std::optional<std::size_t> CheckRun::findSample(std::string_view name) const
{
    const auto found = m_sampleByName.find(upperCase(name));
    return found == m_sampleByName.end() ? std::nullopt : std::optional(found->second);
}

const std::vector<std::vector<std::size_t>>& CheckRun::uses()
{
    if (!m_uses) {
        m_uses.emplace(m_samples.size());
        forEachSound([this](const LineReading& reading) {
            for (const std::string& sample : reading.samples) {
                const std::optional<std::size_t> file = findSample(sample);
                if (file && ((*m_uses)[*file].empty() || (*m_uses)[*file].back() != reading.sound)) {
                    (*m_uses)[*file].push_back(reading.sound);
                }
            }
        });
    }
    return *m_uses;
}

const std::vector<std::optional<SampleReading>>& CheckRun::readings()
{
    if (!m_readings) {
        m_readings.emplace(m_samples.size());
        for (std::size_t i = 0; i < m_samples.size(); ++i) {
            if (i % filesOfStep == 0 && !step()) {
                break;
            }
            if (!uses()[i].empty()) {
                (*m_readings)[i] = m_subject.readSample(m_samples[i].path);
            }
        }
    }
    return *m_readings;
}

Finding& CheckRun::add(std::string_view check, Severity severity, BilingualText text)
{
    m_findings.push_back({check, severity, {}, {}, {}, std::move(text), std::nullopt});
    return m_findings.back();
}

Finding& CheckRun::addForSound(std::string_view check, Severity severity, const LineReading& reading,
                               BilingualText text)
{
    Finding& finding = add(check, severity, std::move(text));
    finding.sounds = {reading.sound};
    return finding;
}

void CheckRun::offerRewrite(Finding& finding, BilingualText button,
                            std::function<std::string(const std::string&)> rewrite) const
{
    const std::size_t sound = finding.sounds.front();
    if (catalogue().isProtected(sound)) {
        return;
    }
    finding.fix = Fix{std::move(button), [sound, rewrite = std::move(rewrite)](LineDraft& draft) {
                          draft.set(sound, rewrite(draft.line(sound)));
                      }};
}

bool CheckRun::step()
{
    m_cancelled = m_cancelled || !m_progress.show(std::min(m_done, m_total), m_total);
    ++m_done;
    return !m_cancelled;
}

} // namespace tavrel
