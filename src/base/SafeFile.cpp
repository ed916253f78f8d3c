// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/System.h"
#include "base/TextFile.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view unfinishedEnding = ".tavrel-new";
constexpr int tries = 5;
constexpr std::chrono::milliseconds pauseBetweenTries(60);
constexpr std::chrono::hours oldEnough(24);
constexpr fs::path::value_type dot = '.';

// The beginning of the name that unfinished writes of a file have. Systems allow some 255 characters in all.
fs::path::string_type beginningOf(const fs::path& file)
{
    constexpr std::size_t longest = 180;
    return file.filename().native().substr(0, longest);
}

template <typename Step>
std::error_code withRetries(Step step)
{
    std::error_code error = step();
    for (int i = 1; i < tries && system::isPassing(error); ++i) {
        std::this_thread::sleep_for(pauseBetweenTries);
        error = step();
    }
    return error;
}

bool isOldEnough(const fs::path& file)
{
    std::error_code error;
    const fs::file_time_type written = fs::last_write_time(file, error);
    return !error && fs::file_time_type::clock::now() - written > oldEnough;
}

// Writes the bytes beside the target, then lets `putInPlace` move them there. Once more when the file beside
// the target has gone: whoever tidied up took it for a leftover.
template <typename PutInPlace>
std::error_code writeBeside(const fs::path& target, std::string_view bytes,
                            const std::optional<fs::path>& model, PutInPlace putInPlace)
{
    std::error_code error;
    for (int i = 0; i < tries; ++i) {
        const fs::path unfinished = unfinishedName(target);
        error = system::writeNewFile(unfinished, bytes, model);
        const bool wasWritten = !error;
        if (wasWritten) {
            error = withRetries([&] { return putInPlace(unfinished); });
        }
        if (!error) {
            return {};
        }
        std::error_code ignored;
        fs::remove(unfinished, ignored);
        if (!wasWritten || error != std::errc::no_such_file_or_directory) {
            return error;
        }
    }
    return error;
}

std::error_code replaceWith(fs::path target, std::string_view bytes, const std::function<bool()>& mayReplace)
{
    if (const std::error_code error = followLinks(target)) {
        return error;
    }
    std::error_code statusError;
    const fs::file_status old = fs::status(target, statusError);
    if (old.type() == fs::file_type::none) {
        return statusError;
    }
    if (const std::error_code refusal = refusalOfKind(old)) {
        return refusal;
    }
    if (fs::exists(old) && !system::isWritable(target)) {
        return std::make_error_code(std::errc::permission_denied);
    }
    const std::optional<fs::path> model = fs::exists(old) ? std::optional(target) : std::nullopt;
    return writeBeside(target, bytes, model, [&](const fs::path& unfinished) {
        return mayReplace() ? system::replaceFile(unfinished, target)
                            : std::make_error_code(std::errc::operation_canceled);
    });
}

std::error_code createWith(const fs::path& target, std::string_view bytes,
                           const std::optional<fs::path>& copied)
{
    std::error_code ignored;
    const std::optional<fs::path> model = copied && fs::exists(*copied, ignored) ? copied : std::nullopt;
    return writeBeside(target, bytes, model,
                       [&](const fs::path& unfinished) { return system::moveToNewName(unfinished, target); });
}

constexpr int mostCopies = 9999;

fs::path copyBeside(const fs::path& file, int number)
{
    fs::path copy = file.parent_path() / file.stem();
    copy += "_copy" + std::to_string(number);
    return copy += file.extension();
}

void removeUnfinished(const fs::path& file, Unfinished which)
{
    std::error_code ignored;
    if (fs::is_regular_file(fs::symlink_status(file, ignored)) &&
        (which == Unfinished::All || isOldEnough(file))) {
        fs::remove(file, ignored);
    }
}

// All of the folder, or those of one file alone.
void removeUnfinishedIn(const fs::path& folder, const std::optional<fs::path>& written, Unfinished which)
{
    const fs::path::string_type beginning = written ? beginningOf(*written) + dot : fs::path::string_type();
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        const fs::path& file = it->path();
        if (file.extension() == unfinishedEnding && file.filename().native().starts_with(beginning)) {
            removeUnfinished(file, which);
        }
    }
}

} // namespace

