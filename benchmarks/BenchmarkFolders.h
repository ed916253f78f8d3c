// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "demo/DemoFolder.h"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace tavrel {

// The demo folders without samples, removed at the end.
class BenchmarkFolders
{
public:
    BenchmarkFolders()
    {
        makeLevelEditorFolder(levelEditor, TAVREL_DATA, DemoSamples::None);
        makeProgramFolder(program, TAVREL_DATA, levelEditor);
    }
    BenchmarkFolders(const BenchmarkFolders&) = delete;
    BenchmarkFolders& operator=(const BenchmarkFolders&) = delete;
    ~BenchmarkFolders() { std::filesystem::remove_all(root); }

    // The stock lines over and over.
    void growTo(std::size_t lineCount) const
    {
        const Result<TextFile> stock = readTextFile(program / "Tavrel.tos");
        const std::vector<std::string_view> lines = stock->lines();
        std::string text;
        for (std::size_t i = 0; i < lineCount; ++i) {
            text += std::string(lines[i % lines.size()]) + "\r\n";
        }
        if (writeFileSafely(creator / "Sounds.txt", text)) {
            throw std::runtime_error("no sounds.txt");
        }
    }

    std::filesystem::path root = std::filesystem::temp_directory_path() / "tavrel-benchmark";
    std::filesystem::path levelEditor = root / "trle";
    std::filesystem::path program = root / "program";
    std::filesystem::path creator = levelEditor / "sound" / "LevelSFX Creator";
};

} // namespace tavrel
