// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CheckedProject.h"

#include "demo/WavFile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavrel {

CheckedProject::CheckedProject() : catalogue({folders.creator / "Sounds.txt", {}}, false)
{
    writeBytes(folders.creator / "pcwadsfx.exe", "");
    writeBytes(folders.creator / "Sounds.txt", "");
    writeBytes(folders.wads / "oasis.wad", "");
    std::filesystem::create_directories(folders.samples);
    soundsFile.path = folders.creator / "Sounds.txt";
    references.appendBuiltIn({"", "g", "All levels"});
    references.appendUser({"oasis", "oa", "The oasis"});
}

void CheckedProject::addLine(const std::string& line, const std::string& original)
{
    catalogue.append(withTabs(line), withTabs(original), catalogue.size() + 1);
}

void CheckedProject::addStockLines()
{
    for (const std::string& line : stockLines()) {
        catalogue.append(line, line, catalogue.size() + 1);
    }
}

void CheckedProject::addSample(const std::string& name)
{
    addSample(name, wavBytes({.seconds = 0.001}));
}

void CheckedProject::addSample(const std::string& name, const std::string& bytes) const
{
    writeBytes(folders.samples / (name + ".wav"), bytes);
}

CheckSubject CheckedProject::subject() const
{
    return {catalogue, references, wad, folders, &soundsFile};
}

CheckReport CheckedProject::check() const
{
    SilentProgress progress;
    return runChecks(subject(), progress);
}

std::vector<Finding> CheckedProject::check(std::string_view name) const
{
    EXPECT_NE(findCheck(name), nullptr) << name;
    std::vector<Finding> findings = check().findings;
    std::erase_if(findings, [name](const Finding& finding) { return finding.check != name; });
    return findings;
}

void CheckedProject::apply(const std::vector<Finding>& findings)
{
    std::vector<const Finding*> all;
    for (const Finding& finding : findings) {
        all.push_back(&finding);
    }
    const Problem problem = catalogue.setCurrentLines(changesOf(all, catalogue));
    EXPECT_FALSE(problem) << problem->text.english;
}

} // namespace tavrel
