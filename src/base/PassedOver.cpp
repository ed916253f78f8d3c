// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PassedOver.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t longestPiece = 30; // of a line

BilingualText shownPiece(std::string content)
{
    if (content.find_first_not_of(" \t") == std::string::npos) {
        return {" (blank)", " (vide)"};
    }
    std::ranges::replace(content, '\t', ' ');
    const bool cut = content.size() > longestPiece;
    return BilingualText::same(" [" + shownText(content.substr(0, longestPiece)) + (cut ? "...]" : "]"));
}

} // namespace

void PassedOver::add(std::size_t line, std::string_view content)
{
    constexpr std::size_t mostNamed = 8;
    if (m_named.size() < mostNamed) {
        m_named.push_back({line, std::string(content.substr(0, longestPiece + 1))});
    }
    ++m_count;
}

void PassedOver::tell(const std::filesystem::path& file, BilingualText text,
                      std::vector<Failure>& notices) const
{
    if (m_count == 0) {
        return;
    }
    for (const Place& place : m_named) {
        const std::string line = std::to_string(place.line);
        text += &place == m_named.data() ? " " : ", ";
        text += BilingualText("line " + line, "ligne " + line) + shownPiece(place.content);
    }
    if (m_count > m_named.size()) {
        const std::string rest = std::to_string(m_count - m_named.size());
        text += BilingualText(" ... and " + rest + " more", " ... et " + rest + " de plus");
    }
    notices.push_back(wrongContent(file, text));
}

} // namespace tavrel
