// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Targets.h"

#include "backup/ExchangeImport.h"
#include "base/CodePage.h"
#include "base/QuotedRecords.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/ChangedLines.h"
#include "catalogue/LineWords.h"
#include "generation/ScriptStatistics.h"
#include "references/LineLetters.h"
#include "references/ReferenceRegister.h"
#include "references/WadLists.h"
#include "samples/SampleConversion.h"
#include "samples/SampleFormat.h"
#include "session/RecoverCommands.h"
#include "settings/ProgramSettings.h"
#include "versions/CatalogueComparison.h"
#include "versions/CatalogueMerge.h"
#include "versions/TakeOver.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace tavrel::fuzz {

namespace {

void require(bool promise, const char* what)
{
    if (!promise) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

// Nothing for bytes that are no text, as a reader would have it. A UTF-8 mark inside a file may come to its
// start when lines before it are left out; the next reader drops and tells it.
std::optional<TextFile> textOf(std::string_view bytes, const char* name)
{
    if (bytes.find("\xEF\xBB\xBF", 1) != std::string_view::npos) {
        return std::nullopt;
    }
    Result<TextFile> file = asTextFile(name, {std::string(bytes), stampOf(bytes)});
    return file ? std::optional(std::move(*file)) : std::nullopt;
}

// What ends up on a screen.
void show(const std::vector<Failure>& notices)
{
    for (const Failure& notice : notices) {
        for (const std::string& text : {notice.text.english, notice.text.french}) {
            require(withoutControls(text) == text, "no message holds control characters");
        }
    }
}

SoundCatalogue smallCatalogue()
{
    SoundCatalogue catalogue({}, false);
    for (const char* const line :
         {"A:\ta1 a2\tVOL10\tP V\t\t#g", "B:\tb\tVOL20\t\t#oa #tw", "C:\t\tc", "D:#"}) {
        catalogue.append(line, line, catalogue.size() + 1);
    }
    return catalogue;
}

void feedLines(std::string_view bytes)
{
    const std::size_t cut = std::min<std::size_t>(bytes.size(), 2);
    const std::string_view letter = bytes.substr(0, cut);
    const std::string_view line = bytes.substr(cut);
    require(!SoundCatalogue::accepts(line) || line.find('\n') == std::string_view::npos,
            "no accepted line has a line end");
    try {
        const std::string composed = ComposeSoundLine(ParseSoundLine(line));
        require(composed == ComposeSoundLine(ParseSoundLine(line)), "the same line is composed the same way");
    } catch (const std::out_of_range&) {
        require(!SoundCatalogue::accepts(line), "an accepted line can be read");
    }
    const std::string longer = AddLetter(line, letter);
    if (SoundCatalogue::accepts(longer)) {
        RemoveLetter(longer, letter);
    }
    replaceLetter(line, letter, "zz");
    eraseLetter(line, letter);
    wholeNumber(line);
    readSettingsValue(line);
    require(shownLine(line).size() <= 3 * 120 + 3, "an echoed line is short");
}

void feedRegister(std::string_view bytes)
{
    const std::optional<TextFile> file = textOf(bytes, "Tavrel.paw");
    if (!file) {
        return;
    }
    const TextFile builtIn;
    const LoadedRegister loaded = parseRegister(builtIn, Result<TextFile>(*file));
    show(loaded.notices);
    const std::string saved = loaded.references.userFileText();
    const LoadedRegister again = parseRegister(builtIn, Result<TextFile>(*textOf(saved, "Tavrel.paw")));
    require(again.references.all() == loaded.references.all(), "saved references are read again");
    require(again.references.userFileText() == saved, "saving twice is saving once");
}

void feedSettings(std::string_view bytes)
{
    if (const std::optional<TextFile> file = textOf(bytes, "Tavrel.par")) {
        const LoadedSettings loaded = parseSettings(*file);
        show(loaded.damage ? std::vector<Failure>{*loaded.damage} : std::vector<Failure>());
    }
}

void feedTables(std::string_view bytes)
{
    if (const std::optional<TextFile> file = textOf(bytes, "Tavrel.tod")) {
        show(parseDoubles(*file, emptyAndUnsureSounds).notices);
        const Result<std::vector<SoundObject>> objects = parseObjectTable(*file);
        show(objects ? std::vector<Failure>() : std::vector<Failure>{objects.failure()});
    }
}

void feedWadLists(std::string_view bytes)
{
    const std::optional<TextFile> file = textOf(bytes, "a.sam");
    if (!file) {
        return;
    }
    for (const WadListKind kind : {WadListKind::Samples, WadListKind::Objects}) {
        const Result<WadList> list = parseWadList(*file, kind);
        show(list ? list->notices : std::vector<Failure>{list.failure()});
    }
    static const SoundCatalogue catalogue = smallCatalogue();
    const ChangedLines saved = parseChangedLines(*file, catalogue);
    show(saved.notices);
    require(std::ranges::all_of(saved.lines,
                                [](const ChangedLine& line) {
                                    return line.number < catalogue.size() &&
                                           SoundCatalogue::accepts(line.text);
                                }),
            "a saved line fits the catalogue");
}

void feedExchange(std::string_view bytes)
{
    static const SoundCatalogue before = smallCatalogue();
    for (const char* const name : {"a.tox", "a.tob"}) {
        const std::optional<TextFile> text = textOf(bytes, name);
        const Result<ImportFile> file =
            text ? parseImportFile(*text, before, "oa") : Result<ImportFile>(Failure{});
        if (!file) {
            show({file.failure()});
            continue;
        }
        show(file->notices());
        for (std::size_t i = 0; i < file->rows(); ++i) {
            listedText(*file, i);
            compareWithCatalogue(&*file, i);
            show({{file->whyRefused(i)}, {file->remark(i)}});
        }
        const ImportRequest request{*file, {"oasis", "oa", ""}, false, {}, {}};
        SoundCatalogue catalogue = before;
        require(importTickedLines(catalogue, request).linesApplied, "rows that can be ticked can be applied");
        require(catalogue.size() == before.size(), "no sound comes or goes");
    }
}

void feedWav(std::string_view bytes)
{
    static const int file = ::memfd_create("wav", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    const bool written = ::ftruncate(file, 0) == 0 && ::pwrite(file, bytes.data(), bytes.size(), 0) >= 0;
    require(written, "the file in memory");
    const SampleFormatVerdict verdict = CheckSampleFormatDetailed(path);
    require(!verdict.valid() || bytes.size() >= 36, "a valid header is a whole one");
    anomalyRow("a", verdict, Language::English);
    const Result<ConvertedSample> converted = convertSample(path);
    if (!converted) {
        show({converted.failure()});
        return;
    }
    const bool rewritten =
        ::ftruncate(file, 0) == 0 && ::pwrite(file, converted->bytes.data(), converted->bytes.size(), 0) >= 0;
    require(rewritten && CheckSampleFormatDetailed(path).valid(), "what was converted is right");
}

// Pieces of the input, each behind a form feed.
std::vector<std::string_view> piecesOf(std::string_view bytes)
{
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0; start <= bytes.size();) {
        const std::size_t end = std::min(bytes.find('\f', start), bytes.size());
        pieces.push_back(bytes.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

// The kind of a record and what it holds in each piece; no fuzzer finds a checksum.
void feedRecovery(std::string_view bytes)
{
    parseRecovery(bytes);
    std::string log;
    for (const std::string_view piece : piecesOf(bytes)) {
        const std::string_view held = piece.substr(std::min<std::size_t>(piece.size(), 1));
        log += std::string(piece.substr(0, 1)) + " " + std::to_string(held.size()) + " " +
               std::to_string(hashOf(held)) + "\n" + std::string(held) + "\n";
    }
    const std::optional<RecoveryContent> content = parseRecovery(log);
    if (!content) {
        return;
    }
    const HistoryTrack& track = content->track;
    require(track.position <= track.steps.size(), "the place is among the steps");
    require(track.savedPosition <= track.steps.size(), "so is the last apply");
    netChanges(track);
    for (const HistoryTrack::Move& move : track.wayFromSaved()) {
        require(move.step != nullptr, "each move has its step");
    }
}

std::vector<std::string_view> soundLinesOf(std::string_view bytes)
{
    std::vector<std::string_view> lines;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', start), bytes.size());
        const std::string_view line = bytes.substr(start, end - start);
        if (line.find(':') != std::string_view::npos && SoundCatalogue::accepts(line)) {
            lines.push_back(line);
        }
        start = end + 1;
    }
    return lines;
}

// Three catalogues: what both started from, mine, theirs.
void feedVersions(std::string_view bytes)
{
    if (bytes.find('\0') != std::string_view::npos) {
        return; // no reader lets them through
    }
    std::vector<std::string_view> pieces = piecesOf(bytes);
    pieces.resize(3);
    const std::vector<std::string_view> base = soundLinesOf(pieces[0]);
    const std::vector<std::string_view> mine = soundLinesOf(pieces[1]);
    const std::vector<std::string_view> theirs = soundLinesOf(pieces[2]);
    std::vector<int> seen(mine.size(), 0);
    for (const MergedSound& sound : mergeCatalogues(base, mine, theirs).sounds) {
        if (sound.mine) {
            ++seen.at(*sound.mine);
        }
        if (sound.outcome == MergeOutcome::Conflict && sound.mine) {
            require(lineAfterMerge(sound, mine, theirs) == mine[*sound.mine], "a conflict keeps mine");
        }
    }
    require(std::ranges::all_of(seen, [](int count) { return count == 1; }), "each of mine is there once");
    SoundCatalogue catalogue;
    for (const std::string_view line : mine) {
        catalogue.append(std::string(line), std::string(line), catalogue.size() + 1);
    }
    std::vector<TakenLine> taken;
    for (const SoundDifference& difference : compareCatalogues(mine, theirs).differences) {
        if (difference.sound.mine && difference.sound.theirs) {
            require(mine[*difference.sound.mine] != theirs[*difference.sound.theirs], "what differs differs");
            taken.push_back({*difference.sound.mine, theirs[*difference.sound.theirs]});
        }
    }
    for (const TakenParts& parts : {TakenParts{}, TakenParts{false, true, false, true, {}}}) {
        for (const SoundCatalogue::LineChange& change : takeLines(catalogue, taken, parts).changes) {
            require(SoundCatalogue::accepts(change.text), "what is taken may be written");
        }
    }
}

void feedScript(std::string_view bytes)
{
    const Result<ScriptStatistics> counted = countScript(bytes);
    show(counted ? counted->notices : std::vector<Failure>{counted.failure()});
}

void feedCatalogue(std::string_view bytes)
{
    const std::optional<TextFile> sounds = textOf(bytes, "Sounds.txt");
    if (!sounds) {
        return;
    }
    const Result<LoadedCatalogue> loaded = parseCatalogue({*sounds, *sounds, TextFile(), TextFile()}, false);
    if (!loaded) {
        show({loaded.failure()});
        return;
    }
    show(loaded->notices);
    const SoundCatalogue& catalogue = loaded->catalogue;
    std::string written;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        require(SoundCatalogue::accepts(catalogue.currentLine(k)), "what was read may be written");
        written += catalogue.currentLine(k) + "\r\n";
        wordsChangedByComposing(catalogue.currentLine(k));
    }
    const Result<LoadedCatalogue> again =
        parseCatalogue({*textOf(written, "Sounds.txt"), *sounds, TextFile(), TextFile()}, false);
    require(again && again->catalogue.size() == catalogue.size(), "no sound comes or goes");
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        require(again->catalogue.currentLine(k) == catalogue.currentLine(k),
                "what was written is read again");
    }
}

constexpr Target allTargets[] = {
    {"lines", feedLines},       {"register", feedRegister}, {"settings", feedSettings},
    {"tables", feedTables},     {"wadlists", feedWadLists}, {"exchange", feedExchange},
    {"wav", feedWav},           {"script", feedScript},     {"catalogue", feedCatalogue},
    {"recovery", feedRecovery}, {"versions", feedVersions},
};

} // namespace

std::span<const Target> targets()
{
    return allTargets;
}

} // namespace tavrel::fuzz
