// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ApplyChanges.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/Titles.h"
#include "catalogue/ChangedLines.h"
#include "catalogue/FileText.h"
#include "catalogue/SoundsVersions.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// sounds.txt as it stands on the disk when the user applies.
struct FileOnDisk
{
    std::optional<FileContent> content; // nothing when the file has gone
    std::size_t linesWithoutSound = 0;
    std::string theirText; // but for the blank ones, with their numbers

    std::optional<FileStamp> stamp() const { return content ? std::optional(content->stamp) : std::nullopt; }
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
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].find(':') != std::string_view::npos) {
            continue;
        }
        ++result.linesWithoutSound;
        if (lines[i].find_first_not_of(" \t") != std::string_view::npos) {
            result.theirText +=
                (result.theirText.empty() ? "" : "\n") + std::to_string(i + 1) + ": " + shownLine(lines[i]);
        }
    }
    result.content = std::move(*content);
    return result;
}

Result<bool> holdsFirstBackup(const fs::path& folder)
{
    const Result<std::optional<FolderEntry>> backup = lookUp(folder, firstBackupName);
    if (!backup) {
        return backup.failure();
    }
    if (*backup && !(*backup)->isFile) {
        return wrongContent(
            (*backup)->path,
            {"This is not a file, so it cannot be a backup of [sounds.txt]. Rename it.",
             "Ce n'est pas un fichier, donc pas une sauvegarde de [sounds.txt]. Renommez-le."});
    }
    return backup->has_value();
}

BilingualText droppedLines(std::size_t count, const BilingualText& whereKept)
{
    return counted(count,
                   {"line of [sounds.txt] is not a sound (a comment or a blank line) and will not be written "
                    "back.\n",
                    "ligne de [sounds.txt] n'est pas un son (commentaire, ligne vide) et ne sera pas "
                    "réécrite.\n"},
                   {"lines of [sounds.txt] are not sounds (comments, blank lines) and will not be written "
                    "back.\n",
                    "lignes de [sounds.txt] ne sont pas des sons (commentaires, lignes vides) et ne seront "
                    "pas réécrites.\n"}) +
           whereKept;
}

Question confirmation()
{
    return {titles::modification,
            {"Confirm modification\nAll the changes will be applied to the [sounds.txt] file",
             "Confirmer la modification\nTous les changements seront appliqués au fichier [sounds.txt]"},
            Buttons::YesNo};
}

Question overwriting(const std::optional<fs::path>& copy)
{
    BilingualText text("[sounds.txt] is no longer in its folder.\nWrite it again?",
                       "[sounds.txt] n'est plus dans son répertoire.\nLe réécrire ?");
    if (copy) {
        const std::string name = bracketedPath(copy->filename());
        text = {
            "[sounds.txt] was changed by another program since it was loaded.\nThe file with those changes "
            "is kept beside it as " +
                name + ".\nOverwrite those changes?",
            "[sounds.txt] a été modifié par un autre programme depuis son chargement.\nLe fichier ainsi "
            "modifié est conservé à côté sous le nom " +
                name + ".\nÉcraser ces modifications ?"};
    }
    return {titles::modification, text, Buttons::YesNo, true, true};
}

// One run of applyChanges().
class Application
{
public:
    Application(SoundCatalogue& catalogue, const ApplyTarget& target, Dialogs& dialogs)
        : m_catalogue(catalogue), m_target(target), m_dialogs(dialogs), m_file(catalogue.file().path),
          m_ownLocks({target.programFolder, m_file}, std::chrono::seconds(2)),
          m_locks(target.locks != nullptr ? *target.locks : m_ownLocks), m_agreed(catalogue.file().stamp)
    {}

    bool run()
    {
        if (!confirm()) {
            return false;
        }
        Outcome outcome = Outcome::Changed;
        while (outcome == Outcome::Changed) {
            outcome = confirmFile() ? write() : Outcome::Refused;
        }
        return outcome == Outcome::Written;
    }

private:
    enum class Outcome { Written, Refused, Changed };

    Outcome report(const Failure& failure)
    {
        m_dialogs.show({MessageIcon::Critical, titles::modification, failure.text});
        return Outcome::Refused;
    }

