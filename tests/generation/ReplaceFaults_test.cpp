// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call while the files of a folder are replaced.
#include "support/FaultyProgram.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Contents = std::vector<std::string>;

class ReplaceFaults : public testing::TestWithParam<Fault>
{
protected:
    ReplaceFaults()
    {
        fill(source, newSet);
        fill(start / "Samples", oldSet);
        fill(start / "Samples_replaced", {"older"});
    }

    static void fill(const fs::path& folder, const Contents& contents)
    {
        for (const std::string& content : contents) {
            writeBytes(folder / (content.substr(content.find(' ') + 1) + ".wav"), content);
        }
    }

    static Contents contentsOf(const fs::path& folder)
    {
        Contents contents;
        for (const std::string& name : namesIn(folder)) {
            contents.push_back(readBytes(folder / name));
        }
        std::ranges::sort(contents);
        return contents;
    }

    // Wherever they lie.
    void expectOldFiles() const
    {
        Contents contents;
        for (const std::string& folder : namesIn(work)) {
            std::ranges::copy(contentsOf(work / folder), std::back_inserter(contents));
        }
        for (const std::string& content : oldSet) {
            EXPECT_NE(std::ranges::find(contents, content), contents.end()) << content << " is lost";
        }
    }

    void expectOneSet(int status) const
    {
        expectOldFiles();
        if (program.mayBeEither(GetParam())) {
            const bool wasDone =
                contentsOf(work / "Samples") == newSet && !fs::exists(work / "Samples_incoming");
            EXPECT_EQ(program.runUndisturbed(), 0) << "a later run works all the same";
            EXPECT_EQ(contentsOf(work / "Samples"), newSet);
            if (!wasDone) {
                expectOldFiles();
            }
            return;
        }
        EXPECT_EQ(contentsOf(work / "Samples"), status == 0 ? newSet : oldSet);
        EXPECT_EQ(contentsOf(work / "Samples_replaced"), status == 0 ? oldSet : Contents{"older"});
    }

    TemporaryFolder root;
    fs::path source = root / "Samples_ORIG";
    fs::path start = root / "start";
    fs::path work = root / "work";
    Contents newSet = {"new one", "new three", "new two"};
    Contents oldSet = {"old four", "old one", "old two"};
    FaultyProgram program{{TAVREL_REPLACE_ONCE, source.string(), (work / "Samples").string()}, root.path()};
};

TEST_P(ReplaceFaults, LeaveTheOldFilesOrTheNewOnes)
{
    bool isFirst = true;
    const auto counts = program.strikeEach(start, work, GetParam(), [&](int status) {
        if (std::exchange(isFirst, false)) {
            EXPECT_EQ(namesIn(work), (Contents{"Samples", "Samples_replaced", "Samples_replaced_1"}));
            EXPECT_EQ(contentsOf(work / "Samples_replaced_1"), Contents{"older"});
        }
        expectOneSet(status);
    });
    EXPECT_EQ(counts.at("renameat2"), 7); // old ones, new ones, what was replaced before
}

INSTANTIATE_TEST_SUITE_P(EachCall, ReplaceFaults, testing::Values(fullDisk, killed),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
