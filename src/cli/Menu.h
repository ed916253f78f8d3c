// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Console.h"
#include "cli/SoundsArgument.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The commands and their arguments, told to the library that reads the command line. Arguments arrive as
// UTF-8. A name that starts with "--" is an option, any other an argument at its place.
namespace tavrel {

// Judges an argument, and may put another spelling in its place. What is wrong with it, or nothing.
using ArgumentCheck = std::function<std::optional<BilingualText>(std::string&)>;

// Code page bytes from here on.
std::optional<BilingualText> toCodePage(std::string& argument);
// Digits alone, at least one of them.
bool isNumber(std::string_view text, std::size_t mostDigits);

// One command. The targets have to live as long as the command.
class CommandEntry
{
public:
    CommandEntry(CLI::App& app, Language language) : m_app(app), m_language(language) {}

    // Texts of the level editor's files.
    CommandEntry& text(const std::string& name, const BilingualText& what, std::string& target,
                       const ArgumentCheck& check = toCodePage);
    // A "#" before the letter may be left out.
    CommandEntry& letter(const std::string& name, const BilingualText& what, std::string& target);
    CommandEntry& number(const std::string& name, const BilingualText& what, std::size_t& target);
    // Numbers and ranges "N", and "--where"; one of them is needed.
    CommandEntry& sounds(SoundsArgument& target);
    CommandEntry& path(const std::string& name, const BilingualText& what, std::filesystem::path& target);
    // At least one.
    CommandEntry& paths(const std::string& name, const BilingualText& what,
                        std::vector<std::filesystem::path>& targets);
    CommandEntry& flag(const std::string& name, const BilingualText& what, bool& target);

    // These may be left out.
    CommandEntry& optionalText(const std::string& name, const BilingualText& what,
                               std::optional<std::string>& target, const ArgumentCheck& check = toCodePage);
    // An option that may be given more than once.
    CommandEntry& texts(const std::string& name, const BilingualText& what, std::vector<std::string>& targets,
                        const ArgumentCheck& check = toCodePage);
    CommandEntry& optionalLetter(const std::string& name, const BilingualText& what,
                                 std::optional<std::string>& target);
    // Whose record of changed lines is written with sounds.txt.
    CommandEntry& wad(std::optional<std::string>& target,
                      const BilingualText& usual = {"that of the settings", "celui des paramètres"});
    CommandEntry& optionalPath(const std::string& name, const BilingualText& what,
                               std::optional<std::filesystem::path>& target);

private:
    CLI::Option& add(const std::string& name, const BilingualText& what, const ArgumentCheck& check,
                     const std::function<void(const std::string&)>& store);

    CLI::App& m_app;
    Language m_language;
};

// Commands that stand together. The one on the command line ends up in `chosen`.
class Menu
{
public:
    Menu(CLI::App& app, Language language, Command& chosen)
        : m_app(app), m_language(language), m_chosen(chosen)
    {}

    Menu group(const std::string& name, const BilingualText& what) const;
    CommandEntry command(const std::string& name, const BilingualText& what, Command run) const;

private:
    CLI::App& m_app;
    Language m_language;
    Command& m_chosen;
};

} // namespace tavrel
