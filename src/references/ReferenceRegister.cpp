// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/ReferenceRegister.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "references/LetterTexts.h"
#include "references/LineLetters.h"

#include <algorithm>

namespace tavrel {

namespace {

template <typename Iterator, typename Matches>
const WadReference* firstMatch(Iterator first, Iterator last, Matches matches)
{
    const auto found = std::find_if(first, last, matches);
    return found == last ? nullptr : &*found;
}

// Some lines can be read and would be another reference, or none, once they are written with all quotes.
bool isReadAgain(const RegisterRecord& record)
{
    RecordWriter writer;
    writer.text(record.title).text(record.letter).text(record.wadName);
    return splitRegisterRecord(writer.bytes()) == record;
}

// `keep` gets the lines that are no references.
template <typename Append, typename Keep>
void readReferences(const TextFile& file, std::vector<Failure>& notices, Append append, Keep keep)
{
    std::size_t lineNumber = 0;
    for (const std::string_view line : file.lines()) {
        ++lineNumber;
        std::optional<RegisterRecord> record = splitRegisterRecord(line);
        if (record && isReadAgain(*record)) {
            append(
                WadReference{std::move(record->wadName), std::move(record->letter), std::move(record->title)},
                lineNumber);
        } else if (!line.empty()) {
            keep(std::string(line));
            notices.push_back(
                wrongLine(file.path, lineNumber,
                          {"This is not a reference of three fields. It was ignored, and stays "
                           "in the file for you to mend.",
                           "Ce n'est pas une référence de trois champs. Elle est ignorée et reste "
                           "dans le fichier, à corriger."}));
        }
    }
}

void noteOddities(const ReferenceRegister& references, const std::filesystem::path& file,
                  std::vector<Failure>& notices)
{
    if (references.userBegin() != BuiltInReferenceCount) {
        notices.push_back(wrongContent(
            file,
            {"The file does not contain 42 references. The first 42 of the register count as built-in anyway.",
             "Le fichier ne contient pas 42 références. Les 42 premières du "
             "registre comptent malgré tout comme intégrées."}));
    }
}

// A letter of the user's that would not be accepted today, or that stands in the register already.
void noteLetter(const ReferenceRegister& references, const WadReference& added,
                const std::filesystem::path& file, std::size_t line, std::vector<Failure>& notices)
{
    const std::string marked = "[#" + shownText(added.letter) + "]";
    const BilingualText letter(marked + ": ", marked + " : ");
    const BilingualText change(" Change it in Manage WAD/Letter References.",
                               " Changez-la dans Gestion des Références WAD/Lettre.");
    if (added.letter.size() == 2 && hasForbiddenLetterCharacter(added.letter)) {
        notices.push_back(wrongLine(file, line, letter + letterTexts::forbiddenCharacter + "." + change));
    } else if (!isLetterOfOneLevel(added.letter)) {
        notices.push_back(wrongLine(file, line,
                                    letter +
                                        BilingualText("A letter has 2 characters and does not start with g.",
                                                      "Une lettre a 2 caractères et ne commence pas par g.") +
                                        change));
    } else if (references.findLetter(added.letter) != nullptr) {
        notices.push_back(wrongLine(file, line,
                                    letter +
                                        BilingualText("Another reference has this letter, too.",
                                                      "Une autre référence a aussi cette lettre.") +
                                        change));
    }
}

} // namespace

void ReferenceRegister::appendBuiltIn(WadReference reference)
{
    const auto position = m_references.begin() + static_cast<std::ptrdiff_t>(m_builtInCount);
    m_references.insert(position, std::move(reference));
    ++m_builtInCount;
}

const WadReference* ReferenceRegister::findLetter(std::string_view letter) const
{
    return firstMatch(m_references.begin(), m_references.end(),
                      [letter](const WadReference& reference) { return reference.letter == letter; });
}

const WadReference* ReferenceRegister::findWad(std::string_view wadName) const
{
    return firstMatch(m_references.begin(), m_references.end(),
                      [wadName](const WadReference& reference) { return reference.wadName == wadName; });
}

const WadReference* ReferenceRegister::findUserWad(std::string_view wadName) const
{
    return firstMatch(m_references.begin() + static_cast<std::ptrdiff_t>(m_builtInCount), m_references.end(),
                      [wadName](const WadReference& reference) { return reference.wadName == wadName; });
}

const WadReference* ReferenceRegister::findUserLetter(std::string_view letter) const
{
    return firstMatch(m_references.begin() + static_cast<std::ptrdiff_t>(m_builtInCount), m_references.end(),
                      [letter](const WadReference& reference) { return reference.letter == letter; });
}

void ReferenceRegister::keepUserLine(std::string line)
{
    m_keptLines.push_back({m_references.size() - m_builtInCount, std::move(line)});
}

void ReferenceRegister::insertUser(std::size_t userIndex, WadReference reference)
{
    m_references.insert(m_references.begin() + static_cast<std::ptrdiff_t>(m_builtInCount + userIndex),
                        std::move(reference));
    for (KeptLine& line : m_keptLines) {
        if (line.userIndex > userIndex) {
            ++line.userIndex;
        }
    }
}

void ReferenceRegister::remove(std::size_t index)
{
    m_references.erase(m_references.begin() + static_cast<std::ptrdiff_t>(index));
    if (index < m_builtInCount) { // an installed file of more than 42
        --m_builtInCount;
        return;
    }
    for (KeptLine& line : m_keptLines) {
        if (line.userIndex + m_builtInCount > index) {
            --line.userIndex;
        }
    }
}

void ReferenceRegister::replaceLetter(std::string_view oldLetter, std::string_view newLetter)
{
    for (std::size_t i = m_builtInCount; i < m_references.size(); ++i) {
        if (m_references[i].letter == oldLetter) {
            m_references[i].letter = newLetter;
        }
    }
}

std::string ReferenceRegister::userFileText() const
{
    std::string text;
    auto kept = m_keptLines.begin();
    for (std::size_t i = m_builtInCount; i <= m_references.size(); ++i) {
        for (; kept != m_keptLines.end() && kept->userIndex + m_builtInCount <= i; ++kept) {
            text += kept->text + "\r\n";
        }
        if (i < m_references.size()) {
            const WadReference& reference = m_references[i];
            RecordWriter record;
            record.text(reference.title).text(reference.letter).text(reference.wadName).endRecord();
            text += record.bytes();
        }
    }
    return text;
}

void ReferenceRegister::isInStepWith(std::string text)
{
    m_textInFile = std::move(text);
    m_writtenText = userFileText();
}

Result<LoadedRegister> loadRegister(const std::filesystem::path& programFolder)
{
    const Result<TextFile> builtIn = readTextFile(programFolder, builtInReferencesFileName);
    if (!builtIn) {
        return builtIn.failure();
    }
    const Result<bool> hasUserFile = holdsEntry(programFolder, userReferencesFileName);
    if (hasUserFile && !*hasUserFile) {
        return parseRegister(*builtIn, std::nullopt);
    }
    return parseRegister(*builtIn, readTextFile(programFolder, userReferencesFileName));
}

LoadedRegister parseRegister(const TextFile& builtIn, const std::optional<Result<TextFile>>& user)
{
    LoadedRegister loaded;
    ReferenceRegister& references = loaded.references;
    readReferences(
        builtIn, loaded.notices,
        [&references](WadReference reference, std::size_t) {
            references.appendBuiltIn(std::move(reference));
        },
        [](const std::string&) {});
    noteOddities(references, builtIn.path, loaded.notices);
    if (!user) {
        return loaded;
    }
    if (!*user) {
        references.protectUserFile();
        loaded.notices.push_back(user->failure());
        return loaded;
    }
    const TextFile& file = **user;
    if (file.hadByteOrderMark) {
        loaded.notices.push_back(wrongContent(
            file.path, {"The file started with a Unicode mark (UTF-8 BOM). It is left out the next time the "
                        "references are written.",
                        "Le fichier commençait par une marque Unicode (BOM UTF-8). Elle sera omise à la "
                        "prochaine écriture des références."}));
    }
    readReferences(
        file, loaded.notices,
        [&](WadReference reference, std::size_t line) {
            noteLetter(references, reference, file.path, line, loaded.notices);
            references.appendUser(std::move(reference));
        },
        [&references](std::string line) { references.keepUserLine(std::move(line)); });
    references.isInStepWith(file.text);
    return loaded;
}

namespace {

Failure unreadableRegister(const std::filesystem::path& file, const ReferenceRegister& references)
{
    std::vector<Failure> unwritten;
    for (std::size_t i = references.userBegin(); i < references.size(); ++i) {
        const WadReference& reference = references.at(i);
        unwritten.push_back({BilingualText::same(
            shownText("[" + reference.wadName + "] #" + reference.letter + " " + reference.title))});
    }
    BilingualText text("The file could not be read and is therefore not replaced.",
                       "Le fichier n'a pas pu être lu et n'est donc pas remplacé.");
    if (!unwritten.empty()) {
        text += BilingualText("\nNot written:\n", "\nNon écrit :\n") + listOf(unwritten);
    }
    return wrongContent(file, text);
}

} // namespace

Problem saveRegister(const std::filesystem::path& programFolder, ReferenceRegister& references)
{
    const Result<std::optional<FolderEntry>> entry = lookUp(programFolder, userReferencesFileName);
    if (!entry) {
        return entry.failure();
    }
    const std::filesystem::path file = *entry ? (*entry)->path : programFolder / userReferencesFileName;
    const Result<TextFile> present = *entry ? readTextFile(file) : TextFile();
    if (references.isUserFileProtected() || !present) {
        return unreadableRegister(file, references);
    }
    if (*entry && present->text != references.textInFile()) {
        if (!references.hasChanged()) {
            return std::nullopt;
        }
        if (const Result<std::filesystem::path> kept = keepCopyBeside(file, present->text); !kept) {
            return kept.failure();
        }
    }
    std::string text = references.userFileText();
    if (Problem problem = writeFileSafely(file, text)) {
        return problem;
    }
    references.isInStepWith(std::move(text));
    return std::nullopt;
}

} // namespace tavrel
