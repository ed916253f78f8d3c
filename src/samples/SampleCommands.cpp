// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleCommands.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "base/Titles.h"
#include "samples/SampleConversion.h"
#include "samples/SampleFormat.h"
#include "samples/SamplePlayer.h"
#include "samples/SampleRepair.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <cctype>

namespace tavrel {

namespace {

// The sample field of a line; each name in it has a blank behind it.
constexpr std::size_t sampleFieldWidth = 32;

const BilingualText selectFirst("Select a sample first", "Selectionnez d'abord un sample");

// Adding and renaming share their title.
bool refuse(const BilingualText& text, Dialogs& dialogs)
{
    dialogs.show({MessageIcon::Exclamation, titles::renameSample, text});
    return false;
}

std::vector<std::string> namesOf(const LineEditor& editor)
{
    const SoundLine& record = editor.record();
    const auto count = static_cast<std::ptrdiff_t>(record.sampleCount());
    return {record.Samples.begin(), record.Samples.begin() + count};
}

// Characters that would end the name in a line of sounds.txt, or lead out of the folder.
bool hasForbiddenCharacter(std::string_view name)
{
    return name.find_first_of(" \t#:\"/\\") != std::string_view::npos;
}

// They stand for other characters in a listing, or for one outside the code page, so no file has them.
bool hasWildcard(std::string_view name)
{
    return name.find_first_of("?*") != std::string_view::npos;
}

std::size_t fieldLength(SampleChange change, const std::vector<std::string>& names, const SampleInput& input)
{
    std::size_t length = names.size();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isReplaced = change == SampleChange::Rename && input.selected == i;
        length += isReplaced ? input.typedName.size() : names[i].size();
    }
    return change == SampleChange::Add ? length + input.typedName.size() + 1 : length;
}

bool mayChange(const LineEditor& editor, Dialogs& dialogs)
{
    return editor.canEdit() && editor.confirmComposing(dialogs);
}

SampleResult store(LineEditor& editor, const BilingualText& command, std::vector<std::string> names,
                   std::size_t selected, const SampleInput& input, Dialogs& dialogs)
{
    const Step step(editor.catalogue(), stepLabel(command, editor.catalogue(), editor.selected().value()));
    if (!editor.storeSamples(std::move(names), dialogs)) {
        return {};
    }
    return {true, selected, input.typedName};
}

// The rules for the name itself, whatever its file is.
bool fitsLine(SampleChange change, const std::vector<std::string>& names, const SampleInput& input,
              Dialogs& dialogs)
{
    const std::string& name = input.typedName;
    if (name.empty()) {
        return refuse({"You must enter a sample name to add", "Entrez un nom de sample à ajouter"}, dialogs);
    }
    if (hasForbiddenCharacter(name)) {
        return refuse({"Incorrect sample name : no space", "Nom de sample incorrect : pas d'espace"},
                      dialogs);
    }
    if (change == SampleChange::Add && std::ranges::find(names, name) != names.end()) {
        return refuse({"Sample name already in the list", "Nom de sample déjà dans la liste"}, dialogs);
    }
    if (fieldLength(change, names, input) > sampleFieldWidth) {
        return refuse({"Sample name too long", "Nom de sample trop long"}, dialogs);
    }
    return !hasWildcard(name) || refuse(noSuchSample(input.samplesFolder, name), dialogs);
}

// A sample in a wrong format may become a right one at once.
bool hasRightFormat(const SampleInput& input, Dialogs& dialogs)
{
    if (CheckSampleFormat(input.samplesFolder, input.typedName)) {
        return true;
    }
    Question question{titles::renameSample, wrongSampleFormat(input.typedName), Buttons::Ok};
    question.otherChoice = {"Convert", "Convertir"};
    question.icon = MessageIcon::Exclamation;
    const std::optional<std::filesystem::path> file = findSample(input.samplesFolder, input.typedName);
    if (dialogs.ask(question) != Answer::Other || !file) {
        return false;
    }
    const SampleOutcome outcome = repairSample(*file);
    return outcome.done ? CheckSampleFormat(input.samplesFolder, input.typedName)
                        : refuse(outcome.line(), dialogs);
}

} // namespace

