// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FileText.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnd = "\r\n";

struct RawLine
{
    std::string_view text;
    std::string_view whole; // with its end, which the last line may lack

    bool isSound() const { return text.find(':') != std::string_view::npos; }
};

std::vector<RawLine> rawLines(std::string_view file)
{
    if (file.starts_with(byteOrderMark)) {
        file.remove_prefix(byteOrderMark.size());
    }
    std::vector<RawLine> lines;
    while (!file.empty()) {
        const std::size_t length = std::min(file.find_first_of("\r\n"), file.size());
        const std::size_t end = file.substr(length).starts_with(lineEnd) ? length + lineEnd.size()
                                                                         : std::min(length + 1, file.size());
        lines.push_back({file.substr(0, length), file.substr(0, end)});
        file.remove_prefix(end);
    }
    return lines;
}

class Writer
{
public:
    void comment(const RawLine& line) { append(line.whole); }
    void sound(std::string_view line, bool withEnd)
    {
        append(line);
        m_text.linesInFile.push_back(m_lines);
        if (withEnd) {
            m_text.bytes += lineEnd;
        }
    }
    FileText take() { return std::move(m_text); }

private:
    void append(std::string_view line)
    {
        if (!m_text.bytes.empty() && m_text.bytes.back() != '\n' && m_text.bytes.back() != '\r') {
            m_text.bytes += lineEnd; // the last line of the file had none
        }
        m_text.bytes += line;
        ++m_lines;
    }

    FileText m_text;
    std::size_t m_lines = 0;
};

} // namespace

FileText soundsAlone(const SoundCatalogue& catalogue)
{
    Writer writer;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        writer.sound(catalogue.currentLine(k), true);
    }
    return writer.take();
}

FileText soundsWithComments(const SoundCatalogue& catalogue, std::string_view file, bool isLoadedFile)
{
    const std::vector<RawLine> lines = rawLines(file);
    Writer writer;
    auto next = lines.begin();
    const auto comments = [&] {
        for (; next != lines.end() && !next->isSound(); ++next) {
            writer.comment(*next);
        }
    };
    std::size_t fileLine = 0; // of the next line
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::optional<std::size_t> place = isLoadedFile ? catalogue.fileLineIndex(k) : fileLine;
        while (place && fileLine < *place && next != lines.end()) { // sounds that were taken out
            comments();
            next += next != lines.end() ? 1 : 0;
            ++fileLine;
        }
        if (place) {
            comments();
        }
        const bool stands = place && next != lines.end();
        if (stands && isLoadedFile && catalogue.currentLine(k) == catalogue.fileLine(k)) {
            writer.sound(next->whole, false);
        } else {
            writer.sound(catalogue.currentLine(k), true);
        }
        if (stands) {
            ++next;
            ++fileLine;
        }
    }
    for (; next != lines.end(); ++next) {
        if (!next->isSound()) {
            writer.comment(*next);
        }
    }
    return writer.take();
}

} // namespace tavrel
