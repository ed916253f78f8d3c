// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ApplyChanges.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/Titles.h"
#include "catalogue/SoundLine.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

void report(const Failure& failure, Dialogs& dialogs)
{
    dialogs.show({MessageIcon::Critical, titles::modification, failure.text});
}

// sounds.txt as it stands on the disk when the user applies.
struct FileOnDisk
{
    std::optional<FileContent> content; // nothing when the file has gone
    std::size_t linesWithoutSound = 0;
};

Result<FileOnDisk> lookAtDisk(const fs::path& file)
{
    std::error_code error;
    if (!fs::exists(file, error) && !error) {
        return FileOnDisk{};
    }
    Result<FileContent> content = readFile(file);
    if (!content) {
        return content.failure();
    }
    FileOnDisk result;
    const TextFile text{file, content->bytes, false, {}};
    const std::vector<std::string_view> lines = text.lines();
    result.linesWithoutSound = static_cast<std::size_t>(std::ranges::count_if(
        lines, [](std::string_view line) { return line.find(':') == std::string_view::npos; }));
    result.content = std::move(*content);
    return result;
}

void announceDroppedLines(std::size_t count, bool backupExists, Dialogs& dialogs)
{
    const std::string number = std::to_string(count);
    BilingualText text(
        number +
            " line(s) of [sounds.txt] are no sounds (comments, blank lines) and will not be written back.",
        number +
            " ligne(s) de [sounds.txt] ne sont pas des sons (commentaires, lignes vides) et ne seront pas "
            "réécrites.");
    text += backupExists
                ? BilingualText("\nA copy of the file is kept beside it.",
                                "\nUne copie du fichier est conservée à côté.")
                : BilingualText("\n[Orig_Sounds.txt] keeps them.", "\n[Orig_Sounds.txt] les conserve.");
    dialogs.show({MessageIcon::Information, titles::modification, text});
}

bool confirm(Dialogs& dialogs)
{
    const Question question{
        titles::modification,
        {"Confirm modification\nAll the changes will be applied to the [sounds.txt] file",
         "Confirmer la modification\nTous les changements seront appliqués au fichier [sounds.txt]"},
        Buttons::YesNo};
    return dialogs.ask(question) == Answer::Yes;
}

bool confirmOverwriting(bool fileIsThere, Dialogs& dialogs)
{
    const BilingualText text =
        fileIsThere ? BilingualText(
                          "[sounds.txt] was changed by another program since it was loaded.\nOverwrite "
                          "those changes?",
                          "[sounds.txt] a été modifié par un autre programme depuis son chargement.\nÉcraser "
                          "ces modifications ?")
                    : BilingualText("[sounds.txt] is no longer in its folder.\nWrite it anew?",
                                    "[sounds.txt] n'est plus dans son répertoire.\nLe réécrire ?");
    return dialogs.ask({titles::modification, text, Buttons::YesNo, true, true}) == Answer::Yes;
}

// The file as it stands once the user has agreed to overwrite just that file. It may change while a question
// is on the screen. Nothing when the user refuses or the file cannot be read.
std::optional<FileOnDisk> agreeOnFile(const SoundCatalogue::File& loaded, Dialogs& dialogs)
{
    std::optional<FileStamp> agreed = loaded.stamp;
    while (true) {
        Result<FileOnDisk> onDisk = lookAtDisk(loaded.path);
        if (!onDisk) {
            report(onDisk.failure(), dialogs);
            return std::nullopt;
        }
        const std::optional<FileStamp> found =
            onDisk->content ? std::optional(onDisk->content->stamp) : std::nullopt;
        if (found == agreed) {
            return std::move(*onDisk);
        }
        if (!confirmOverwriting(found.has_value(), dialogs)) {
            return std::nullopt;
        }
        agreed = found;
    }
}

// The first apply keeps the file as it was before this program; later ones keep what would be lost.
Problem keepBackup(const FileOnDisk& onDisk, const fs::path& file, bool backupExists)
{
    if (!onDisk.content) {
        return std::nullopt;
    }
    if (!backupExists) {
        return createFileSafely(file.parent_path() / nativePath(firstBackupName), onDisk.content->bytes);
    }
    if (onDisk.linesWithoutSound > 0) {
        const Result<fs::path> copy = keepCopyBeside(file, onDisk.content->bytes);
        return copy ? Problem() : Problem(copy.failure());
    }
    return std::nullopt;
}

std::string soundsText(const SoundCatalogue& catalogue)
{
    std::string text;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        text += catalogue.currentLine(k);
        text += "\r\n";
    }
    return text;
}

std::string changedLinesText(const SoundCatalogue& catalogue)
{
    RecordWriter records;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::string& current = catalogue.currentLine(k);
        if (ParseSoundLine(catalogue.originalLine(k)).SampleText != ParseSoundLine(current).SampleText) {
            records.number(static_cast<std::int64_t>(k)).text(current).endRecord();
        }
    }
    return records.bytes();
}

Problem writeChangedLines(const ApplyTarget& target, const std::string& text)
{
    const fs::path folder = fileIn(target.programFolder, changedLinesFolderName);
    std::error_code ignored;
    fs::create_directory(folder, ignored);
    if (!isPlainFileName(target.wadName)) {
        return std::nullopt;
    }
    const std::string name = target.wadName + ".tor";
    if (!text.empty()) {
        return writeFileSafely(fileIn(folder, name), text);
    }
    std::error_code error;
    const std::optional<fs::path> old = findFile(folder, name);
    if (old) {
        fs::remove(*old, error);
    }
    return error ? Problem(cannotWrite(*old, error)) : Problem();
}

} // namespace

bool applyChanges(SoundCatalogue& catalogue, const ApplyTarget& target, Dialogs& dialogs)
{
    const fs::path file = catalogue.file().path;
    const std::string newSounds = soundsText(catalogue);
    const std::string changedLines = changedLinesText(catalogue);
    const Result<FileOnDisk> before = lookAtDisk(file);
    const Result<bool> backupExists = holdsEntry(file.parent_path(), firstBackupName);
    if (!before || !backupExists) {
        report(!before ? before.failure() : backupExists.failure(), dialogs);
        return false;
    }
    if (before->linesWithoutSound > 0) {
        announceDroppedLines(before->linesWithoutSound, *backupExists, dialogs);
    }
    if (!confirm(dialogs)) {
        return false;
    }
    const std::optional<FileOnDisk> onDisk = agreeOnFile(catalogue.file(), dialogs);
    if (!onDisk) {
        return false;
    }
    if (const Problem problem = keepBackup(*onDisk, file, *backupExists)) {
        report(*problem, dialogs);
        return false;
    }
    if (const Problem problem = writeFileSafely(file, newSounds)) {
        report(*problem, dialogs);
        return false;
    }
    const Result<FileContent> written = readFile(file);
    catalogue.markApplied(written ? written->stamp : FileStamp());
    if (const Problem problem = writeChangedLines(target, changedLines)) {
        report(*problem, dialogs);
    }
    return true;
}

} // namespace tavrel
