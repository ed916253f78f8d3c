// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleRepair.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/Message.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "base/Titles.h"
#include "samples/SampleConversion.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// In the folder of the originals: what took a sample's place after its repair, and had to go for the
// original.
constexpr std::string_view changedSamples = "changed";

// The place of a sample's original: the folder itself, then "2" in it, and so on.
fs::path keptPlace(const fs::path& folder, const fs::path& sample, int number)
{
    return (number == 1 ? folder : folder / std::to_string(number)) / sample.filename();
}

bool isThere(const fs::path& path)
{
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

// False when either cannot be read.
bool haveSameBytes(const fs::path& left, const fs::path& right)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(left, error);
    if (error || size != fs::file_size(right, error) || error) {
        return false;
    }
    std::ifstream first(left, std::ios::binary);
    std::ifstream second(right, std::ios::binary);
    std::array<char, 1U << 16U> firstBlock{};
    std::array<char, 1U << 16U> secondBlock{};
    std::uintmax_t compared = 0;
    while (compared < size) {
        first.read(firstBlock.data(), firstBlock.size());
        second.read(secondBlock.data(), secondBlock.size());
        const std::streamsize count = first.gcount();
        if (count <= 0 || count != second.gcount() ||
            !std::equal(firstBlock.begin(), firstBlock.begin() + count, secondBlock.begin())) {
            return false;
        }
        compared += static_cast<std::uintmax_t>(count);
    }
    return true;
}

bool holdsBytes(const fs::path& file, std::string_view bytes)
{
    std::error_code error;
    if (fs::file_size(file, error) != bytes.size() || error) {
        return false;
    }
    const Result<FileContent> content = readFile(file);
    return content && content->bytes == bytes;
}

// Whole and on the disk, or not at all; its time is the original's.
Problem copyWhole(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    const fs::path unfinished = fs::path(to) += ".tavrel-new";
    fs::remove(unfinished, error);
    fs::copy_file(from, unfinished, error);
    if (!error) {
        error = system::flushFile(unfinished);
    }
    std::error_code ignored;
    if (error) {
        fs::remove(unfinished, ignored);
        return cannotWrite(to, error);
    }
    const fs::file_time_type time = fs::last_write_time(from, ignored);
    if (!ignored) {
        fs::last_write_time(unfinished, time, ignored);
    }
    if (Problem problem = moveSafely(unfinished, to)) {
        fs::remove(unfinished, ignored);
        return problem;
    }
    return std::nullopt;
}

// The sample's bytes under a second name, before another file takes the first. They are copied where the file
// system has no second names, and where the sample has one already: somebody may write to it there.
Problem keepWhole(fs::path sample, const fs::path& place)
{
    std::error_code error;
    fs::create_directories(place.parent_path(), error);
    if (error) {
        return cannotWrite(place.parent_path(), error);
    }
    if (!followLinks(sample) && !system::giveSecondName(sample, place)) {
        return std::nullopt;
    }
    return copyWhole(sample, place);
}

// The number of the last copy in the folder that has the sample's name; 0 when there is none.
int lastNumber(const fs::path& folder, const fs::path& sample)
{
    int last = isThere(keptPlace(folder, sample, 1)) ? 1 : 0;
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        const std::string name = displayPath(it->path().filename());
        int number = 0;
        const auto [end, wrong] = std::from_chars(name.data(), name.data() + name.size(), number);
        const bool isNumber = wrong == std::errc() && end == name.data() + name.size();
        if (isNumber && number > last && isThere(it->path() / sample.filename())) {
            last = number;
        }
    }
    return last;
}

Result<fs::path> keepIn(const fs::path& folder, const fs::path& sample)
{
    const int last = lastNumber(folder, sample);
    fs::path place = keptPlace(folder, sample, last);
    if (last > 0 && haveSameBytes(sample, place)) {
        return place;
    }
    place = keptPlace(folder, sample, last + 1);
    if (Problem problem = keepWhole(sample, place)) {
        return *problem;
    }
    return place;
}

Failure noOriginal(const fs::path& sample)
{
    return wrongContent(
        sample, {"No original of this sample was kept.", "Aucun original de ce sample n'a été conservé."});
}

// A report names the sample itself.
SampleOutcome failed(const fs::path& sample, const Failure& failure)
{
    const std::string name = bracketedPath(sample) + "\n";
    BilingualText text = failure.text;
    for (std::string* const words : {&text.english, &text.french}) {
        words->erase(0, words->starts_with(name) ? name.size() : 0);
    }
    return {sample, false, text};
}

