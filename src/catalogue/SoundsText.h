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

// sounds.txt as it stands on the disk, and a search that goes forward through it. Offsets count the bytes of
// the text, its line ends (CR LF) included; a text field counts each line end as one.
class SoundsText
{
public:
    static Result<SoundsText> load(const std::filesystem::path& creatorFolder);
    // Lines as a text file has them.
    explicit SoundsText(const std::vector<std::string_view>& lines);

    // The lines joined by CR LF.
    const std::string& text() const { return m_text; }

    // Where the first match behind the position starts. The position is then one character behind that start;
    // without a match it stays. An empty text is never found.
    std::optional<std::size_t> findNext(std::string_view wanted, bool matchCase);
    void setPosition(std::size_t offset) { m_position = offset; }

    std::size_t toFieldOffset(std::size_t offset) const;
    std::size_t fromFieldOffset(std::size_t fieldOffset) const;

private:
    std::string m_text;
    std::string m_upperText;
    std::vector<std::size_t> m_lineStarts = {0};
    std::size_t m_position = 0;
};

} // namespace tavrel