fs::path unfinishedName(const fs::path& target)
{
    std::random_device random;
    std::array<char, 40> own = {};
    std::snprintf(own.data(), own.size(), ".%lx-%08x%08x", system::processNumber(), random(), random());
    fs::path name = target.parent_path() / beginningOf(target);
    name += own.data();
    return name += unfinishedEnding;
}

Problem writeFileSafely(const fs::path& target, std::string_view bytes)
{
    const Result<bool> written = writeFileIf(target, bytes, [] { return true; });
    return written ? Problem() : Problem(written.failure());
}

Result<bool> writeFileIf(const fs::path& target, std::string_view bytes,
                         const std::function<bool()>& mayReplace)
{
    const std::error_code error = replaceWith(target, bytes, mayReplace);
    if (error == std::errc::operation_canceled) {
        return false;
    }
    if (error) {
        return cannotWrite(target, error);
    }
    return true;
}

Problem replaceLinkSafely(const fs::path& link, std::string_view bytes)
{
    const std::error_code error = writeBeside(link, bytes, std::nullopt, [&](const fs::path& unfinished) {
        return system::replaceFile(unfinished, link);
    });
    return error ? Problem(cannotWrite(link, error)) : Problem();
}

Problem createFileSafely(const fs::path& target, std::string_view bytes,
                         const std::optional<fs::path>& copied)
{
    if (const std::error_code error = createWith(target, bytes, copied)) {
        return cannotWrite(target, error);
    }
    return std::nullopt;
}

Result<fs::path> keepCopyBeside(const fs::path& file, std::string_view bytes)
{
    fs::path copy;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int number = 1; number <= mostCopies && error == std::errc::file_exists; ++number) {
        copy = copyBeside(file, number);
        error = createWith(copy, bytes, file);
    }
    if (error) {
        return cannotWrite(copy, error);
    }
    return copy;
}

fs::path nextCopyBeside(const fs::path& file)
{
    std::error_code ignored;
    int number = 1;
    while (number < mostCopies && fs::exists(fs::symlink_status(copyBeside(file, number), ignored))) {
        ++number;
    }
    return copyBeside(file, number);
}

std::error_code flushSafely(const fs::path& file)
{
    return withRetries([&] { return system::flushFile(file); });
}

Problem moveSafely(const fs::path& from, const fs::path& to)
{
    if (const std::error_code error = withRetries([&] { return system::moveToNewName(from, to); })) {
        return cannotWrite(to, error);
    }
    return std::nullopt;
}

std::error_code followLinks(fs::path& file)
{
    constexpr int longestChain = 40; // a longer one is a ring
    std::error_code error;
    for (int i = 0; i < longestChain; ++i) {
        if (!fs::is_symlink(fs::symlink_status(file, error))) {
            return {};
        }
        const fs::path next = fs::read_symlink(file, error);
        if (error) {
            return error;
        }
        file = file.parent_path() / next; // an absolute target replaces the left side
    }
    return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

void removeUnfinishedWrites(const fs::path& folder, Unfinished which)
{
    removeUnfinishedIn(folder, std::nullopt, which);
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        std::error_code ignored;
        fs::path file = it->path();
        if (it->is_symlink(ignored) && !followLinks(file)) {
            removeUnfinishedIn(file.parent_path(), file, which);
        }
    }
}

void removeUnfinishedFolders(const fs::path& target)
{
    const fs::path::string_type beginning = beginningOf(target) + dot;
    std::error_code error;
    std::error_code ignored;
    std::vector<fs::path> left;
    for (fs::directory_iterator it(target.parent_path(), error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        const fs::path& folder = it->path();
        if (folder.extension() == unfinishedEnding && folder.filename().native().starts_with(beginning) &&
            isTrueFolder(folder) && isOldEnough(folder)) {
            left.push_back(folder);
        }
    }
    for (const fs::path& folder : left) {
        fs::remove_all(folder, ignored);
    }
}

} // namespace tavrel
