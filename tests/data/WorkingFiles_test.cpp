// SPDX-License-Identifier: GPL-3.0-or-later
// What the files beside the program promise: their rows can be corrected, these rules stay.
#include "catalogue/CatalogueLoading.h"
#include "catalogue/SoundLine.h"
#include "data/WorkingFiles.h"
#include "references/ReferenceRegister.h"
#include "references/ShippedTexts.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace tavrel;

namespace {

SoundCatalogue stockCatalogue(bool protectedLinesEditable = false)
{
    const TemporaryFolder creator;
    writeBytes(creator / "Sounds.txt", textOf(stockLines()));
    Result<LoadedCatalogue> loaded = loadCatalogue({dataFolder(), creator.path(), protectedLinesEditable});
    if (!loaded || !loaded->notices.empty()) {
        ADD_FAILURE() << (loaded ? loaded->notices[0].text.english : loaded.failure().text.english);
        return {};
    }
    return std::move(loaded->catalogue);
}

TEST(WorkingFiles, AreMadeFromTheTables)
{
    const std::vector<WorkingFile> files = makeWorkingFiles(dataFolder() / "tables");
    std::set<std::string> names;
    for (const WorkingFile& file : files) {
        EXPECT_EQ(readBytes(dataFolder() / file.name), file.bytes) << file.name;
        names.insert(file.name);
    }
    EXPECT_EQ(names, (std::set<std::string>{"Tavrel.tod", "Tavrel.too", "Tavrel.tos", "Tavrel.tow"}));
}

TEST(WorkingFiles, TieEachBuiltInReferenceToALetterOfItsOwn)
{
    const Result<LoadedRegister> loaded = loadRegister(dataFolder());
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->notices.empty());
    const std::vector<WadReference>& references = loaded->references.all();
    ASSERT_EQ(references.size(), 42U);
    EXPECT_EQ(loaded->references.userBegin(), 42U);
    const char* const stockLevels[] = {"catacomb", "city",    "cleopal", "coastal", "guard", "karnak",
                                       "library",  "newcity", "settomb", "title",   "tut1"};
    for (std::size_t i = 0; i < std::size(stockLevels); ++i) {
        EXPECT_EQ(references[i].wadName, stockLevels[i]);
    }
    ASSERT_TRUE(loaded->references.findLetter("g"));
    EXPECT_EQ(loaded->references.findLetter("g")->title, "All levels");
    std::set<std::string> letters;
    std::set<std::string> wads;
    for (const WadReference& reference : references) {
        SCOPED_TRACE(reference.letter);
        EXPECT_TRUE(letters.insert(reference.letter).second);
        EXPECT_TRUE(wads.insert(reference.wadName).second);
        EXPECT_FALSE(reference.title.empty() || reference.title.front() == ' ' ||
                     reference.title.size() > 50);
        EXPECT_FALSE(reference.wadName.empty() || reference.wadName.size() > 25 ||
                     reference.wadName[0] == ' ');
        if (reference.letter == "g") {
            continue;
        }
        ASSERT_EQ(reference.letter.size(), 2U);
        EXPECT_EQ(reference.letter.find_first_of(" #\t\"g"), std::string::npos);
        // A letter that ends so would be read as a flag, and CH as a value.
        EXPECT_EQ(std::string("PVRNL").find(reference.letter[1]), std::string::npos);
        EXPECT_NE(reference.letter, "CH");
    }
}

TEST(WorkingFiles, ListObjectsWithSoundsThatExist)
{
    const SoundCatalogue catalogue = stockCatalogue();
    EXPECT_GE(catalogue.objects().size(), 60U);
    EXPECT_LE(catalogue.objects().size(), 100U);
    std::set<std::string> types;
    std::map<std::string, int> objectsOfType;
    std::set<std::string> names;
    for (const SoundObject& object : catalogue.objects()) {
        SCOPED_TRACE(object.name);
        types.insert(object.type);
        EXPECT_FALSE(object.type.empty());
        EXPECT_LE(++objectsOfType[object.type], 41);
        EXPECT_TRUE(names.insert(object.name).second);
        EXPECT_FALSE(object.sounds.empty());
        EXPECT_EQ(std::set(object.sounds.begin(), object.sounds.end()).size(), object.sounds.size());
        for (const std::size_t sound : object.sounds) {
            EXPECT_NE(sound, 0U);
            ASSERT_LT(sound, stockLines().size());
            EXPECT_FALSE(catalogue.isProtected(sound)) << sound;
            EXPECT_GT(ParseSoundLine(catalogue.currentLine(sound)).sampleCount(), 0U) << sound;
        }
    }
    EXPECT_LE(types.size(), 10U);
    // No row of the table is lost on the way: a name with "(" or "LOOP" would be.
    EXPECT_EQ(catalogue.objects().size(), readTable(dataFolder() / "tables" / "objects.tsv").size());
}