std::string countText(std::size_t count)
{
    return std::to_string(count);
}

} // namespace

fs::path originalsFolder(const fs::path& samplesFolder)
{
    fs::path folder = samplesFolder.lexically_normal();
    if (!folder.has_filename()) {
        folder = folder.parent_path();
    }
    return folder.has_filename() ? folder += "_originals" : fs::path();
}

Result<fs::path> keepOriginal(const fs::path& sample)
{
    const fs::path originals = originalsFolder(sample.parent_path());
    if (originals.empty()) {
        return wrongContent(sample.parent_path(),
                            {"There is no place for the originals beside this folder.",
                             "Il n'y a pas de place pour les originaux à côté de ce répertoire."});
    }
    return keepIn(originals, sample);
}

std::optional<fs::path> lastOriginal(const fs::path& sample)
{
    const fs::path originals = originalsFolder(sample.parent_path());
    const int last = originals.empty() ? 0 : lastNumber(originals, sample);
    return last == 0 ? std::nullopt : std::optional(keptPlace(originals, sample, last));
}

BilingualText SampleOutcome::line() const
{
    return BilingualText::same(displayPath(sample.filename())) + BilingualText(": ", " : ") + text;
}

SampleOutcome repairSample(const fs::path& sample)
{
    const Result<ConvertedSample> converted = convertSample(sample);
    if (!converted) {
        return failed(sample, converted.failure());
    }
    if (holdsBytes(sample, converted->bytes)) {
        return {sample, true, {"is right already", "est déjà correct"}};
    }
    if (!system::isWritable(sample)) {
        return failed(sample, cannotWrite(sample, std::make_error_code(std::errc::permission_denied)));
    }
    const Result<fs::path> original = keepOriginal(sample);
    if (!original) {
        return failed(sample, original.failure());
    }
    if (const Problem problem = writeFileSafely(sample, converted->bytes)) {
        return failed(sample, *problem);
    }
    BilingualText text = BilingualText("was ", "était ") + formatText(converted->from);
    if (const BilingualText notes = converted->notes(); !notes.empty()) {
        text += BilingualText("; ", " ; ") + notes;
    }
    return {sample, true, text};
}

SampleOutcome putOriginalBack(const fs::path& sample)
{
    const std::optional<fs::path> original = lastOriginal(sample);
    if (!original) {
        return failed(sample, noOriginal(sample));
    }
    BilingualText text("is the original again", "est de nouveau l'original");
    std::error_code ignored;
    if (isThere(sample) && !haveSameBytes(sample, *original)) {
        const Result<ConvertedSample> repaired = convertSample(*original);
        if (!repaired || !holdsBytes(sample, repaired->bytes)) {
            const Result<fs::path> kept =
                keepIn(originalsFolder(sample.parent_path()) / changedSamples, sample);
            if (!kept) {
                return failed(sample, kept.failure());
            }
            text +=
                BilingualText("; what was there is kept as ", " ; ce qui s'y trouvait est conservé sous ") +
                displayPath(*kept);
        }
    }
    const Result<FileContent> content = readFile(*original);
    if (!content) {
        return failed(sample, content.failure());
    }
    const fs::file_time_type time = fs::last_write_time(*original, ignored);
    if (const Problem problem = writeFileSafely(sample, content->bytes)) {
        return failed(sample, *problem);
    }
    if (!ignored) {
        fs::last_write_time(sample, time, ignored);
    }
    // The sample is the original; the copy has done its work. Folders go when they are empty.
    fs::remove(*original, ignored);
    for (fs::path folder = original->parent_path(); folder != sample.parent_path().parent_path();
         folder = folder.parent_path()) {
        if (!fs::remove(folder, ignored)) {
            break;
        }
    }
    return {sample, true, text};
}

std::size_t SampleReport::failures() const
{
    return static_cast<std::size_t>(std::ranges::count(outcomes, false, &SampleOutcome::done));
}