    bool confirm()
    {
        const Result<FileOnDisk> onDisk = lookAtDisk(m_file);
        const Result<bool> backupExists = holdsFirstBackup(m_file.parent_path());
        if (!onDisk || !backupExists) {
            report(!onDisk ? onDisk.failure() : backupExists.failure());
            return false;
        }
        const BilingualText whereKept =
            *backupExists ? BilingualText("A copy of the file is kept beside it.",
                                          "Une copie du fichier est conservée à côté.")
                          : BilingualText("[Orig_Sounds.txt] keeps them.", "[Orig_Sounds.txt] les conserve.");
        Question dropping{titles::modification, droppedLines(onDisk->linesWithoutSound, whereKept),
                          Buttons::OkCancel};
        dropping.details = BilingualText::same(onDisk->theirText);
        if (m_dialogs.appliesLater()) { // a window
            dropping.text += BilingualText("\n\"Parameters\" has an option that writes them back.",
                                           "\n« Paramètres » a une option qui les réécrit.");
        }
        if (onDisk->linesWithoutSound > 0 && !m_target.keepComments &&
            m_dialogs.ask(dropping) != Answer::Ok) {
            return false;
        }
        return m_target.confirm ? m_target.confirm(confirmation())
                                : m_dialogs.ask(confirmation()) == Answer::Yes;
    }

    // The user agrees to overwrite just that file, which may change while a question is on the screen. Nobody
    // waits for an answer with the locks.
    bool confirmFile()
    {
        while (true) {
            const Result<FileOnDisk> onDisk = lookAtDisk(m_file);
            if (!onDisk) {
                report(onDisk.failure());
                return false;
            }
            if (onDisk->stamp() == m_agreed) {
                return true;
            }
            m_locks.release();
            m_versionTime = std::chrono::system_clock::now();
            m_namedCopy = nameOfCopy(*onDisk);
            if (!mayOverwrite(onDisk->content.has_value())) {
                return false;
            }
            m_agreed = onDisk->stamp();
        }
    }

    // Whoever has taken over what he wants of the other file has agreed.
    bool mayOverwrite(bool isThere)
    {
        Question question = overwriting(m_namedCopy);
        if (isThere && m_target.compare) {
            question.otherChoice = {"Compare", "Comparer"};
        }
        Answer answer = m_dialogs.ask(question);
        while (answer == Answer::Other) {
            answer = m_target.compare(m_file) ? Answer::Yes : m_dialogs.ask(question);
        }
        return answer == Answer::Yes;
    }

    std::optional<fs::path> nameOfCopy(const FileOnDisk& onDisk) const
    {
        if (!onDisk.content) {
            return std::nullopt;
        }
        if (keepsVersion()) {
            const Result<fs::path> version = nextVersion(m_file, m_target.wadName, m_versionTime);
            return version ? *version : m_file.parent_path() / nativePath(versionsFolderName);
        }
        const Result<bool> backupExists = holdsFirstBackup(m_file.parent_path());
        return backupExists && !*backupExists ? m_file.parent_path() / nativePath(firstBackupName)
                                              : nextCopyBeside(m_file);
    }

    bool keepsVersion() const { return m_target.keepVersion && !m_withoutVersion; }

    // The first apply keeps the file as it was before this program; later ones keep what would be lost, or
    // every file that they replace.
    Problem keepBackup(const FileOnDisk& onDisk)
    {
        m_kept.clear();
        m_versionFailed = false;
        if (!onDisk.content) {
            return std::nullopt;
        }
        const std::string& bytes = onDisk.content->bytes;
        const Result<bool> backupExists = holdsFirstBackup(m_file.parent_path());
        if (!backupExists) {
            return backupExists.failure();
        }
        if (!*backupExists) {
            const fs::path backup = m_file.parent_path() / nativePath(firstBackupName);
            if (Problem problem = createFileSafely(backup, bytes, m_file)) {
                return problem;
            }
            m_kept.push_back(backup);
        }
        if (keepsVersion()) {
            Problem problem = take(tavrel::keepVersion(m_file, bytes, m_target.wadName, m_versionTime));
            m_versionFailed = problem.has_value();
            return problem;
        }
        const bool dropsLines = onDisk.linesWithoutSound > 0 && !m_target.keepComments;
        const bool isChanged = onDisk.stamp() != m_catalogue.file().stamp;
        return m_kept.empty() && (dropsLines || isChanged) ? take(keepCopyBeside(m_file, bytes)) : Problem();
    }

    Problem take(const Result<fs::path>& kept)
    {
        if (!kept) {
            return kept.failure();
        }
        m_kept.push_back(*kept);
        return std::nullopt;
    }

