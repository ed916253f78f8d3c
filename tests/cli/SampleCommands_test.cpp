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

TEST(SampleCommandsOfFolder, RepairConvertsAndKeepsTheOriginals)
{
    const TemporaryFolder root;
    const std::string path = (root / "Samples").string();
    writeBytes(root / "Samples" / "eight.wav", wavBytes({.bitsPerSample = 8}));
    writeBytes(root / "Samples" / "stereo.wav", wavBytes({.channels = 2}));
    writeBytes(root / "Samples" / "fast.wav", wavBytes({.sampleRate = 44100}));

    const CliRun dry = runCli({"samples", "repair", path, "--dry-run"});
    EXPECT_EQ(dry.output, "fast.wav\nstereo.wav\n");
    EXPECT_EQ(dry.status, 1);
    const CliRun unasked = runCli({"samples", "repair", path});
    EXPECT_EQ(unasked.status, 1);
    EXPECT_NE(unasked.messages.find("tavrel-cli: Convert 2 samples to the right format?"), std::string::npos);
    EXPECT_EQ(readBytes(root / "Samples" / "stereo.wav"), wavBytes({.channels = 2}));

    EXPECT_EQ(runCli({"--yes", "samples", "repair", path, "--only", "none"}).status, 1);
    const CliRun only = runCli({"--yes", "samples", "repair", path, "--only", "EIGHT", "--only", "fast.wav"});
    EXPECT_EQ(only.status, 4) << "one is still wrong";
    EXPECT_EQ(only.output, "2 samples repaired\nThe originals are in " + path + "_originals\n" +
                               "eight.wav: was WAV, PCM, 22050 Hz, mono, 8 bits, 0.15 s\n"
                               "fast.wav: was WAV, PCM, 44100 Hz, mono, 16 bits, 0.15 s\n");
    EXPECT_EQ(readBytes(root / "Samples_originals" / "eight.wav"), wavBytes({.bitsPerSample = 8}));
    EXPECT_EQ(runCli({"--language", "F", "--yes", "samples", "repair", path}).status, 0);
    EXPECT_EQ(runCli({"samples", "check", path}).status, 0);
}

TEST(SampleCommandsOfFolder, InfoTellsWhatFilesAre)
{
    const TemporaryFolder root;
    writeBytes(root / "a.wav", wavBytes({.channels = 2, .listChunk = true}));
    writeBytes(root / "text.wav", "no sound");
    const std::string a = (root / "a.wav").string();
    const CliRun run = runCli({"samples", "info", a, (root / "text.wav").string()});
    EXPECT_EQ(run.output,
              a + ": WAV, PCM, 22050 Hz, stereo, 16 bits, 0.15 s; peak -4.5 dB; chunks: fmt LIST data\n");
    EXPECT_EQ(run.status, 3);
    const CliRun json = runCli({"samples", "info", "--json", a});
    EXPECT_EQ(json.output, R"({"File": ")" + a +
                               R"(", "Kind": "WAV", "Encoding": "PCM", "Rate": 22050, "Channels": 2, )"
                               R"("Bits": 16, "Frames": 3307, "Seconds": 0.150, "Peak": 0.594757, )"
                               R"("Chunks": ["fmt ", "LIST", "data"], "CutOff": false, )"
                               "\"RightFormat\": false}\n");
}

TEST(SampleCommandsOfFolder, AddMakesSamplesOfSoundFiles)
{
    const DemoCli cli;
    writeBytes(cli.root / "My step.wav", wavBytes({.channels = 2}));
    const CliRun added = cli.agreeing({"samples", "add", "10", (cli.root / "My step.wav").string()});
    EXPECT_EQ(added.status, 0) << added.messages;
    EXPECT_NE(cli.lineOf(10).find("rico_01 rico_02 My_step"), std::string::npos) << cli.lineOf(10);
    EXPECT_EQ(runCli({"samples", "check", (cli.levelEditor / "sound" / "Samples").string()}).status, 0);
    EXPECT_EQ(cli.agreeing({"samples", "add", "10", (cli.root / "none.wav").string()}).status, 3);
    EXPECT_EQ(cli.agreeing({"samples", "add", "9999", (cli.root / "My step.wav").string()}).status, 1);
}
