// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

// Records what a long command tells, and stops it before a step when asked to.
class ScriptedProgress : public Progress
{
public:
    explicit ScriptedProgress(std::optional<std::size_t> stopBefore = std::nullopt) : m_stopBefore(stopBefore)
    {}

    bool show(std::size_t done, std::size_t total) override
    {
        steps.emplace_back(done, total);
        return m_stopBefore != done;
    }
    void say(const BilingualText& text) override { said.push_back(text.english); }

    std::vector<std::pair<std::size_t, std::size_t>> steps;
    std::vector<std::string> said;

private:
    std::optional<std::size_t> m_stopBefore;
};

} // namespace tavrel