bool ValidateSampleName(SampleChange change, const std::vector<std::string>& names, const SampleInput& input,
                        Dialogs& dialogs)
{
    if (!fitsLine(change, names, input, dialogs)) {
        return false;
    }
    if (!findSample(input.samplesFolder, input.typedName)) {
        return refuse(noSuchSample(input.samplesFolder, input.typedName), dialogs);
    }
    return hasRightFormat(input, dialogs);
}

SampleResult addSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    if (!mayChange(editor, dialogs) || !ValidateSampleName(SampleChange::Add, names, input, dialogs)) {
        return {};
    }
    names.push_back(input.typedName);
    const std::size_t last = names.size() - 1;
    return store(editor, {"Add sample", "Ajouter le sample"}, std::move(names), last, input, dialogs);
}

SampleResult renameSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    const bool isSelected = input.selected && *input.selected < names.size();
    if (isSelected && input.typedName == names[*input.selected]) {
        return {}; // its own name
    }
    if (!mayChange(editor, dialogs)) {
        return {};
    }
    if (!isSelected) {
        refuse(selectFirst, dialogs);
        return {};
    }
    if (input.typedName.empty()) {
        return {false, *input.selected, names[*input.selected]};
    }
    if (!ValidateSampleName(SampleChange::Rename, names, input, dialogs)) {
        return {};
    }
    names[*input.selected] = input.typedName;
    return store(editor, {"Rename sample", "Renommer le sample"}, std::move(names), *input.selected, input,
                 dialogs);
}

SampleResult removeSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    const Title& title = titles::removeSample;
    if (!mayChange(editor, dialogs)) {
        return {};
    }
    const bool isSelected = input.selected && *input.selected < names.size();
    if (names.size() < 2 || !isSelected) {
        dialogs.show({MessageIcon::Exclamation, title,
                      names.size() == 1
                          ? BilingualText("Only one sample in the list. Remove unauthorized",
                                          "Plus qu'un sample dans la liste. Suppression non autorisée")
                          : selectFirst});
        return {};
    }
    // The box may hold a name that was typed since; what goes is the selected one.
    const std::string name = names[*input.selected];
    const std::string shown = utf8FromCodePage(name);
    const Question question{
        title,
        {"Remove sample [" + shown + "]", "Confirmez la suppression du sample [" + shown + "]"},
        Buttons::YesNo};
    if (dialogs.ask(question) != Answer::Yes) {
        return {false, *input.selected, name};
    }
    names.erase(names.begin() + static_cast<std::ptrdiff_t>(*input.selected));
    SampleResult result = store(editor, title, std::move(names), 0, input, dialogs);
    if (result.changed) {
        result.typedName = editor.record().Samples.front();
    }
    return result;
}

bool setSamples(LineEditor& editor, const std::vector<std::string>& names,
                const std::filesystem::path& samplesFolder, Dialogs& dialogs)
{
    std::vector<std::string> before = namesOf(editor);
    if (names == before && !names.empty()) {
        return !editor.edited() || editor.accept(dialogs);
    }
    std::vector<std::string> judged;
    std::vector<std::string> added;
    for (const std::string& name : names) {
        const auto kept = std::ranges::find(before, name);
        if (kept == before.end()) {
            added.push_back(name);
        } else {
            judged.push_back(name);
            before.erase(kept);
        }
    }
    if (names.empty()) {
        added.emplace_back(); // refused like an empty box
    }
    if (!mayChange(editor, dialogs)) {
        return false;
    }
    for (const std::string& name : added) {
        if (!ValidateSampleName(SampleChange::Add, judged, {samplesFolder, name, {}}, dialogs)) {
            return false;
        }
        judged.push_back(name);
    }
    return editor.storeSamples(names, dialogs);
}