BilingualText SampleReport::text() const
{
    const std::size_t good = outcomes.size() - failures();
    const std::string bad = countText(failures());
    const bool repairs = task == SampleTask::Repair;
    BilingualText text =
        repairs ? counted(good, {"sample repaired", "sample réparé"}, {"samples repaired", "samples réparés"})
                : counted(good, {"original put back", "original remis"},
                          {"originals put back", "originaux remis"});
    if (failures() > 0) {
        text += BilingualText(", " + bad + " not", ", " + bad + " en échec");
    }
    if (cancelled) {
        text += BilingualText("; cancelled before ", " ; annulé avant ") +
                counted(asked - outcomes.size(), {"more", "autre"}, {"more", "autres"});
    }
    if (repairs && good > 0) {
        text +=
            BilingualText("\nThe originals are in ", "\nLes originaux sont dans ") + displayPath(originals);
    }
    for (const bool done : {false, true}) {
        for (const SampleOutcome& outcome : outcomes) {
            if (outcome.done == done) {
                text += BilingualText::same("\n") + outcome.line();
            }
        }
    }
    return text;
}

SampleRun::SampleRun(SampleTask task, std::vector<fs::path> samples)
    : m_task(task), m_samples(std::move(samples)), m_outcomes(m_samples.size())
{
    constexpr std::size_t mostThreads = 8;
    constexpr std::size_t threadsOfProcessor = 2; // while one waits for the disk, the other converts
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    const std::size_t threads = std::min({threadsOfProcessor * processors, mostThreads, m_samples.size()});
    m_working = threads;
    for (std::size_t i = 0; i < threads; ++i) {
        m_threads.emplace_back([this] { work(); });
    }
}

SampleRun::~SampleRun()
{
    cancel();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

void SampleRun::work()
{
    for (std::size_t i = 0; !m_cancelled && (i = m_next++) < m_samples.size();) {
        SampleOutcome outcome;
        try {
            outcome =
                m_task == SampleTask::Repair ? repairSample(m_samples[i]) : putOriginalBack(m_samples[i]);
        } catch (const std::exception&) { // no memory for this one
            outcome = failed(m_samples[i],
                             cannotRead(m_samples[i], std::make_error_code(std::errc::not_enough_memory)));
        }
        const std::lock_guard lock(m_mutex);
        m_outcomes[i] = std::move(outcome);
        ++m_done;
        m_finishedOne.notify_all();
    }
    const std::lock_guard lock(m_mutex);
    --m_working;
    m_finishedOne.notify_all();
}

std::size_t SampleRun::done() const
{
    const std::lock_guard lock(m_mutex);
    return m_done;
}

bool SampleRun::finished() const
{
    const std::lock_guard lock(m_mutex);
    return m_working == 0;
}

void SampleRun::wait(std::chrono::milliseconds moment)
{
    std::unique_lock lock(m_mutex);
    m_finishedOne.wait_for(lock, moment, [this] { return m_working == 0; });
}

SampleReport SampleRun::takeReport()
{
    const std::lock_guard lock(m_mutex);
    SampleReport report{m_task, {}, m_samples.size(), {}, m_done < m_samples.size()};
    if (!m_samples.empty()) {
        report.originals = originalsFolder(m_samples.front().parent_path());
    }
    for (std::optional<SampleOutcome>& outcome : m_outcomes) {
        if (outcome) {
            report.outcomes.push_back(std::move(*outcome));
        }
    }
    return report;
}

SampleReport runOnSamples(SampleTask task, std::vector<fs::path> samples, Progress& progress)
{
    constexpr std::chrono::milliseconds moment(50);
    SampleRun run(task, std::move(samples));
    while (!run.finished()) {
        if (!progress.show(run.done(), run.count())) {
            run.cancel();
        }
        run.wait(moment);
    }
    progress.show(run.done(), run.count());
    return run.takeReport();
}

Question repairQuestion(std::span<const fs::path> samples)
{
    Question question{titles::repairSamples,
                      filled({"Convert {} to the right format?\nThe originals are kept in {}",
                              "Convertir {} au bon format ?\nLes originaux sont conservés dans {}"},
                             {counted(samples.size(), {"sample", "sample"}, {"samples", "samples"}),
                              displayPath(originalsFolder(samples.front().parent_path()))})};
    question.details = listedFiles(samples);
    return question;
}

Question putBackQuestion(std::span<const fs::path> samples)
{
    Question question{titles::putBackOriginals,
                      filled(agreeing(samples.size(),
                                      {"Put {} original back in the place of the sample?",
                                       "Remettre {} original à la place du sample ?"},
                                      {"Put {} originals back in the place of the samples?",
                                       "Remettre {} originaux à la place des samples ?"}),
                             {std::to_string(samples.size())})};
    question.details = listedFiles(samples);
    return question;
}

} // namespace tavrel
