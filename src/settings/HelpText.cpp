// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/HelpText.h"

#include "base/Folder.h"
#include "base/TextFile.h"

namespace tavrel {

namespace {

constexpr std::string_view formerHelpFile = "Tavrel1.txt";

void removeFormerHelp(const std::filesystem::path& programFolder)
{
    if (const auto file = findFile(programFolder, formerHelpFile)) {
        std::error_code ignored;
        std::filesystem::remove(*file, ignored);
    }
}

} // namespace

Result<std::string> loadHelp(const std::filesystem::path& programFolder, Language language)
{
    removeFormerHelp(programFolder);
    const Result<TextFile> file =
        readTextFile(programFolder, language == Language::French ? "SFX_Fra1.txt" : "SFX_Eng1.txt");
    if (!file) {
        return file.failure();
    }
    std::string text;
    for (const std::string_view line : file->lines()) {
        text.append(line).append("\r\n");
    }
    return text;
}

} // namespace tavrel
