// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Catalogues of a few sounds and their changed copies, the same for the same seed.
class RandomCatalogues
{
public:
    explicit RandomCatalogues(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t bound) { return m_random() % bound; }

    // With blanks or tabs, as a person or as the program writes it.
    std::string line(std::string_view name)
    {
        static constexpr std::string_view pieces[] = {"VOL08", "VOL44", "VOL100", "PIT-5", "RAD10", "CH50",
                                                      "P",     "V",     "R",      "N",     "L",     "word"};
        const std::string gap = below(3) == 0 ? " " : "\t";
        std::string text = std::string(name) + ":" + gap;
        for (std::size_t i = below(4); i > 0; --i) {
            text += std::string(1, static_cast<char>('a' + below(4))) + " ";
        }
        text += gap;
        for (std::size_t i = below(7); i > 0; --i) {
            text += std::string(pieces[below(std::size(pieces))]) + gap;
        }
        for (std::size_t i = below(4); i > 0; --i) {
            text += std::string("#") + static_cast<char>('a' + below(4)) + "b ";
        }
        return text;
    }

    std::vector<std::string> lines(std::size_t count, std::string_view prefix)
    {
        std::vector<std::string> result;
        for (std::size_t i = 0; i < count; ++i) {
            result.push_back(line(std::string(prefix) + std::to_string(i)));
        }
        return result;
    }

    // Lines change, go and come; `prefix` makes new names.
    std::vector<std::string> changed(std::vector<std::string> lines, std::string_view prefix)
    {
        for (std::size_t i = below(5); i > 0; --i) {
            const std::size_t place = below(lines.size() + 1);
            const auto at = lines.begin() + static_cast<std::ptrdiff_t>(place);
            if (below(3) == 0) {
                lines.insert(at, line(std::string(prefix) + std::to_string(i)));
            } else if (place < lines.size() && below(2) == 0) {
                lines.erase(at);
            } else if (place < lines.size()) {
                lines[place] = line(lines[place].substr(0, lines[place].find(':')));
            }
        }
        return lines;
    }

private:
    std::mt19937 m_random;
};

inline std::vector<std::string_view> viewsOf(const std::vector<std::string>& lines)
{
    return {lines.begin(), lines.end()};
}

} // namespace tavrel
