// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/Title.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrel {

// "Statistiques Projet". These texts exist in French only.
const Title& statisticsTitle();

// What is counted, in the order of the window's rows.
constexpr std::size_t countedEntries = 4;
using EntryCounts = std::array<std::int64_t, countedEntries>; // groups, global triggers, organizers, triggers

struct ScriptStatistics
{
    EntryCounts first{};
    std::optional<EntryCounts> second; // none in a script of one level
    EntryCounts total{};               // of these two levels
    // What makes the counts doubtful: more levels than there is room for, a count beyond 16 bits.
    std::vector<Failure> notices;
};

// Counts the trigger entries of the first two levels of a TRNG script. What stands before the first "[Level]"
// counts for that level. The last line of the text is never looked at. A failure when no "[Level]" is found.
Result<ScriptStatistics> countScript(std::string_view text);

// The level editor's script\script.txt.
std::filesystem::path scriptFile(const std::filesystem::path& levelEditorFolder);
// Its bytes, zeros among them, without a UTF-8 mark.
Result<std::string> readScript(const std::filesystem::path& file);
Result<ScriptStatistics> countScriptFile(const std::filesystem::path& file);

} // namespace tavrel