namespace {

// A sound file on its way into the samples folder.
struct Newcomer
{
    std::filesystem::path file;
    std::string name; // of the sample
    bool isThere;     // it lies in the folder under that name
};

bool isInFolder(const std::filesystem::path& file, const std::filesystem::path& folder)
{
    std::error_code ignored;
    return std::filesystem::equivalent(file.parent_path(), folder, ignored);
}

// The name under which a file of the samples folder is a sample already.
std::optional<std::string> nameInFolder(const std::filesystem::path& file,
                                        const std::filesystem::path& folder)
{
    const CodePageText name = codePagePath(file.filename());
    const std::string stem = codePagePath(file.stem()).bytes;
    const bool isWav = sameName(codePagePath(file.extension()).bytes, ".wav");
    return isWav && name.exact && !hasForbiddenCharacter(stem) && !hasWildcard(stem) &&
                   isInFolder(file, folder)
               ? std::optional(stem)
               : std::nullopt;
}

std::size_t roomFor(const std::vector<std::string>& names)
{
    std::size_t used = names.size() + 1;
    for (const std::string& name : names) {
        used += name.size();
    }
    return used < sampleFieldWidth ? sampleFieldWidth - used : 0;
}

// The name that the user gives to the sample, in a dialog that shows what is in the folder.
std::optional<std::string> askForName(const std::filesystem::path& file, const std::filesystem::path& folder,
                                      const std::string& proposed, Dialogs& dialogs)
{
    OpenFileQuestion question{titles::addSoundFile,
                              {"WAV file (*.wav)", "fichier WAV (*.wav)"},
                              {"*.wav"},
                              folder,
                              sampleFileName(proposed),
                              false,
                              true};
    const std::optional<std::filesystem::path> chosen = dialogs.chooseFile(question);
    if (!chosen) {
        return std::nullopt;
    }
    if (!isInFolder(*chosen, folder)) {
        const std::string shown = displayPath(file.filename());
        dialogs.show({MessageIcon::Exclamation, titles::addSoundFile,
                      BilingualText("The sample of [" + shown + "] must be in\n",
                                    "Le sample de [" + shown + "] doit être dans\n") +
                          displayPath(folder / "")});
        return std::nullopt;
    }
    const CodePageText name = codePagePath(chosen->filename());
    if (!name.exact) {
        refuse({"The name has characters that sounds.txt cannot hold.",
                "Le nom contient des caractères que sounds.txt ne peut pas contenir."},
               dialogs);
        return std::nullopt;
    }
    const bool hasEnding = sameName(codePagePath(chosen->extension()).bytes, ".wav");
    return hasEnding ? name.bytes.substr(0, name.bytes.size() - 4) : name.bytes;
}

// Each with a name that the line takes; no file is written before. Nothing when one was refused.
std::optional<std::vector<Newcomer>> nameNewcomers(const std::vector<std::filesystem::path>& files,
                                                   const std::filesystem::path& folder, SampleNames naming,
                                                   std::vector<std::string> names, Dialogs& dialogs)
{
    std::vector<Newcomer> newcomers;
    for (const std::filesystem::path& file : files) {
        std::optional<std::string> name = nameInFolder(file, folder);
        const bool isThere = name.has_value();
        if (!isThere) {
            const std::string proposed = proposedSampleName(file, folder, names, roomFor(names));
            name = naming == SampleNames::AsProposed ? proposed : askForName(file, folder, proposed, dialogs);
        }
        if (!name || !fitsLine(SampleChange::Add, names, {folder, *name, {}}, dialogs)) {
            return std::nullopt;
        }
        names.push_back(*name);
        newcomers.push_back({file, std::move(*name), isThere});
    }
    return newcomers;
}

// A sample of another content is never replaced unasked, and is kept.
bool confirmReplacing(const std::filesystem::path& sample, Dialogs& dialogs)
{
    const std::string shown = bracketedPath(sample.filename());
    const Question question{
        titles::addSoundFile,
        BilingualText("There is a sample " + shown + " already. Replace it?\nIt is kept in ",
                      "Il y a déjà un sample " + shown + ". Le remplacer ?\nIl est conservé dans ") +
            displayPath(originalsFolder(sample.parent_path())),
        Buttons::YesNo, true};
    if (dialogs.ask(question) != Answer::Yes) {
        return false;
    }
    const Result<std::filesystem::path> kept = keepOriginal(sample);
    if (!kept) {
        dialogs.show({MessageIcon::Critical, titles::addSoundFile, kept.failure().text});
    }
    return static_cast<bool>(kept);
}

// True when the sample is in the folder in the right format.
bool bringIn(const Newcomer& newcomer, const std::filesystem::path& folder, BilingualText& told,
             Dialogs& dialogs)
{
    if (newcomer.isThere) {
        return hasRightFormat({folder, newcomer.name, {}}, dialogs);
    }
    const auto fail = [&dialogs](const Failure& failure) {
        dialogs.show({MessageIcon::Critical, titles::addSoundFile, failure.text});
        return false;
    };
    const Result<ConvertedSample> converted = convertSample(newcomer.file);
    if (!converted) {
        return fail(converted.failure());
    }
    const std::string fileName = sampleFileName(newcomer.name);
    const Result<std::optional<FolderEntry>> entry = lookUp(folder, fileName);
    if (!entry) {
        return fail(entry.failure());
    }
    const std::filesystem::path target = *entry ? (*entry)->path : folder / nativePath(fileName);
    if (*entry) {
        const Result<FileContent> there = readFile(target);
        if (there && there->bytes == converted->bytes) {
            return true;
        }
        if (!confirmReplacing(target, dialogs)) {
            return false;
        }
    }
    if (const Problem problem = writeFileSafely(target, converted->bytes)) {
        return fail(*problem);
    }
    if (const BilingualText notes = converted->notes(); !notes.empty()) {
        told += BilingualText::same((told.empty() ? "" : "\n") + utf8FromCodePage(fileName)) +
                BilingualText(": ", " : ") + notes;
    }
    return true;
}

// Letters without their accents, "_" for blanks; what else is no letter or digit goes.
std::string plainName(const std::filesystem::path& file)
{
    // From U+00C0 on.
    constexpr std::string_view letters = "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYTsaaaaaaaceeeeiiiidnooooo-ouuuuyty";
    const std::u8string stem = file.stem().u8string();
    std::string name;
    for (std::size_t i = 0; i < stem.size(); ++i) {
        const auto c = static_cast<unsigned char>(stem[i]);
        const bool isLatin = (c == 0xC3) && i + 1 < stem.size();
        if (isLatin) {
            name += letters[static_cast<unsigned char>(stem[++i]) & 0x3FU];
        } else if (c == ' ' || c == '_' || c == '\t') {
            name += '_';
        } else if (c < 0x80 && (std::isalnum(c) != 0 || c == '-' || c == '.')) {
            name += static_cast<char>(c);
        }
    }
    return name.find_first_not_of("_-.") == std::string::npos ? "sample" : name;
}

} // namespace

