// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"
#include "demo/WavFile.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(SampleCommandsOfFolder, CheckPrintsWhatTheWindowShows)
{
    const TemporaryFolder folder;
    const std::string path = (folder / "a folder").string();
    writeBytes(folder / "a folder" / "good.wav", wavBytes({.seconds = 0}));
    writeBytes(folder / "a folder" / "list.txt", "");
    const std::string title = "List of wrong samples        ----------- ANOMALIES -----------\n";
    const std::string columns = "File name                    Mono     PCM      22050Khz Header\n";
    const CliRun clean = runCli({"samples", "check", path});
    EXPECT_EQ(clean.output, title + columns + "No problem found\n");
    EXPECT_EQ(clean.status, 0);

    writeBytes(folder / "a folder" / "zst\u00E9r\u00E9o.wav", wavBytes({.channels = 2}));
    writeBytes(folder / "a folder" / "Chunk.WAV", wavBytes({.listChunk = true}));
    const CliRun wrong = runCli({"samples", "check", path});
    const std::string nothing(9, ' ');
    const auto row = [](const std::string& name, std::size_t width, const std::string& marks) {
        return name + std::string(28 - width, ' ') + marks + "\n";
    };
    EXPECT_EQ(wrong.output, title + columns + row("Chunk.WAV", 9, nothing + nothing + nothing + "   Y     ") +
                                row("zst\u00E9r\u00E9o", 7, "  N      " + nothing + nothing + nothing) +
                                "2 file(s) found\n");
    EXPECT_EQ(wrong.status, 1);
    const CliRun french = runCli({"--language", "F", "samples", "check", path});
    EXPECT_NE(french.output.find("   O     \n"), std::string::npos);
    EXPECT_TRUE(french.output.ends_with("2 fichier(s) trouvé(s)\n"));
    EXPECT_EQ(runCli({"samples", "list", path}).output, "Chunk.WAV\ngood.wav\nzst\u00E9r\u00E9o.wav\n");
}

TEST(SampleCommandsOfFolder, WithoutAFolderTheLevelEditorsIsMeant)
{
    const DemoCli cli;
    EXPECT_EQ(cli.run({"samples", "list"}).output, "");
    writeBytes(cli.levelEditor / "sound" / "Samples" / "stereo.wav", wavBytes({.channels = 2}));
    EXPECT_EQ(cli.run({"samples", "list"}).output, "stereo.wav\n");
    EXPECT_EQ(cli.run({"samples", "check"}).status, 1);
    const std::filesystem::path folder = cli.levelEditor / "sound";
    std::filesystem::create_directory(folder / "Samples_replaced");
    std::filesystem::create_directory(folder / "Samples_incoming");
    EXPECT_EQ(cli.run({"samples", "list"}).messages, "") << "an empty folder is no restore cut short";
    writeBytes(folder / "Samples_incoming" / "a.wav", "");
    const CliRun cut = cli.run({"samples", "list"});
    EXPECT_NE(cut.messages.find("was cut short"), std::string::npos) << cut.messages;
    const CliRun missing = cli.run({"samples", "check", (cli.root / "missing").string()});
    EXPECT_EQ(missing.status, 3);
    EXPECT_EQ(missing.output, "");
    EXPECT_NE(missing.messages.find("missing"), std::string::npos);
}
