// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What is newer than the 28 fields of Tavrel.par: "name=value" in lines of UTF-8. Names that this version
// does not know stay in the file.
class Options
{
public:
    // A missing file has no options; one that cannot be read neither, and is not replaced.
    static Options load(const std::filesystem::path& programFolder);
    // Writes what was set since; what others have written meanwhile stays. Nothing to write is no problem.
    [[nodiscard]] Problem save();

    std::optional<std::string> text(std::string_view name) const;
    // "1" and "0".
    bool flag(std::string_view name, bool preset = false) const;
    // Line feeds in a value become blanks.
    void set(std::string_view name, std::string value);
    void setFlag(std::string_view name, bool value) { set(name, value ? "1" : "0"); }

private:
    struct Option
    {
        std::string name;
        std::string value;
    };
    static std::vector<Option> parse(std::string_view text);
    static void put(std::vector<Option>& options, Option option);

    std::filesystem::path m_programFolder;
    bool m_unreadable = false;
    std::vector<Option> m_options;
    std::vector<Option> m_unsaved;
};

// The names of the options.
namespace options {
// Lines of sounds.txt that are no sounds are written back, and lines that nobody changed as they are.
constexpr std::string_view keepComments = "keep-comments";
// "X Y WIDTH HEIGHT" of the main window, and whether it was maximised.
constexpr std::string_view mainWindowPlace = "main-window";
constexpr std::string_view mainWindowMaximised = "main-window-maximised";
// "WIDTH HEIGHT", behind it the name of a secondary window.
constexpr std::string_view windowSizePrefix = "window-size-";
// Which errors of which sounds.txt were told last.
constexpr std::string_view toldFileErrors = "told-file-errors";
// Of the main list, beside number and name: "samples,letters".
constexpr std::string_view listColumns = "list-columns";
// Which state of the register's files was told last.
constexpr std::string_view toldRegister = "told-register";
} // namespace options

} // namespace tavrel
