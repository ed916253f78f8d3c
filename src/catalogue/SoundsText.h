// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// sounds.txt as it stands on the disk, and a search that goes forward through it. Its lines are joined by LF
// as a text field shows them: a byte of the text is a character of the field.
class SoundsText
{
public:
    static Result<SoundsText> load(const std::filesystem::path& creatorFolder);
    // Lines as a text file has them.
    explicit SoundsText(const std::vector<std::string_view>& lines);

    const std::string& text() const { return m_text; }

    // Where the first match behind the position starts. The position is then one character behind that start;
    // without a match it stays. An empty text is never found.
    std::optional<std::size_t> findNext(std::string_view wanted, bool matchCase);
    void setPosition(std::size_t offset) { m_position = offset; }

private:
    std::string m_text;
    std::string m_upperText;
    std::size_t m_position = 0;
};

} // namespace tavrel
