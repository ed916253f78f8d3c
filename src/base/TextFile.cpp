// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextFile.h"

#include "base/FailureTexts.h"
#include "base/Folder.h"

#include <algorithm>
#include <cerrno>
#include <fstream>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

std::error_code streamError()
{
    return {errno != 0 ? errno : EIO, std::generic_category()};
}

} // namespace

std::uint64_t hashOf(std::string_view bytes)
{
    std::uint64_t hash = 14695981039346656037U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    return hash;
}

std::error_code refusalOfKind(const fs::file_status& status)
{
    if (fs::is_directory(status)) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    return fs::exists(status) && !fs::is_regular_file(status)
               ? std::make_error_code(std::errc::operation_not_supported)
               : std::error_code();
}

FileStamp stampOf(std::string_view bytes)
{
    return {bytes.size(), hashOf(bytes)};
}

namespace {

Failure tooLarge(const fs::path& file, std::uintmax_t size, std::uintmax_t largest)
{
    constexpr unsigned megabyte = 20;
    const std::string found = std::to_string(size >> megabyte);
    const std::string most = std::to_string(largest >> megabyte);
    return wrongContent(file,
                        {"The file has " + found + " MB. Such a file is read up to " + most + " MB.",
                         "Le fichier a " + found + " Mo. Un tel fichier est lu jusqu'à " + most + " Mo."});
}

} // namespace

Result<FileContent> readFile(const fs::path& file, std::uintmax_t largest)
{
    std::error_code error;
    if (const std::error_code refusal = refusalOfKind(fs::status(file, error))) {
        return cannotRead(file, refusal);
    }
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) {
        return cannotRead(file, error);
    }
    if (size > largest) {
        return tooLarge(file, size, largest);
    }
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return cannotRead(file, streamError());
    }
    FileContent content;
    content.bytes.reserve(static_cast<std::size_t>(size));
    constexpr std::size_t blockSize = 1U << 16U;
    std::string block(blockSize, '\0');
    while (stream && content.bytes.size() <= largest) { // it may grow while it is read
        stream.read(block.data(), static_cast<std::streamsize>(block.size()));
        content.bytes.append(block, 0, static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) {
        return cannotRead(file, streamError());
    }
    if (content.bytes.size() > largest) {
        return tooLarge(file, content.bytes.size(), largest);
    }
    content.stamp = stampOf(content.bytes);
    return content;
}

std::optional<std::string_view> takeLine(std::string_view& rest)
{
    if (rest.empty()) {
        return std::nullopt;
    }
    const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
    rest.remove_prefix(line.size());
    rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1));
    return line;
}

std::vector<std::string_view> TextFile::lines() const
{
    std::vector<std::string_view> result;
    std::string_view rest = text;
    while (const std::optional<std::string_view> line = takeLine(rest)) {
        result.push_back(*line);
    }
    return result;
}

Result<TextFile> readTextFile(const fs::path& file, std::uintmax_t largest)
{
    Result<FileContent> content = readFile(file, largest);
    return content ? asTextFile(file, std::move(*content)) : content.failure();
}

namespace {

// Of UTF-16, which has zeros, too. Without any, these are two letters of the code page.
bool hasWideMark(std::string_view text)
{
    const std::string_view mark = text.substr(0, 2);
    return mark == "\xFF\xFE" || mark == "\xFE\xFF";
}

} // namespace

Result<TextFile> asTextFile(const fs::path& file, FileContent content)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    TextFile result{file, std::move(content.bytes), false, content.stamp};
    const bool holdsZeros = result.text.find('\0') != std::string::npos;
    if (holdsZeros && hasWideMark(result.text)) {
        return wrongContent(file,
                            {"The file is written in Unicode (UTF-16). Save it as ANSI text.",
                             "Le fichier est écrit en Unicode (UTF-16). Enregistrez-le en texte ANSI."});
    }
    if (holdsZeros) {
        return wrongContent(file, {"The file contains bytes of zero: it is damaged or not a text file.",
                                   "Le fichier contient des octets nuls : il est endommagé ou n'est pas un "
                                   "fichier texte."});
    }
    if (result.text.starts_with(byteOrderMark)) {
        result.text.erase(0, byteOrderMark.size());
        result.hadByteOrderMark = true;
    }
    return result;
}

Result<TextFile> readTextFile(const fs::path& folder, std::string_view name, std::uintmax_t largest)
{
    const Result<std::optional<FolderEntry>> file = lookUp(folder, name);
    if (!file) {
        return file.failure();
    }
    return *file ? readTextFile((*file)->path, largest) : fileMissing(folder, name);
}

} // namespace tavrel
