// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "checks/Checks.h"
#include "support/Files.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace tavrel {

// A small project to check: a few lines, samples, WADs.
class CheckedProject
{
public:
    CheckedProject();

    // ">" stands for a TAB. Without an original, the line is its own.
    void addLine(const std::string& line) { addLine(line, line); }
    void addLine(const std::string& line, const std::string& original);
    // The lines of data/Tavrel.tos.
    void addStockLines();
    void addSample(const std::string& name);
    void addSample(const std::string& name, const std::string& bytes) const;

    CheckReport check() const;
    // Those of one check.
    std::vector<Finding> check(std::string_view name) const;
    CheckSubject subject() const;
    // As one step of the window or command does.
    void apply(const std::vector<Finding>& findings);
    std::string line(std::size_t sound) const { return catalogue.currentLine(sound); }

    TemporaryFolder root;
    CheckFolders folders{root / "creator", root / "samples", root / "wads"};
    SoundCatalogue catalogue;
    ReferenceRegister references;
    CurrentWad wad{"oasis", "oa", "The oasis"};
    TextFile soundsFile;
};

} // namespace tavrel
