// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Folder.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/System.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace tavrel {

namespace fs = std::filesystem;

Result<std::vector<FolderEntry>> listFolder(const fs::path& folder)
{
    std::error_code error;
    std::vector<FolderEntry> entries;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        std::error_code ignored;
        const CodePageText name = codePagePath(it->path().filename());
        entries.push_back({name.bytes, name.exact, it->path(), it->is_regular_file(ignored)});
    }
    if (error) {
        return cannotRead(folder, error);
    }
    return entries;
}

std::optional<FolderEntry> findIn(const std::vector<FolderEntry>& entries, std::string_view name)
{
    const std::string wanted = upperCase(name);
    const FolderEntry* best = nullptr;
    for (const FolderEntry& entry : entries) {
        if (!entry.exactName) {
            continue; // its "?" stand for something else
        }
        if (entry.name == name) {
            return entry;
        }
        if (upperCase(entry.name) == wanted && (best == nullptr || entry.name < best->name)) {
            best = &entry;
        }
    }
    return best == nullptr ? std::nullopt : std::optional(*best);
}

namespace {

std::optional<FolderEntry> findByName(const fs::path& folder, std::string_view name)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    return entries ? findIn(*entries, name) : std::nullopt;
}

} // namespace

std::optional<fs::path> findEntry(const fs::path& folder, std::string_view name)
{
    const std::optional<FolderEntry> entry = findByName(folder, name);
    return entry ? std::optional(entry->path) : std::nullopt;
}

Result<std::optional<FolderEntry>> lookUp(const fs::path& folder, std::string_view name)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    return findIn(*entries, name);
}

Result<fs::path> fileToWrite(const fs::path& folder, std::string_view name)
{
    const Result<std::optional<FolderEntry>> entry = lookUp(folder, name);
    if (!entry) {
        return entry.failure();
    }
    return *entry ? (*entry)->path : folder / nativePath(name);
}

Result<FolderIndex> FolderIndex::of(const fs::path& folder)
{
    Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    FolderIndex index;
    for (FolderEntry& entry : *entries) {
        if (entry.exactName) {
            index.m_entries.push_back({upperCase(entry.name), std::move(entry)});
        }
    }
    std::ranges::sort(index.m_entries, {},
                      [](const Entry& entry) { return std::tie(entry.upperName, entry.entry.name); });
    return index;
}

std::span<const FolderIndex::Entry> FolderIndex::sameNames(std::string_view name) const
{
    const std::string wanted = upperCase(name);
    return {std::ranges::lower_bound(m_entries, wanted, {}, &Entry::upperName),
            std::ranges::upper_bound(m_entries, wanted, {}, &Entry::upperName)};
}

const FolderEntry* FolderIndex::find(std::string_view name) const
{
    const std::span<const Entry> same = sameNames(name);
    const auto exact = std::ranges::find(same, name, [](const Entry& entry) { return entry.entry.name; });
    return same.empty() ? nullptr : exact == same.end() ? &same.front().entry : &exact->entry;
}

std::vector<fs::path> FolderIndex::otherSpellings(std::string_view name) const
{
    std::vector<fs::path> others;
    for (const Entry& entry : sameNames(name)) {
        if (entry.entry.name != name) {
            others.push_back(entry.entry.path);
        }
    }
    return others;
}

namespace {

std::vector<fs::path> otherSpellingsOf(const fs::path& file, const FolderIndex& folder)
{
    const CodePageText name = codePagePath(file.filename());
    std::vector<fs::path> others = name.exact ? folder.otherSpellings(name.bytes) : std::vector<fs::path>();
    std::erase_if(others, [](const fs::path& other) {
        std::error_code ignored;
        return fs::is_directory(other, ignored);
    });
    return others;
}

// For certain: what cannot be compared may be the file itself.
bool isAnotherFile(const fs::path& other, const fs::path& file)
{
    std::error_code error;
    return !fs::equivalent(other, file, error) && !error;
}

} // namespace

Problem checkOtherSpellings(const FolderIndex& folder, const fs::path& file)
{
    for (const fs::path& other : otherSpellingsOf(file, folder)) {
        std::error_code ignored;
        if (fs::exists(other, ignored) && !system::isWritable(other)) {
            return cannotWrite(other, std::make_error_code(std::errc::permission_denied));
        }
    }
    return std::nullopt;
}

void removeOtherSpellings(const FolderIndex& folder, const fs::path& file)
{
    const std::vector<fs::path> others = otherSpellingsOf(file, folder);
    const Result<std::vector<FolderEntry>> entries =
        others.empty() ? std::vector<FolderEntry>() : listFolder(file.parent_path());
    // A disk that knows no letter case may hold the new file under its old name.
    const auto isFile = [&file](const FolderEntry& entry) {
        return entry.path.filename() == file.filename();
    };
    if (!entries || std::ranges::none_of(*entries, isFile)) {
        return;
    }
    for (const fs::path& other : others) {
        std::error_code ignored;
        if (isAnotherFile(other, file)) {
            fs::remove(other, ignored);
        }
    }
}

Result<bool> holdsEntry(const fs::path& folder, std::string_view name)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    return std::ranges::any_of(*entries,
                               [name](const FolderEntry& entry) { return sameName(entry.name, name); });
}

std::optional<fs::path> findFile(const fs::path& folder, std::string_view name)
{
    const std::optional<FolderEntry> entry = findByName(folder, name);
    return entry && entry->isFile ? std::optional(entry->path) : std::nullopt;
}

fs::path fileIn(const fs::path& folder, std::string_view name)
{
    return findEntry(folder, name).value_or(folder / nativePath(name));
}

bool isFolder(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

bool isTrueFolder(const fs::path& path)
{
    return isFolder(path) && !system::isLink(path);
}

fs::path withEnding(fs::path path, std::string_view ending)
{
    return path += ending;
}

fs::path asOnDisk(const fs::path& path)
{
    const CodePageText name = codePagePath(path.filename());
    return name.exact ? findEntry(path.parent_path(), name.bytes).value_or(path) : path;
}

fs::path folderIn(const fs::path& base, std::initializer_list<std::string_view> names)
{
    fs::path folder = base;
    for (const std::string_view name : names) {
        folder = fileIn(folder, name);
    }
    return folder;
}

namespace {

bool isDeviceName(std::string_view name)
{
    const std::string base = upperCase(name.substr(0, name.find('.')));
    constexpr std::array<std::string_view, 6> devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    if (std::ranges::find(devices, base) != devices.end()) {
        return true;
    }
    constexpr std::string_view ports = "123456789\xB9\xB2\xB3"; // the superscript digits count too
    return base.size() == 4 && (base.starts_with("COM") || base.starts_with("LPT")) &&
           ports.find(base[3]) != std::string_view::npos;
}

} // namespace

bool isPlainFileName(std::string_view name)
{
    static constexpr std::string_view reserved = "/\\:*?\"<>|";
    const auto isReserved = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || reserved.find(c) != std::string_view::npos;
    };
    return !name.empty() && std::ranges::none_of(name, isReserved) && name.back() != '.' &&
           name.back() != ' ' && !isDeviceName(name);
}

} // namespace tavrel
