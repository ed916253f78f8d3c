// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "base/FailureTexts.h"
#include "base/System.h"

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

fs::path behindLinks(fs::path file)
{
    std::error_code error;
    for (int i = 0; i < longestLinkChain && fs::is_symlink(file, error); ++i) {
        const fs::path next = fs::read_symlink(file, error);
        if (error) {
            break;
        }
        file = file.parent_path() / next; // an absolute target replaces the left side
    }
    return file;
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

std::error_code replaceWith(const fs::path& target, std::string_view bytes)
{
    std::error_code ignored;
    const fs::file_status old = fs::status(target, ignored);
    if (fs::exists(old) && !system::isWritable(target)) {
        return std::make_error_code(std::errc::permission_denied);
    }
    const fs::path unfinished = withEnding(target);
    fs::remove(unfinished, ignored);
    std::error_code error = system::writeNewFile(unfinished, bytes);
    if (!error) {
        if (fs::exists(old)) {
            fs::permissions(unfinished, old.permissions(), ignored);
        }
        error = withRetries([&] { return system::replaceFile(unfinished, target); });
    }
    if (error) {
        fs::remove(unfinished, ignored);
    }
    return error;
}

} // namespace

Problem writeFileSafely(const fs::path& target, std::string_view bytes)
{
    if (const std::error_code error = replaceWith(behindLinks(target), bytes)) {
        return cannotWrite(target, error);
    }
    return std::nullopt;
}

Result<fs::path> keepCopyBeside(const fs::path& file, std::string_view bytes)
{
    std::error_code ignored;
    fs::path copy;
    int number = 0;
    do {
        ++number;
        copy = file.parent_path() / file.stem();
        copy += "_copy" + std::to_string(number);
        copy += file.extension();
    } while (fs::exists(copy, ignored));
    if (Problem problem = writeFileSafely(copy, bytes)) {
        return std::move(*problem);
    }
    return copy;
}

void removeUnfinishedWrites(const fs::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        if (it->path().extension() == unfinishedEnding) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
        }
    }
}

} // namespace tavrel
