// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"
#include "samples/SampleFormat.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// A right file, with some of its bytes changed.
struct Change
{
    std::size_t offset;
    char byte;
};

std::string wavWith(std::initializer_list<Change> changes)
{
    std::string bytes = wavBytes({});
    for (const Change& change : changes) {
        bytes.at(change.offset) = change.byte;
    }
    return bytes;
}

} // namespace

TEST(SampleFormat, LooksAtEightBytesAndNoOthers)
{
    struct Case
    {
        const char* what;
        std::string bytes;
        SampleFormatVerdict verdict; // mono, pcm, rate, header
    };
    const Case cases[] = {
        {"right", wavBytes({}), {true, true, true, true}},
        {"8 bits", wavBytes({.bitsPerSample = 8}), {true, true, true, true}},
        {"stereo", wavBytes({.channels = 2}), {false, true, true, true}},
        {"44100 Hz", wavBytes({.sampleRate = 44100}), {true, true, false, true}},
        {"stereo at 44100 Hz", wavBytes({.channels = 2, .sampleRate = 44100}), {false, true, false, true}},
        {"another format tag", wavBytes({.formatTag = 2}), {true, false, true, true}},
        {"LIST chunk", wavBytes({.listChunk = true}), {true, true, true, false}},
        {"high bytes", wavWith({{21, 1}, {23, 1}, {26, 1}, {27, 1}}), {true, true, true, true}},
        {"identifiers",
         wavWith({{0, 'x'}, {8, 'x'}, {12, 'x'}, {35, 'x'}, {40, 'x'}}),
         {true, true, true, true}},
        {"low rate byte", wavWith({{24, 0x23}}), {true, true, false, true}},
        {"second rate byte", wavWith({{25, 0x57}}), {true, true, false, true}},
        {"Data", wavWith({{36, 'D'}}), {true, true, true, false}},
        {"datA", wavWith({{39, 'A'}}), {true, true, true, false}},
    };
    const TemporaryFolder root;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        writeBytes(root / "Step.WAV", c.bytes);
        EXPECT_EQ(CheckSampleFormatDetailed(root / "Step.WAV"), c.verdict);
        EXPECT_EQ(CheckSampleFormat(root.path(), "step"), c.verdict.valid());
    }
}

TEST(SampleFormat, BytesBehindTheEndCountAsZero)
{
    const TemporaryFolder root;
    const std::string right = wavBytes({});
    for (std::size_t size = 0; size <= 44; ++size) {
        SCOPED_TRACE(size);
        writeBytes(root / "a.wav", right.substr(0, size));
        const SampleFormatVerdict expected{size > 22, size > 20, size > 25, size > 39};
        EXPECT_EQ(CheckSampleFormatDetailed(root / "a.wav"), expected);
    }
}

TEST(SampleFormat, WhatCannotBeOpenedFailsEverything)
{
    const TemporaryFolder root;
    fs::create_directory(root / "folder.wav");
#ifndef _WIN32 // where links take a right that users lack
    fs::create_symlink(root / "nowhere", root / "link.wav");
#endif
    for (const char* name : {"missing", "folder", "link", "..", "../a", ""}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(CheckSampleFormat(root.path(), name));
        EXPECT_EQ(CheckSampleFormatDetailed(root / (std::string(name) + ".wav")), SampleFormatVerdict());
    }
}

TEST(SampleFormat, RowsStandInTheColumnsOfTheirTitles)
{
    const std::string columns = anomalyColumns().english;
    EXPECT_EQ(columns.find("Mono"), 29U);
    EXPECT_EQ(columns.find("PCM"), 38U);
    EXPECT_EQ(columns.find("22050Khz"), 47U);
    EXPECT_EQ(columns.find("Header"), 56U);
    struct Case
    {
        const char* file;
        SampleFormatVerdict verdict;
        Language language;
        const char* row;
    };
    const Case cases[] = {
        {"bad.wav",
         {},
         Language::English,
         "bad                           N       N           N       Y     "},
        {"bad.wav", {}, Language::French, "bad                           N       N           N       O     "},
        {"BIG.WAV",
         {false, true, true, true},
         Language::English,
         "BIG.WAV                       N                                 "},
        {"1234567890123456789012345678.wav",
         {true, true, false, true},
         Language::English,
         "123456789012345678901234567                       N             "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(anomalyRow(c.file, c.verdict, c.language), c.row) << c.file;
    }
}
