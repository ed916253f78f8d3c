// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Menu.h"

#include "base/CodePage.h"
#include "base/Folder.h"

#include <algorithm>

namespace tavrel {

namespace {

bool isOption(const std::string& name)
{
    return name.starts_with("--");
}

std::filesystem::path pathOf(const std::string& utf8)
{
    return std::u8string(utf8.begin(), utf8.end());
}

CLI::Validator validator(const ArgumentCheck& check, Language language)
{
    return {[check, language](std::string& argument) {
                const std::optional<BilingualText> wrong = check(argument);
                return wrong ? wrong->in(language) : std::string();
            },
            ""};
}

std::optional<BilingualText> checkSoundNumber(std::string& argument)
{
    constexpr std::size_t mostDigits = 9;
    if (isNumber(argument, mostDigits)) {
        return std::nullopt;
    }
    return BilingualText("[" + argument + "] is not the number of a sound",
                         "[" + argument + "] n'est pas un numéro de son");
}

std::optional<BilingualText> checkSoundNumbers(std::string& argument)
{
    if (parseRanges(argument)) {
        return std::nullopt;
    }
    return BilingualText("[" + argument + "] is neither the number of a sound nor a range like 5-9",
                         "[" + argument + "] n'est ni un numéro de son, ni une plage comme 5-9");
}

std::optional<BilingualText> toLetter(std::string& argument)
{
    if (argument.starts_with('#')) {
        argument.erase(0, 1);
    }
    return toCodePage(argument);
}

std::optional<BilingualText> checkWadName(std::string& argument)
{
    if (std::optional<BilingualText> wrong = toCodePage(argument)) {
        return wrong;
    }
    if (isPlainFileName(argument)) {
        return std::nullopt;
    }
    return BilingualText("This name cannot be a file's", "Ce nom ne peut être celui d'un fichier");
}

std::optional<BilingualText> checkPath(std::string& argument)
{
    if (!argument.empty()) {
        return std::nullopt;
    }
    return BilingualText("The name of a file or folder is empty",
                         "Le nom d'un fichier ou d'un répertoire est vide");
}

const std::string& groupTitle(Language language)
{
    static const BilingualText title("Commands", "Commandes");
    return title.in(language);
}

} // namespace

std::optional<BilingualText> toCodePage(std::string& argument)
{
    CodePageText converted = codePageFromUtf8(argument);
    if (!converted.exact) {
        return BilingualText(
            "[" + argument + "] has characters that the level editor's files cannot hold",
            "[" + argument +
                "] contient des caractères que les fichiers de l'éditeur ne peuvent pas contenir");
    }
    argument = std::move(converted.bytes);
    return std::nullopt;
}

bool isNumber(std::string_view text, std::size_t mostDigits)
{
    return !text.empty() && text.size() <= mostDigits &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

CLI::Option& CommandEntry::add(const std::string& name, const BilingualText& what, const ArgumentCheck& check,
                               const std::function<void(const std::string&)>& store)
{
    CLI::Option* const option = m_app.add_option_function<std::string>(name, store, what.in(m_language));
    option->type_name(isOption(name) ? "X" : "");
    option->required(!isOption(name));
    if (check) {
        option->transform(validator(check, m_language));
    }
    return *option;
}

CommandEntry& CommandEntry::text(const std::string& name, const BilingualText& what, std::string& target,
                                 const ArgumentCheck& check)
{
    add(name, what, check, [&target](const std::string& value) { target = value; });
    return *this;
}

CommandEntry& CommandEntry::letter(const std::string& name, const BilingualText& what, std::string& target)
{
    return text(name, what, target, toLetter);
}

CommandEntry& CommandEntry::number(const std::string& name, const BilingualText& what, std::size_t& target)
{
    add(name, what, checkSoundNumber, [&target](const std::string& value) { target = std::stoul(value); });
    return *this;
}

CommandEntry& CommandEntry::sounds(SoundsArgument& target)
{
    const auto storeNumbers = [&target](const std::vector<std::string>& values) {
        for (const std::string& value : values) {
            const std::vector<SoundsArgument::Range> ranges = parseRanges(value).value();
            target.ranges.insert(target.ranges.end(), ranges.begin(), ranges.end());
            target.namesEach = target.namesEach && value.find('-') == std::string::npos;
        }
    };
    const BilingualText what("Numbers of sounds, and ranges of them: 1,5-9",
                             "Les numéros des sons, et des plages : 1,5-9");
    m_app.add_option_function<std::vector<std::string>>("N", storeNumbers, what.in(m_language))
        ->type_name("")
        ->transform(validator(checkSoundNumbers, m_language));
    const auto storeFilter = [&target](const std::string& value) {
        target.where = value;
        target.namesEach = false;
    };
    add("--where",
        {"Only sounds that these words list, as the filter of the window does: \"#oa ch<20\"",
         "Seulement les sons que ces mots retiennent, comme le filtre de la fenêtre : « #oa ch<20 »"},
        toCodePage, storeFilter)
        .required(false);
    const std::string missing = BilingualText("Name the sounds, or say which with --where",
                                              "Nommez les sons, ou dites lesquels avec --where")
                                    .in(m_language);
    m_app.parse_complete_callback([&target, missing] {
        if (!target.isGiven()) {
            throw CLI::ValidationError("N", missing);
        }
    });
    return *this;
}

CommandEntry& CommandEntry::path(const std::string& name, const BilingualText& what,
                                 std::filesystem::path& target)
{
    add(name, what, checkPath, [&target](const std::string& value) { target = pathOf(value); });
    return *this;
}

CommandEntry& CommandEntry::paths(const std::string& name, const BilingualText& what,
                                  std::vector<std::filesystem::path>& targets)
{
    const auto store = [&targets](const std::vector<std::string>& values) {
        for (const std::string& value : values) {
            targets.push_back(pathOf(value));
        }
    };
    m_app.add_option_function<std::vector<std::string>>(name, store, what.in(m_language))
        ->type_name("")
        ->required()
        ->transform(validator(checkPath, m_language));
    return *this;
}

CommandEntry& CommandEntry::texts(const std::string& name, const BilingualText& what,
                                  std::vector<std::string>& targets, const ArgumentCheck& check)
{
    const auto store = [&targets](const std::vector<std::string>& values) { targets = values; };
    m_app.add_option_function<std::vector<std::string>>(name, store, what.in(m_language))
        ->type_name("X")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->transform(validator(check, m_language));
    return *this;
}

CommandEntry& CommandEntry::flag(const std::string& name, const BilingualText& what, bool& target)
{
    m_app.add_flag(name, target, what.in(m_language));
    return *this;
}

CommandEntry& CommandEntry::optionalText(const std::string& name, const BilingualText& what,
                                         std::optional<std::string>& target, const ArgumentCheck& check)
{
    add(name, what, check, [&target](const std::string& value) { target = value; }).required(false);
    return *this;
}

CommandEntry& CommandEntry::optionalLetter(const std::string& name, const BilingualText& what,
                                           std::optional<std::string>& target)
{
    return optionalText(name, what, target, toLetter);
}

CommandEntry& CommandEntry::wad(std::optional<std::string>& target, const BilingualText& usual)
{
    return optionalText("--wad",
                        BilingualText("The WAD whose record of changed lines is written; usually ",
                                      "Le WAD dont l'enregistrement des lignes modifiées est écrit ; "
                                      "d'habitude ") +
                            usual,
                        target, checkWadName);
}

CommandEntry& CommandEntry::optionalPath(const std::string& name, const BilingualText& what,
                                         std::optional<std::filesystem::path>& target)
{
    add(name, what, checkPath, [&target](const std::string& value) {
        target = pathOf(value);
    }).required(false);
    return *this;
}

Menu Menu::group(const std::string& name, const BilingualText& what) const
{
    CLI::App* const group = m_app.add_subcommand(name, what.in(m_language));
    group->require_subcommand(1);
    group->group(groupTitle(m_language));
    return {*group, m_language, m_chosen};
}

CommandEntry Menu::command(const std::string& name, const BilingualText& what, Command run) const
{
    CLI::App* const command = m_app.add_subcommand(name, what.in(m_language));
    command->require_subcommand(0);
    command->group(groupTitle(m_language));
    command->callback([&chosen = m_chosen, run = std::move(run)] { chosen = run; });
    return {*command, m_language};
}

} // namespace tavrel
