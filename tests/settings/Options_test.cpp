// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/Options.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

TEST(Options, KeepWhatTheyDoNotKnowAndWhatOthersHaveWritten)
{
    const TemporaryFolder root;
    Options options = Options::load(root.path());
    EXPECT_FALSE(options.save()) << "nothing to write";
    EXPECT_TRUE(namesIn(root.path()).empty());
    options.setFlag(options::keepComments, true);
    options.set("size", "1\r\n2=3");
    writeBytes(root / "TAVREL.OPT", "newer=thing\nkeep-comments=0\nnonsense\n");
    EXPECT_FALSE(Options::load(root.path()).flag(options::keepComments, true));
    ASSERT_FALSE(Options::load(root.path()).save());
    EXPECT_FALSE(options.save());
    const Options read = Options::load(root.path());
    EXPECT_TRUE(read.flag(options::keepComments));
    EXPECT_EQ(read.text("size"), "1  2=3");
    EXPECT_EQ(read.text("newer"), "thing");
    EXPECT_EQ(read.text("nonsense"), std::nullopt);
}

TEST(Options, AreNotWrittenOverAFileThatCannotBeRead)
{
    const TemporaryFolder root;
    const std::string bytes("a=1\0b", 5);
    writeBytes(root / "Tavrel.opt", bytes);
    Options options = Options::load(root.path());
    options.setFlag("a", false);
    EXPECT_FALSE(options.save());
    EXPECT_EQ(readBytes(root / "Tavrel.opt"), bytes);
}

} // namespace
