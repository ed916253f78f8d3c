// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FileText.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

struct Case
{
    const char* what;
    std::function<void(SoundCatalogue&)> change;
    const char* file;
    const char* expected;
    std::vector<std::size_t> lines;
};

SoundCatalogue catalogueOf(std::string_view file)
{
    SoundCatalogue catalogue;
    std::size_t number = 0;
    const TextFile text{{}, std::string(file), false, {}};
    for (const std::string_view line : text.lines()) {
        ++number;
        if (line.find(':') != std::string_view::npos) {
            catalogue.append(std::string(line.substr(0, line.find_last_not_of(' ') + 1)), "O:", number);
        }
    }
    return catalogue;
}

TEST(FileText, KeepsCommentsWhereTheyStoodAndUntouchedLinesByteForByte)
{
    const Case cases[] = {
        {"nothing", [](SoundCatalogue&) {}, "; a\r\n\nA:#g  \nB:\r; z", "; a\r\n\nA:#g  \nB:\r; z", {3, 4}},
        {"one line",
         [](SoundCatalogue& c) { ASSERT_FALSE(c.setCurrentLine(0, "X:")); },
         "; a\r\nA:  \n; b\nB:",
         "; a\r\nX:\r\n; b\nB:",
         {2, 4}},
        {"the last line, which has no end",
         [](SoundCatalogue& c) { ASSERT_FALSE(c.setCurrentLine(0, "X:")); },
         "A:",
         "X:\r\n",
         {1}},
        {"a line comes in behind the last",
         [](SoundCatalogue& c) { ASSERT_FALSE(c.putLineIn(1, "X:")); },
         "A:\n; z",
         "A:\nX:\r\n; z",
         {1, 2}},
        {"a line goes",
         [](SoundCatalogue& c) { c.takeLineOut(1); },
         "A:\n; of b\nB:\n; of c\nC:\n",
         "A:\n; of b\n; of c\nC:\n",
         {1, 4}},
        {"a Unicode mark goes", [](SoundCatalogue&) {}, "\xEF\xBB\xBF; a\nA:\n", "; a\nA:\n", {2}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SoundCatalogue catalogue = catalogueOf(c.file);
        c.change(catalogue);
        const FileText text = soundsWithComments(catalogue, c.file, true);
        EXPECT_EQ(text.bytes, c.expected);
        EXPECT_EQ(text.linesInFile, c.lines);
    }
}

TEST(FileText, OfAnotherFileKeepsTheCommentsAlone)
{
    const SoundCatalogue catalogue = catalogueOf("A:\nB:\n");
    EXPECT_EQ(soundsWithComments(catalogue, "; 1\nX:  \n; 2\nY:\n; 3\nZ:\n; 4", false).bytes,
              "; 1\nA:\r\n; 2\nB:\r\n; 3\n; 4");
    EXPECT_EQ(soundsAlone(catalogue).bytes, "A:\r\nB:\r\n");
}

} // namespace
