// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tavrel {

// One JSON object, appended to a text. A library that builds the object first is too slow for a million
// lines.
class JsonObject
{
public:
    explicit JsonObject(std::string& text) : m_text(text) { m_text += '{'; }

    // Bytes of the level editor's files; above 127 they are Windows-1252.
    JsonObject& bytes(std::string_view name, std::string_view value);
    JsonObject& bytes(std::string_view name, std::span<const std::string> values);
    JsonObject& utf8(std::string_view name, std::string_view value);
    JsonObject& number(std::string_view name, std::uint64_t value);
    // The digits of a number.
    JsonObject& decimal(std::string_view name, std::string_view digits);
    JsonObject& flag(std::string_view name, bool value);
    JsonObject& null(std::string_view name);
    void end() { m_text += '}'; }

private:
    void startMember(std::string_view name);

    std::string& m_text;
    bool m_isEmpty = true;
};

} // namespace tavrel
