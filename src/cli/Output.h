// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace tavrel {

// Standard output, byte for byte and in large pieces. Once it takes nothing more, what is written is dropped.
class Output
{
public:
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output() { flush(); }

    // Appending here is the fast way; endLine() passes it on.
    std::string& pending() { return m_pending; }
    void endLine();
    void writeLine(std::string_view line);
    void flush();

    // The reader has gone, or the disk is full.
    bool hasEnded() const { return static_cast<bool>(m_error); }
    // None for a reader that has gone: it has all that it wants.
    std::error_code failure() const;

private:
    std::string m_pending;
    std::error_code m_error;
};

} // namespace tavrel