    // Without the locks: it may take a while.
    Outcome askWithoutVersion(const Failure& failure)
    {
        m_locks.release();
        const Question question{titles::modification,
                                failure.text + BilingualText("\nApply without keeping the old file?",
                                                             "\nAppliquer sans conserver l'ancien fichier ?"),
                                Buttons::YesNo, true, true};
        if (m_dialogs.ask(question) != Answer::Yes) {
            return Outcome::Refused;
        }
        m_withoutVersion = true;
        return Outcome::Changed;
    }

    Outcome write()
    {
        if (const Problem problem = m_locks.take()) {
            m_dialogs.show({MessageIcon::Exclamation, titles::modification, problem->text});
            return Outcome::Refused;
        }
        if (const std::optional<BilingualText> notice = m_locks.notice()) {
            m_dialogs.show({MessageIcon::Information, titles::modification, *notice});
        }
        const Result<FileOnDisk> onDisk = lookAtDisk(m_file);
        if (!onDisk) {
            return report(onDisk.failure());
        }
        if (onDisk->stamp() != m_agreed) {
            return Outcome::Changed;
        }
        if (const Problem problem = keepBackup(*onDisk)) {
            removeKept({});
            return m_versionFailed ? askWithoutVersion(*problem) : report(*problem);
        }
        return replace(*onDisk);
    }

    FileText textToWrite(const FileOnDisk& onDisk) const
    {
        if (!m_target.keepComments || !onDisk.content) {
            return soundsAlone(m_catalogue);
        }
        return soundsWithComments(m_catalogue, onDisk.content->bytes,
                                  onDisk.stamp() == m_catalogue.file().stamp);
    }

    Outcome replace(const FileOnDisk& onDisk)
    {
        const FileText file = textToWrite(onDisk);
        const std::string& text = file.bytes;
        const Result<bool> written = writeFileIf(m_file, text, [this] {
            const Result<FileOnDisk> onDisk = lookAtDisk(m_file);
            return onDisk && onDisk->stamp() == m_agreed;
        });
        if (!written || !*written) {
            removeKept(text);
            return written ? Outcome::Changed : report(written.failure());
        }
        m_catalogue.markApplied(stampOf(text), file.linesInFile);
        if (m_namedCopy && !m_kept.empty() && m_kept.back() != *m_namedCopy) {
            m_dialogs.show(
                {MessageIcon::Information, titles::modification,
                 BilingualText("The file with the changes of the other program is kept as\n",
                               "Le fichier modifié par l'autre programme est conservé sous le nom\n") +
                     displayPath(m_kept.back())});
        }
        if (const Problem problem =
                writeChangedLines(m_target.programFolder, m_target.wadName, m_catalogue)) {
            report(
                {BilingualText("[sounds.txt] is written, but not the record of the changed lines.\n",
                               "[sounds.txt] est écrit, mais pas l'enregistrement des lignes modifiées.\n") +
                 problem->text});
        }
        return Outcome::Written;
    }

    // Only while it keeps nothing that is not in the file itself: a network disk may report a failure and
    // have replaced the file all the same.
    void removeKept(const std::string& newText)
    {
        const Result<FileContent> present = readFile(m_file);
        if (present && present->bytes != newText) {
            for (const fs::path& copy : m_kept) {
                std::error_code ignored;
                fs::remove(copy, ignored);
                if (copy.parent_path() != m_file.parent_path()) {
                    fs::remove(copy.parent_path(), ignored); // when it holds no other version
                }
            }
        }
        m_kept.clear();
    }

    SoundCatalogue& m_catalogue;
    const ApplyTarget& m_target;
    Dialogs& m_dialogs;
    fs::path m_file;
    ChangeLocks m_ownLocks;
    ChangeLocks& m_locks;
    std::vector<fs::path> m_kept;        // of the file that is replaced
    std::optional<fs::path> m_namedCopy; // in the last question
    std::chrono::system_clock::time_point m_versionTime =
        std::chrono::system_clock::now(); // of the last question
    bool m_withoutVersion = false;
    bool m_versionFailed = false;
    std::optional<FileStamp> m_agreed; // nothing: that there is no such file
};

} // namespace

bool applyChanges(SoundCatalogue& catalogue, const ApplyTarget& target, Dialogs& dialogs)
{
    return Application(catalogue, target, dialogs).run();
}

} // namespace tavrel
