// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterReplacementNote.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "references/LetterList.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t letterLength = 2;

// In the form of a register line, whose first field may hold anything.
std::string lineOf(const LetterReplacement& replacement)
{
    RecordWriter writer;
    writer.text(displayPath(replacement.soundsFile))
        .text(replacement.oldLetter + replacement.newLetter)
        .text(replacement.wadName);
    return writer.bytes();
}

Result<std::vector<std::string>> linesOf(const fs::path& programFolder)
{
    const Result<std::optional<FolderEntry>> entry = lookUp(programFolder, letterReplacementsFileName);
    if (!entry || !*entry) {
        return entry ? Result<std::vector<std::string>>(std::vector<std::string>()) : entry.failure();
    }
    const Result<TextFile> file = readTextFile((*entry)->path);
    if (!file) {
        return file.failure();
    }
    const std::vector<std::string_view> lines = file->lines();
    return std::vector<std::string>(lines.begin(), lines.end());
}

// The last note goes with its file.
Problem write(const fs::path& programFolder, const std::vector<std::string>& lines)
{
    const Result<fs::path> file = fileToWrite(programFolder, letterReplacementsFileName);
    if (!file) {
        return file.failure();
    }
    if (lines.empty()) {
        std::error_code error;
        fs::remove(*file, error);
        return error ? Problem(cannotWrite(*file, error)) : Problem();
    }
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return writeFileSafely(*file, text);
}

bool isCarried(const SoundCatalogue& catalogue, const std::string& letter)
{
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::vector<std::string> letters = lettersOf(ParseSoundLine(catalogue.currentLine(k)));
        if (std::ranges::find(letters, letter) != letters.end()) {
            return true;
        }
    }
    return false;
}

} // namespace

Problem noteLetterReplacement(const fs::path& programFolder, const LetterReplacement& replacement)
{
    Result<std::vector<std::string>> lines = linesOf(programFolder);
    if (!lines) {
        return lines.failure();
    }
    std::erase(*lines, lineOf(replacement));
    lines->push_back(lineOf(replacement));
    return write(programFolder, *lines);
}

Problem forgetLetterReplacement(const fs::path& programFolder, const LetterReplacement& replacement)
{
    Result<std::vector<std::string>> lines = linesOf(programFolder);
    if (!lines) {
        return lines.failure();
    }
    return std::erase(*lines, lineOf(replacement)) == 0 ? Problem() : write(programFolder, *lines);
}

BilingualText halfReplacedLetter(const LetterReplacement& replacement)
{
    const std::string before = "[#" + shownText(replacement.oldLetter) + "]";
    const std::string after = "[#" + shownText(replacement.newLetter) + "]";
    const std::string name = bracketed(replacement.wadName);
    return {
        "The letter " + before + " of " + name + " was to become " + after +
            ". [sounds.txt] has the new letter, the reference still has the old one.\nReplace the letter once "
            "more: that completes it.",
        "La lettre " + before + " de " + name + " devait devenir " + after +
            ". [sounds.txt] a la nouvelle lettre, la référence a encore l'ancienne.\nRemplacez la lettre "
            "encore une fois : cela complète le remplacement."};
}

std::vector<Failure> halfReplacedLetters(const fs::path& programFolder, const SoundCatalogue& catalogue,
                                         const ReferenceRegister& references)
{
    std::vector<Failure> notices;
    const Result<std::vector<std::string>> lines = linesOf(programFolder);
    if (!lines) {
        return {lines.failure()};
    }
    for (const std::string& line : *lines) {
        const std::optional<RegisterRecord> record = splitRegisterRecord(line);
        if (!record || record->letter.size() != 2 * letterLength ||
            record->title != displayPath(catalogue.file().path)) {
            continue;
        }
        const LetterReplacement replacement{catalogue.file().path, record->wadName,
                                            record->letter.substr(0, letterLength),
                                            record->letter.substr(letterLength)};
        const WadReference* const reference = references.findUserWad(record->wadName);
        const bool hasOldLetter = reference != nullptr && reference->letter == replacement.oldLetter;
        if (hasOldLetter && !isCarried(catalogue, replacement.oldLetter)) {
            notices.push_back({halfReplacedLetter(replacement)});
        }
    }
    return notices;
}

} // namespace tavrel
