// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/QuotedRecords.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

// Each field in the form that tells whether it was quoted; "none" for a line that is no record.
std::string shown(const std::optional<std::vector<RecordField>>& fields)
{
    if (!fields) {
        return "none";
    }
    std::string text;
    for (const RecordField& field : *fields) {
        text += field.quoted ? "'" + field.text + "'" : "<" + field.text + ">";
    }
    return text;
}

struct Case
{
    const char* line;
    const char* expected;
};

TEST(QuotedRecords, SplitByTheUsualRules)
{
    const Case cases[] = {
        {"", "<>"},
        {"7,\"OK \",\"\"", "<7>'OK '''"},
        {"\"a,b\",\"c\"", "'a,b''c'"},
        {" \"a\" , 7 ,\tx y", "'a'<7><x y>"},
        {"a,,b,", "<a><><b><>"},
        {",", "<><>"},
        {"a\"b,c", "<a\"b><c>"},
        {"\"", "none"},
        {"\"never closed,1", "none"},
        {"1,\"never closed", "none"},
        {"\"a\"b,1", "none"},
        {"\"a\" \"b\"", "none"},
        {"\"a\"\"b\"", "none"},
        {"\"\xE9\xFF\"", "'\xE9\xFF'"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(shown(splitRecord(c.line)), c.expected) << c.line;
    }
}

TEST(QuotedRecords, AWrongValueOfAListLeavesTheOthers)
{
    const Case cases[] = {
        {"a.wav, \"b,c.wav\" ,d", "<a.wav><b,c.wav><d>"},
        {"\"a.wav\" x,b", "wrong<\"a.wav\" x><b>"},
        {"a,\"b\"\"", "<a>wrong<\"b\"\">"},
        {"a,\"b,c", "none"},
        {"\"", "none"},
    };
    for (const Case& c : cases) {
        const std::optional<std::vector<ListedValue>> values = splitList(c.line);
        std::string text = values ? "" : "none";
        for (std::size_t i = 0; values && i < values->size(); ++i) {
            text += ((*values)[i].wrong ? "wrong<" : "<") + (*values)[i].text + ">";
        }
        EXPECT_EQ(text, c.expected) << c.line;
    }
}

TEST(QuotedRecords, SplitARegisterLineAtItsLastSeparators)
{
    const Case cases[] = {
        {"\"My level\",\"ab\",\"mylevel\"", "My level|ab|mylevel"},
        {"\"one, two\",\"ab\",\"my, level\"", "one, two|ab|my, level"},
        {"\"The \"big\" one\",\"ab\",\"w\"", "The \"big\" one|ab|w"},
        {"\"a\",\"b\",\"cd\",\"w\"", "a\",\"b|cd|w"},
        {"\"\",\"\",\"\"", "||"},
        {"My level,ab,mylevel", "My level|ab|mylevel"},
        {"\"t, u\" , \"ab\" , \"w\"", "t, u|ab|w"},
        {"\"t\",\",\",\"w\"", "t|,|w"},
        {"\"t, u\",ab,\"w\"", "t, u|ab|w"},
        {"\"t\",\"ab\"", "none"},
        {"t,ab", "none"},
        {"t,ab,w,x", "none"},
        {"\"t\",\"ab\",\"w", "none"},
        {"", "none"},
        {"\"", "none"},
        {"\"\"", "none"},
        {"\",\"", "none"},
        {"\",\",\"", "none"},
    };
    for (const Case& c : cases) {
        const std::optional<RegisterRecord> record = splitRegisterRecord(c.line);
        EXPECT_EQ(record ? record->title + "|" + record->letter + "|" + record->wadName : "none", c.expected)
            << c.line;
    }
}

TEST(QuotedRecords, ReadOneValueOfALine)
{
    const Case cases[] = {
        {"\"C:\\\"", "'C:\\'"}, {"\"a \"b\" c\"", "'a \"b\" c'"},
        {"\"a,b\"", "'a,b'"},   {"\"\"", "''"},
        {" \"a\" ", "'a'"},     {"-1", "<-1>"},
        {" 12 ", "<12>"},       {"", "<>"},
        {"\"", "none"},         {"\"open", "none"},
        {"\"a\",", "none"},
    };
    for (const Case& c : cases) {
        const std::optional<RecordField> field = readSettingsValue(c.line);
        EXPECT_EQ(field ? shown(std::vector<RecordField>{*field}) : "none", c.expected) << c.line;
    }
}

TEST(QuotedRecords, ReadWholeNumbers)
{
    const struct
    {
        const char* text;
        std::optional<std::int64_t> number;
    } cases[] = {{"0", 0},
                 {"-1", -1},
                 {" 12 ", 12},
                 {"007", 7},
                 {"", {}},
                 {"-", {}},
                 {"1x", {}},
                 {"1 2", {}},
                 {"1.5", {}},
                 {"0x10", {}},
                 {"9223372036854775807", INT64_MAX},
                 {"x1", {}},
                 {"\xB2", {}},
                 {"--1", {}},
                 {"9223372036854775808", {}}};
    for (const auto& c : cases) {
        EXPECT_EQ(wholeNumber(c.text), c.number) << c.text;
    }
}

TEST(QuotedRecords, WriteWithoutEscaping)
{
    RecordWriter writer;
    writer.number(-7).text("OK ").text("").endRecord().text("a\"b,c\xE9").endRecord().endRecord();
    EXPECT_EQ(writer.bytes(), "-7,\"OK \",\"\"\r\n\"a\"b,c\xE9\"\r\n\r\n");
}

} // namespace
