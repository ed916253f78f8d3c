// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/ReferenceRegister.h"

#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"

#include <algorithm>

namespace tavrel {

namespace {

template <typename Iterator, typename Matches>
const WadReference* firstMatch(Iterator first, Iterator last, Matches matches)
{
    const auto found = std::find_if(first, last, matches);
    return found == last ? nullptr : &*found;
}

template <typename Append>
void readReferences(const TextFile& file, std::vector<Failure>& notices, Append append)
{
    std::size_t lineNumber = 0;
    for (const std::string_view line : file.lines()) {
        ++lineNumber;
        std::optional<RegisterRecord> record = splitRegisterRecord(line);
        if (record) {
            append(WadReference{std::move(record->wadName), std::move(record->letter),
                                std::move(record->title)});
        } else if (!line.empty()) {
            notices.push_back(wrongLine(file.path, lineNumber,
                                        {"This is no reference of three fields. It is passed over.",
                                         "Ce n'est pas une référence de trois champs. Elle est ignorée."}));
        }
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

Result<LoadedRegister> loadRegister(const std::filesystem::path& programFolder)
{
    const Result<TextFile> builtIn = readTextFile(programFolder, builtInReferencesFileName);
    if (!builtIn) {
        return builtIn.failure();
    }
    LoadedRegister loaded;
    ReferenceRegister& references = loaded.references;
    readReferences(*builtIn, loaded.notices,
                   [&references](WadReference reference) { references.appendBuiltIn(std::move(reference)); });
    if (!findEntry(programFolder, userReferencesFileName)) {
        return loaded;
    }
    const Result<TextFile> user = readTextFile(programFolder, userReferencesFileName);
    if (!user) {
        loaded.notices.push_back(user.failure());
        return loaded;
    }
    readReferences(*user, loaded.notices,
                   [&references](WadReference reference) { references.appendUser(std::move(reference)); });
    return loaded;
}

} // namespace tavrel
