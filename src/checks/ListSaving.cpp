// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/ListSaving.h"

#include "base/CodePage.h"
#include "base/SafeFile.h"
#include "base/Titles.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

bool endsWith(const fs::path& file, std::string_view ending)
{
    return sameName(codePagePath(file.extension()).bytes, ending);
}

// What level editors and Tavrel itself keep under such an ending.
bool isOthersFile(const fs::path& file)
{
    const std::string name = codePagePath(file.filename()).bytes;
    return std::ranges::any_of(std::initializer_list<std::string_view>{"sounds.txt", "orig_sounds.txt",
                                                                       "script.txt", "english.txt",
                                                                       "sfx_eng1.txt", "sfx_fra1.txt"},
                               [&name](std::string_view other) { return sameName(name, other); });
}

bool mayReplace(const fs::path& file, Dialogs& dialogs)
{
    const BilingualText shown = BilingualText::same(displayPath(file));
    if (isOthersFile(file)) {
        dialogs.show({MessageIcon::Exclamation, titles::saveList,
                      shown + BilingualText("\nA list does not take the place of this file.",
                                            "\nUne liste ne prend pas la place de ce fichier.")});
        return false;
    }
    std::error_code error;
    if (!fs::exists(file, error) && !error) {
        return true;
    }
    return dialogs.ask({titles::saveList,
                        shown + BilingualText("\nThe file exists already. Replace it?",
                                              "\nLe fichier existe déjà. Le remplacer ?"),
                        Buttons::YesNo, true}) == Answer::Yes;
}

} // namespace

void saveList(const std::string& proposedName, bool onlyTable,
              const std::function<std::string(bool asTable)>& text, Dialogs& dialogs)
{
    const OpenFileQuestion question{
        titles::saveList,
        onlyTable ? BilingualText("Tables (*.csv)", "Tableaux (*.csv)")
                  : BilingualText("Texts and tables (*.txt,*.csv)", "Textes et tableaux (*.txt,*.csv)"),
        onlyTable ? std::vector<std::string>{"*.csv"} : std::vector<std::string>{"*.txt", "*.csv"},
        {},
        proposedName,
        false,
        true};
    std::optional<fs::path> file = dialogs.chooseFile(question);
    if (!file) {
        return;
    }
    if (!endsWith(*file, ".csv") && (onlyTable || !endsWith(*file, ".txt"))) {
        *file += onlyTable ? ".csv" : ".txt";
    }
    if (!mayReplace(*file, dialogs)) {
        return;
    }
    if (const Problem problem = writeFileSafely(*file, text(endsWith(*file, ".csv")))) {
        dialogs.show({MessageIcon::Critical, titles::saveList, problem->text});
    }
}

} // namespace tavrel
