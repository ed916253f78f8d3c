// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/InputLines.h"

#include "base/System.h"

#include <span>

namespace tavrel {

namespace {

constexpr std::size_t pieceSize = 1U << 16U;

} // namespace

std::optional<std::string_view> InputLines::next()
{
    while (!m_error) {
        const std::size_t end = m_buffer.find('\n', m_searched);
        if (end != std::string::npos) {
            return take(end - m_start, 1);
        }
        m_searched = m_buffer.size();
        if (m_searched - m_start > longestLine) {
            m_error = std::make_error_code(std::errc::message_size);
        } else if (!readMore()) {
            break;
        }
    }
    if (m_error || m_start == m_buffer.size()) {
        return std::nullopt;
    }
    return take(m_buffer.size() - m_start, 0);
}

bool InputLines::readMore()
{
    if (m_atEnd) {
        return false;
    }
    m_buffer.erase(0, m_start);
    m_start = 0;
    m_searched = m_buffer.size();
    m_buffer.resize(m_searched + pieceSize);
    const system::ReadBytes read = system::readInput(std::span(m_buffer).subspan(m_searched));
    m_buffer.resize(m_searched + read.count);
    m_error = read.error;
    m_atEnd = read.count == 0;
    return !m_atEnd;
}

std::string_view InputLines::take(std::size_t length, std::size_t ending)
{
    std::string_view line = std::string_view(m_buffer).substr(m_start, length);
    m_start += length + ending;
    m_searched = m_start;
    ++m_number;
    if (ending > 0 && line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

} // namespace tavrel