std::string proposedSampleName(const std::filesystem::path& file, const std::filesystem::path& folder,
                               const std::vector<std::string>& names, std::size_t room)
{
    const std::string plain = plainName(file);
    room = std::max<std::size_t>(room, 1); // where there is none, the line refuses the name
    const auto isTaken = [&](const std::string& name) {
        const auto isName = [&name](const std::string& other) { return sameName(name, other); };
        return std::ranges::any_of(names, isName) || findEntry(folder, sampleFileName(name));
    };
    constexpr int mostNumbers = 999;
    std::string name = plain.substr(0, room);
    for (int number = 2; number <= mostNumbers && (isTaken(name) || !isPlainFileName(name)); ++number) {
        const std::string ending = std::to_string(number);
        name = plain.substr(0, room - std::min(room, ending.size())) + ending;
    }
    return name;
}

SampleResult addSoundFiles(LineEditor& editor, const std::vector<std::filesystem::path>& files,
                           const std::filesystem::path& samplesFolder, SampleNames naming, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    if (files.empty() || !mayChange(editor, dialogs)) {
        return {};
    }
    const std::optional<std::vector<Newcomer>> newcomers =
        nameNewcomers(files, samplesFolder, naming, names, dialogs);
    BilingualText told;
    const std::size_t before = names.size();
    for (const Newcomer& newcomer : newcomers.value_or(std::vector<Newcomer>())) {
        if (bringIn(newcomer, samplesFolder, told, dialogs)) {
            names.push_back(newcomer.name);
        }
    }
    if (!told.empty()) {
        dialogs.show({MessageIcon::Information, titles::addSoundFile, told});
    }
    if (names.size() == before) {
        return {};
    }
    const std::size_t last = names.size() - 1;
    const SampleInput input{samplesFolder, names.back(), {}};
    return store(editor,
                 {"Add sound files (the files stay)", "Ajouter des fichiers son (les fichiers restent)"},
                 std::move(names), last, input, dialogs);
}

} // namespace tavrel
