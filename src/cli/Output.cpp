// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Output.h"

#include "base/System.h"

namespace tavrel {

namespace {

constexpr std::size_t pieceSize = 1U << 16U;

} // namespace

void Output::endLine()
{
    m_pending += '\n';
    if (m_pending.size() >= pieceSize) {
        flush();
    }
}

void Output::writeLine(std::string_view line)
{
    m_pending += line;
    endLine();
}

void Output::flush()
{
    if (!m_pending.empty() && !m_error) {
        m_error = system::writeOutput(m_pending);
    }
    m_pending.clear();
}

std::error_code Output::failure() const
{
    return m_error == std::errc::broken_pipe ? std::error_code() : m_error;
}

} // namespace tavrel
