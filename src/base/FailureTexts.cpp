// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FailureTexts.h"

#include "base/CodePage.h"
#include "base/System.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t mostShown = 8;

BilingualText reason(const std::error_code& error)
{
    return error ? BilingualText::same("\n") + errorText(error) : BilingualText();
}

// The usual ones; the condition of an error is the same on all systems.
const struct
{
    std::errc condition{};
    BilingualText text;
} usualErrors[] = {
    {std::errc::no_such_file_or_directory,
     {"There is no such file or folder.", "Ce fichier ou répertoire n'existe pas."}},
    {std::errc::permission_denied, {"Access is denied.", "L'accès est refusé."}},
    {std::errc::operation_not_permitted, {"This is not permitted.", "Cette opération n'est pas permise."}},
    {std::errc::file_exists, {"The file exists already.", "Le fichier existe déjà."}},
    {std::errc::no_space_on_device, {"The disk is full.", "Le disque est plein."}},
    {std::errc::read_only_file_system,
     {"The disk is write-protected.", "Le disque est protégé contre l'écriture."}},
    {std::errc::is_a_directory, {"This is a folder.", "C'est un répertoire."}},
    {std::errc::not_a_directory, {"This is not a folder.", "Ce n'est pas un répertoire."}},
    {std::errc::directory_not_empty, {"The folder is not empty.", "Le répertoire n'est pas vide."}},
    {std::errc::io_error, {"The disk reports an error.", "Le disque signale une erreur."}},
    {std::errc::file_too_large, {"The file is too large.", "Le fichier est trop grand."}},
    {std::errc::filename_too_long, {"The name is too long.", "Le nom est trop long."}},
    {std::errc::device_or_resource_busy, {"It is in use at the moment.", "Il est en cours d'utilisation."}},
    {std::errc::too_many_files_open, {"Too many files are open.", "Trop de fichiers sont ouverts."}},
    {std::errc::not_enough_memory, {"There is not enough memory.", "La mémoire ne suffit pas."}},
};

// Windows counts it among the denied accesses, but the user can do something about it.
bool isUsedByAnotherProgram(const std::error_code& error)
{
#ifdef _WIN32
    constexpr int sharingViolation = 32;
    constexpr int lockViolation = 33;
    return error.category() == std::system_category() &&
           (error.value() == sharingViolation || error.value() == lockViolation);
#else
    return error == std::errc::text_file_busy;
#endif
}

} // namespace

std::string bracketedPath(const std::filesystem::path& file)
{
    return "[" + withoutControls(displayPath(file)) + "]";
}

BilingualText errorText(const std::error_code& error)
{
    if (isUsedByAnotherProgram(error)) {
        return {"Another program is using it.", "Un autre programme l'utilise."};
    }
    const auto* const usual = std::ranges::find_if(
        usualErrors, [&error](const auto& candidate) { return error == candidate.condition; });
    return usual != std::end(usualErrors) ? usual->text : BilingualText::same(system::errorText(error));
}

Failure cannotRead(const std::filesystem::path& file, const std::error_code& error)
{
    return {BilingualText("Cannot read ", "Impossible de lire ") + bracketedPath(file) + reason(error)};
}

Failure cannotWrite(const std::filesystem::path& file, const std::error_code& error)
{
    return {BilingualText("Cannot write ", "Impossible d'écrire ") + bracketedPath(file) + reason(error)};
}

Failure fileMissing(const std::filesystem::path& folder, std::string_view name)
{
    const std::string file = bracketed(name);
    return {BilingualText("No " + file + " file\nin ", "Aucun fichier " + file + "\ndans ") +
            displayPath(folder)};
}

Failure wrongContent(const std::filesystem::path& file, const BilingualText& what)
{
    return {BilingualText::same(bracketedPath(file) + "\n") + what};
}

Failure wrongLine(const std::filesystem::path& file, std::size_t line, const BilingualText& what)
{
    const std::string number = std::to_string(line);
    const BilingualText where(", line " + number + "\n", ", ligne " + number + "\n");
    return {BilingualText::same(bracketedPath(file)) + where + what};
}

BilingualText listOfNumbers(std::span<const std::size_t> numbers)
{
    std::string first;
    for (const std::size_t number : numbers.first(std::min(numbers.size(), mostShown))) {
        first += (first.empty() ? "" : ", ") + std::to_string(number);
    }
    BilingualText text = BilingualText::same(first);
    if (numbers.size() <= mostShown) {
        return text;
    }
    const std::string rest = std::to_string(numbers.size() - mostShown);
    return text + BilingualText(" and " + rest + " more", " et " + rest + " autres");
}

BilingualText listOf(const std::vector<Failure>& notices)
{
    NoticeList list;
    for (const Failure& notice : notices) {
        list.add(notice.text);
    }
    return list.text();
}

void NoticeList::add(const BilingualText& notice)
{
    if (m_count < mostShown) {
        m_first += (m_count == 0 ? BilingualText() : BilingualText::same("\n\n")) + notice;
    }
    ++m_count;
}

BilingualText NoticeList::text() const
{
    if (m_count <= mostShown) {
        return m_first;
    }
    const std::string rest = std::to_string(m_count - mostShown);
    return m_first + BilingualText("\n\n... and " + rest + " more.", "\n\n... et " + rest + " de plus.");
}

} // namespace tavrel
