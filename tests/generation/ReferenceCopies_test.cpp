// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/ReferenceCopies.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

void makeFile(const fs::path& file, std::uintmax_t size)
{
    writeBytes(file, "");
    fs::resize_file(file, size); // takes no room on the disk
}

TEST(SizeOf, CountsWithinSixteenAndThirtyTwoBits)
{
    const TemporaryFolder root;
    makeFile(root / "a", 2147483647);
    const auto size = [&root] { return sizeOf(*filesIn(root.path())); };
    ASSERT_TRUE(size());
    EXPECT_EQ(*size(), (FolderSize{1, 2147483647}));
    makeFile(root / "b", 1);
    EXPECT_FALSE(size());
    fs::remove(root / "a");
    const std::vector<FolderEntry> many(32767, (*filesIn(root.path()))[0]);
    EXPECT_EQ(*sizeOf(many), (FolderSize{32767, 32767}));
    EXPECT_FALSE(sizeOf(std::vector<FolderEntry>(32768, many[0])));
    EXPECT_EQ(*sizeOf(*filesIn(root / "none")), FolderSize());
    EXPECT_FALSE(filesIn(root / "b")) << "no folder, though it is there";
}

// An untouched installation by its sizes.
class TakeReferenceCopies : public testing::Test
{
protected:
    TakeReferenceCopies()
    {
        for (int i = 0; i < samplesReference.size.files; ++i) {
            makeFile(samples / ("s" + std::to_string(i) + ".wav"),
                     i == 0 ? static_cast<std::uintmax_t>(samplesReference.size.bytes - 496 * 4) : 4);
        }
        for (const std::string_view level : stockLevels) {
            makeFile(wads / (std::string(level) + ".SAM"), 0);
            makeFile(wads / (std::string(level) + ".sfx"), level == "title" ? 43145 : 0);
        }
        writeBytes(wads / "mine.sam", "another level's");
        fs::copy_file(dataFolder() / "Tavrel.tos", program / "Tavrel.tos");
        writeBytes(creator / "sounds.txt", sounds(370));
    }

    static std::string sounds(int count)
    {
        std::string text = "; Sounds\r\n";
        for (int i = 0; i < count; ++i) {
            text += "SOUND_" + std::to_string(i) + ":\t\tfoot01\t\t#g\r\n";
        }
        return text;
    }

    std::vector<std::string> take()
    {
        const TakenCopies taken = takeReferenceCopies(editor, program);
        complete = taken.complete;
        std::vector<std::string> said;
        for (const BilingualText& text : taken.notes) {
            EXPECT_NE(text.english, text.french);
            said.push_back(text.english);
        }
        return said;
    }

    TemporaryFolder root;
    fs::path editor = root / "TRLE";
    fs::path samples = editor / "Sound" / "SAMPLES";
    fs::path wads = editor / "graphics" / "WADS";
    fs::path creator = editor / "Sound" / "levelsfx creator";
    fs::path program = root.path();
    bool complete = false;
};

TEST_F(TakeReferenceCopies, TakesWhatIsUntouched)
{
    EXPECT_EQ(take(),
              (std::vector<std::string>{"[Tavrel.tos] is taken from " + (creator / "sounds.txt").string(),
                                        "[Samples_ORIG] is taken from " + samples.string(),
                                        "[SFX_ORIG] is taken from " + wads.string()}));
    EXPECT_TRUE(complete);
    EXPECT_EQ(*sizeOf(*filesIn(program / "Samples_ORIG")), samplesReference.size);
    EXPECT_EQ(*sizeOf(*filesIn(program / "SFX_ORIG")), sfxReference.size);
    EXPECT_EQ(readBytes(program / "Tavrel.tos"), sounds(370));
    EXPECT_EQ(readBytes(program / "Tavrel_copy1.tos"), readBytes(dataFolder() / "Tavrel.tos"));

    EXPECT_EQ(take(), (std::vector<std::string>{"[Tavrel.tos] is complete and was left as it is",
                                                "[Samples_ORIG] is complete and was left as it is",
                                                "[SFX_ORIG] is complete and was left as it is"}));
    EXPECT_TRUE(complete);
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"SFX_ORIG", "Samples_ORIG", "TRLE",
                                                              "Tavrel.tos", "Tavrel_copy1.tos"}));
}

TEST_F(TakeReferenceCopies, LeavesWhatWasChanged)
{
    writeBytes(samples / "mine.wav", "1");
    fs::remove(wads / "title.sfx");
    writeBytes(creator / "Orig_Sounds.txt", sounds(371));
    EXPECT_EQ(
        take(),
        (std::vector<std::string>{
            "[Tavrel.tos] is not filled: " + (creator / "Orig_Sounds.txt").string() +
                " has 371 sounds, an untouched one 370",
            "[Samples_ORIG] is not filled: " + samples.string() +
                " holds 498 files and 12886345 bytes, an untouched installation 497 files and 12886344 bytes",
            "[SFX_ORIG] is not filled: " + wads.string() +
                " holds 21 files and 0 bytes, an untouched installation 22 files and 43145 bytes"}));
    EXPECT_FALSE(complete);
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"TRLE", "Tavrel.tos"}));
    EXPECT_EQ(readBytes(program / "Tavrel.tos"), readBytes(dataFolder() / "Tavrel.tos"));

    writeBytes(creator / "Orig_Sounds.txt", sounds(370));
    writeBytes(creator / "sounds.txt", "changed since");
    take();
    EXPECT_EQ(readBytes(program / "Tavrel.tos"), sounds(370)) << "from the first backup";
}

} // namespace
