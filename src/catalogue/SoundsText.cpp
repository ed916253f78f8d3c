// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundsText.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/TextFile.h"
#include "catalogue/CatalogueLoading.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::string_view lineEnd = "\r\n";

} // namespace

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
        if (i > 0) {
            m_text += lineEnd;
            m_lineStarts.push_back(m_text.size());
        }
        m_text += lines[i];
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

std::size_t SoundsText::toFieldOffset(std::size_t offset) const
{
    const auto next = std::ranges::upper_bound(m_lineStarts, offset);
    const auto line = static_cast<std::size_t>(next - m_lineStarts.begin()) - 1;
    if (next != m_lineStarts.end()) { // the middle of a line end is its start
        offset = std::min(offset, *next - lineEnd.size());
    }
    return offset - line;
}

std::size_t SoundsText::fromFieldOffset(std::size_t fieldOffset) const
{
    // Line i starts i characters earlier in the field.
    std::size_t first = 0;
    std::size_t behind = m_lineStarts.size();
    while (behind - first > 1) {
        const std::size_t middle = (first + behind) / 2;
        (m_lineStarts[middle] - middle <= fieldOffset ? first : behind) = middle;
    }
    return fieldOffset + first;
}

} // namespace tavrel
