// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "base/FailureTexts.h"
#include "base/System.h"
#include "base/TextFile.h"

#include <chrono>
#include <string>
#include <thread>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view unfinishedEnding = ".tavrel-new";
constexpr int tries = 5;
constexpr std::chrono::milliseconds pauseBetweenTries(60);

fs::path withEnding(fs::path file)
{
    return file += unfinishedEnding;
}

// A chain that is longer than this is a ring.
constexpr int longestLinkChain = 40;

std::error_code followLinks(fs::path& file)
{
    std::error_code error;
    for (int i = 0; i < longestLinkChain; ++i) {
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

// Writes the bytes beside the target, then lets `putInPlace` move them there.
template <typename PutInPlace>
std::error_code writeBeside(const fs::path& target, std::string_view bytes, PutInPlace putInPlace)
{
    std::error_code ignored;
    const fs::path unfinished = withEnding(target);
    fs::remove(unfinished, ignored);
    std::error_code error = system::writeNewFile(unfinished, bytes);
    if (!error) {
        error = withRetries([&] { return putInPlace(unfinished); });
    }
    if (error) {
        fs::remove(unfinished, ignored);
    }
    return error;
}

std::error_code replaceWith(fs::path target, std::string_view bytes)
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
    return writeBeside(target, bytes, [&](const fs::path& unfinished) {
        std::error_code ignored;
        if (fs::exists(old)) {
            fs::permissions(unfinished, old.permissions(), ignored);
        }
        return system::replaceFile(unfinished, target);
    });
}

std::error_code createWith(const fs::path& target, std::string_view bytes)
{
    return writeBeside(target, bytes,
                       [&](const fs::path& unfinished) { return system::moveToNewName(unfinished, target); });
}

} // namespace

Problem writeFileSafely(const fs::path& target, std::string_view bytes)
{
    if (const std::error_code error = replaceWith(target, bytes)) {
        return cannotWrite(target, error);
    }
    return std::nullopt;
}

Problem createFileSafely(const fs::path& target, std::string_view bytes)
{
    if (const std::error_code error = createWith(target, bytes)) {
        return cannotWrite(target, error);
    }
    return std::nullopt;
}

Result<fs::path> keepCopyBeside(const fs::path& file, std::string_view bytes)
{
    constexpr int mostCopies = 9999;
    fs::path copy;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int number = 1; number <= mostCopies && error == std::errc::file_exists; ++number) {
        copy = file.parent_path() / file.stem();
        copy += "_copy" + std::to_string(number);
        copy += file.extension();
        error = createWith(copy, bytes);
    }
    if (error) {
        return cannotWrite(copy, error);
    }
    return copy;
}

Problem moveSafely(const fs::path& from, const fs::path& to)
{
    if (const std::error_code error = withRetries([&] { return system::moveToNewName(from, to); })) {
        return cannotWrite(to, error);
    }
    return std::nullopt;
}

void removeUnfinishedWrites(const fs::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        std::error_code ignored;
        fs::path file = it->path();
        if (file.extension() == unfinishedEnding) {
            fs::remove(file, ignored);
        } else if (it->is_symlink(ignored) && !followLinks(file)) {
            fs::remove(withEnding(file), ignored);
        }
    }
}

} // namespace tavrel
