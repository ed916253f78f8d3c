// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundsText.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/TextFile.h"
#include "catalogue/CatalogueLoading.h"

namespace tavrel {

Result<SoundsText> SoundsText::load(const std::filesystem::path& creatorFolder)
{
    const Result<TextFile> file = readTextFile(creatorFolder, soundsFileName, largestLines);
    if (!file) {
        return file.failure();
    }
    return SoundsText(file->lines());
}

SoundsText::SoundsText(const std::vector<std::string_view>& lines)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        m_text.append(i > 0 ? "\n" : "").append(lines[i]);
    }
    m_upperText = upperCase(m_text);
}

std::optional<std::size_t> SoundsText::findNext(std::string_view wanted, bool matchCase)
{
    if (wanted.empty()) {
        return std::nullopt;
    }
    const std::size_t found =
        matchCase ? m_text.find(wanted, m_position) : m_upperText.find(upperCase(wanted), m_position);
    if (found == std::string::npos) {
        return std::nullopt;
    }
    m_position = found + 1;
    return found;
}

} // namespace tavrel
