// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Targets.h"

#include "backup/ImportCommands.h"
#include "base/CodePage.h"
#include "base/QuotedRecords.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/LineWords.h"
#include "generation/ScriptStatistics.h"
#include "references/LineLetters.h"
#include "references/ReferenceRegister.h"
#include "references/WadLists.h"
#include "samples/SampleFormat.h"
#include "settings/ProgramSettings.h"

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
    const SavedLines saved = parseSavedLines(*file, catalogue);
    show(saved.notices);
    require(std::ranges::all_of(saved.lines,
                                [](const SavedLine& line) {
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
        show(file->notices);
        ImportRequest request{*file, {}, {"oasis", "oa", ""}, false, {}, {}};
        for (std::size_t i = 0; i < file->rows.size(); ++i) {
            const ImportRow& row = file->rows[i];
            listedText(row);
            compareWithCatalogue(row, before);
            show({{row.refusal}, {row.remark}});
            if (row.applicable()) {
                request.rows.push_back(i);
            }
        }
        SoundCatalogue catalogue = before;
        require(importLines(catalogue, request).linesApplied, "rows that can be ticked can be applied");
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
    {"lines", feedLines},   {"register", feedRegister}, {"settings", feedSettings},
    {"tables", feedTables}, {"wadlists", feedWadLists}, {"exchange", feedExchange},
    {"wav", feedWav},       {"script", feedScript},     {"catalogue", feedCatalogue},
};

} // namespace

std::span<const Target> targets()
{
    return allTargets;
}

} // namespace tavrel::fuzz
