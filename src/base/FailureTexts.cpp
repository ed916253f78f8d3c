// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FailureTexts.h"

#include "base/CodePage.h"
#include "base/System.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t mostShown = 8;

std::string reason(const std::error_code& error)
{
    return error ? "\n" + system::errorText(error) : std::string();
}

std::string bracketed(const std::filesystem::path& file)
{
    return "[" + withoutControls(displayPath(file)) + "]";
}

} // namespace

Failure cannotRead(const std::filesystem::path& file, const std::error_code& error)
{
    return {BilingualText("Cannot read ", "Impossible de lire ") + bracketed(file) + reason(error)};
}

Failure cannotWrite(const std::filesystem::path& file, const std::error_code& error)
{
    return {BilingualText("Cannot write ", "Impossible d'écrire ") + bracketed(file) + reason(error)};
}

Failure fileMissing(const std::filesystem::path& folder, std::string_view name)
{
    const std::string file = "[" + shownText(name) + "]";
    return {BilingualText("No " + file + " file\nin ", "Aucun fichier " + file + "\ndans ") +
            displayPath(folder)};
}

Failure wrongContent(const std::filesystem::path& file, const BilingualText& what)
{
    return {BilingualText::same(bracketed(file) + "\n") + what};
}

Failure wrongLine(const std::filesystem::path& file, std::size_t line, const BilingualText& what)
{
    const std::string number = std::to_string(line);
    const BilingualText where(", line " + number + "\n", ", ligne " + number + "\n");
    return {BilingualText::same(bracketed(file)) + where + what};
}

BilingualText listOfNumbers(std::span<const std::size_t> numbers)
{
    std::string first;
    for (const std::size_t number : numbers.first(std::min(numbers.size(), mostShown))) {
        first += (first.empty() ? "" : ", ") + std::to_string(number);
    }
    const BilingualText text = BilingualText::same(first);
    if (numbers.size() <= mostShown) {
        return text;
    }
    const std::string rest = std::to_string(numbers.size() - mostShown);
    return text + BilingualText(" and " + rest + " more", " et " + rest + " autres");
}

BilingualText listOf(const std::vector<Failure>& notices)
{
    BilingualText text;
    for (std::size_t i = 0; i < std::min(notices.size(), mostShown); ++i) {
        text += (i == 0 ? BilingualText() : BilingualText::same("\n\n")) + notices[i].text;
    }
    if (notices.size() > mostShown) {
        const std::string rest = std::to_string(notices.size() - mostShown);
        text += BilingualText("\n\n... and " + rest + " more.", "\n\n... et " + rest + " autres.");
    }
    return text;
}

} // namespace tavrel
