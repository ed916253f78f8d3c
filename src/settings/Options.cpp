// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/Options.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"

#include <algorithm>

namespace tavrel {

Options Options::load(const std::filesystem::path& programFolder)
{
    Options options;
    options.m_programFolder = programFolder;
    const std::filesystem::path path = fileIn(programFolder, optionsFileName);
    std::error_code error;
    if (!std::filesystem::exists(path, error) && !error) {
        return options;
    }
    const Result<TextFile> file = readTextFile(path);
    options.m_unreadable = !file;
    if (file) {
        options.m_options = parse(file->text);
    }
    return options;
}

std::vector<Options::Option> Options::parse(std::string_view text)
{
    std::vector<Option> result;
    const TextFile file{{}, std::string(text), false, {}};
    for (const std::string_view line : file.lines()) {
        const std::size_t sign = line.find('=');
        if (sign != std::string_view::npos) {
            put(result, {std::string(line.substr(0, sign)), std::string(line.substr(sign + 1))});
        }
    }
    return result;
}

void Options::put(std::vector<Option>& options, Option option)
{
    const auto present = std::ranges::find(options, option.name, &Option::name);
    if (present == options.end()) {
        options.push_back(std::move(option));
    } else {
        present->value = std::move(option.value);
    }
}

std::optional<std::string> Options::text(std::string_view name) const
{
    const auto found = std::ranges::find(m_options, name, &Option::name);
    return found == m_options.end() ? std::nullopt : std::optional(found->value);
}

bool Options::flag(std::string_view name, bool preset) const
{
    const std::optional<std::string> value = text(name);
    return value ? *value == "1" : preset;
}

void Options::set(std::string_view name, std::string value)
{
    std::ranges::replace_if(
        value, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    if (text(name) != value) {
        put(m_options, {std::string(name), value});
        put(m_unsaved, {std::string(name), std::move(value)});
    }
}

Problem Options::save()
{
    if (m_unsaved.empty() || m_unreadable || m_programFolder.empty()) {
        return std::nullopt;
    }
    const Result<std::optional<FolderEntry>> entry = lookUp(m_programFolder, optionsFileName);
    if (!entry) {
        return entry.failure();
    }
    std::vector<Option> all;
    if (*entry) { // what others have written since stays
        const Result<TextFile> present = readTextFile((*entry)->path);
        if (!present) {
            return present.failure();
        }
        all = parse(present->text);
    }
    const std::filesystem::path file =
        *entry ? (*entry)->path : m_programFolder / nativePath(optionsFileName);
    std::ranges::for_each(m_unsaved, [&all](const Option& option) { put(all, option); });
    std::string text;
    for (const Option& option : all) {
        text += option.name + "=" + option.value + "\r\n";
    }
    if (Problem problem = writeFileSafely(file, text)) {
        return problem;
    }
    m_options = std::move(all);
    m_unsaved.clear();
    return std::nullopt;
}

} // namespace tavrel