TEST(WorkingFiles, FindObjectsUnderAnotherNameOnlyForAReason)
{
    using Pair = std::pair<std::string, std::string>;
    std::set<Pair> expected;
    for (const std::vector<std::string>& row : readTable(dataFolder() / "tables" / "containment.tsv")) {
        ASSERT_EQ(row.size(), 3U);
        EXPECT_TRUE(expected.insert({row[0], row[1]}).second) << row[0];
        EXPECT_GT(row[2].size(), 10U) << row[0];
    }
    const auto slots = readTable(dataFolder() / "tables" / "slots.tsv");
    ASSERT_EQ(slots.size(), 465U);
    const SoundCatalogue catalogue = stockCatalogue();
    std::set<Pair> hits;
    std::set<std::string> exact;
    for (const std::vector<std::string>& slot : slots) {
        const std::string& name = slot.at(1);
        for (const SoundObject& object : catalogue.objects()) {
            if (name == object.name) {
                exact.insert(name);
            } else if (name.find(object.name) != std::string::npos ||
                       object.name.find(name) != std::string::npos) {
                hits.insert({name, object.name});
            }
        }
    }
    EXPECT_EQ(hits, expected);
    EXPECT_EQ(exact.size(), catalogue.objects().size()) << "an object that is no slot of the level editor";
}

TEST(WorkingFiles, RegisterEverySoundThatSharesASample)
{
    std::map<std::string, std::set<std::size_t>> usersOf;
    for (std::size_t k = 0; k < stockLines().size(); ++k) {
        for (const std::string& sample : ParseSoundLine(stockLines()[k]).Samples) {
            usersOf[sample].insert(k);
        }
    }
    std::set<std::size_t> sharing;
    std::size_t shared = 0;
    for (const auto& [sample, users] : usersOf) {
        if (users.size() > 1) {
            ++shared;
            sharing.insert(users.begin(), users.end());
        }
    }
    EXPECT_EQ(shared, 29U);
    EXPECT_EQ(sharing.size(), 53U);

    const Result<TextFile> file = readTextFile(dataFolder() / "Tavrel.tod");
    ASSERT_TRUE(file);
    std::set<std::size_t> registered;
    for (const std::string_view line : file->lines()) {
        registered.insert(std::stoul(std::string(line)));
    }
    EXPECT_EQ(registered, sharing);
    const std::set<std::size_t> locked(emptyAndUnsureSounds.begin(), emptyAndUnsureSounds.end());
    const SoundCatalogue catalogue = stockCatalogue();
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        EXPECT_EQ(catalogue.doubles().of(k), locked.contains(k) ? "   " : "OK ") << k;
    }
}

TEST(WorkingFiles, AreShownInBothLanguages)
{
    std::set<std::string> texts;
    const Result<LoadedRegister> loaded = loadRegister(dataFolder());
    ASSERT_TRUE(loaded);
    for (const WadReference& reference : loaded->references.all()) {
        texts.insert(reference.title);
    }
    const SoundCatalogue catalogue = stockCatalogue();
    for (const SoundObject& object : catalogue.objects()) {
        texts.insert(object.type);
    }
    for (const std::string& text : texts) {
        EXPECT_EQ(shippedText(text).english, text);
        EXPECT_NE(shippedText(text).french, text);
    }
    EXPECT_EQ(shippedText("Reserved: test level 3").french, "Réservé : niveau de test 3");
    EXPECT_EQ(shippedText("My doors \xE9"), BilingualText::same("My doors é"));
}

} // namespace
