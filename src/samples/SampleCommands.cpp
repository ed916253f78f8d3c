// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleCommands.h"

#include "base/CodePage.h"
#include "base/Titles.h"
#include "samples/SampleFormat.h"
#include "samples/SamplePlayer.h"
#include "samples/SamplesFolder.h"

#include <algorithm>

namespace tavrel {

namespace {

// The sample field of a line; each name in it has a blank behind it.
constexpr std::size_t sampleFieldWidth = 32;

const BilingualText selectFirst("Select a sample first", "Selectionnez d'abord un sample");

// The same title for adding and renaming.
bool refuse(const BilingualText& text, Dialogs& dialogs)
{
    dialogs.show({MessageIcon::Exclamation, titles::renameSample, text});
    return false;
}

std::vector<std::string> namesOf(const LineEditor& editor)
{
    const SoundLine& record = editor.record();
    const auto count = static_cast<std::ptrdiff_t>(record.sampleCount());
    return {record.Samples.begin(), record.Samples.begin() + count};
}

// Characters that would end the name in a line of sounds.txt, or lead out of the folder.
bool hasForbiddenCharacter(std::string_view name)
{
    return name.find_first_of(" \t#:\"/\\?*") != std::string_view::npos;
}

std::size_t fieldLength(SampleChange change, const std::vector<std::string>& names, const SampleInput& input)
{
    std::size_t length = names.size();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isReplaced = change == SampleChange::Rename && input.selected == i;
        length += isReplaced ? input.typedName.size() : names[i].size();
    }
    return change == SampleChange::Add ? length + input.typedName.size() + 1 : length;
}

bool mayChange(const LineEditor& editor, Dialogs& dialogs)
{
    return editor.canEdit() && editor.confirmComposing(dialogs);
}

SampleResult store(LineEditor& editor, const BilingualText& command, std::vector<std::string> names,
                   std::size_t selected, const SampleInput& input, Dialogs& dialogs)
{
    const Step step(editor.catalogue(), stepLabel(command, editor.catalogue(), editor.selected().value()));
    if (!editor.storeSamples(std::move(names), dialogs)) {
        return {};
    }
    return {true, selected, input.typedName};
}

} // namespace

bool ValidateSampleName(SampleChange change, const std::vector<std::string>& names, const SampleInput& input,
                        Dialogs& dialogs)
{
    const std::string& name = input.typedName;
    if (name.empty()) {
        return refuse({"You must enter a sample name to add", "Entrez un nom de sample à ajouter"}, dialogs);
    }
    if (hasForbiddenCharacter(name)) {
        return refuse({"Incorrect sample name : no space", "Nom de sample incorrect : pas d'espace"},
                      dialogs);
    }
    if (change == SampleChange::Add && std::ranges::find(names, name) != names.end()) {
        return refuse({"Sample name already in the list", "Nom de sample déjà dans la liste"}, dialogs);
    }
    if (fieldLength(change, names, input) > sampleFieldWidth) {
        return refuse({"Sample name too long", "Nom de sample trop long"}, dialogs);
    }
    if (!findSample(input.samplesFolder, name)) {
        return refuse(noSuchSample(input.samplesFolder, name), dialogs);
    }
    if (!CheckSampleFormat(input.samplesFolder, name)) {
        return refuse(wrongSampleFormat(name), dialogs);
    }
    return true;
}

SampleResult addSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    if (!mayChange(editor, dialogs) || !ValidateSampleName(SampleChange::Add, names, input, dialogs)) {
        return {};
    }
    names.push_back(input.typedName);
    const std::size_t last = names.size() - 1;
    return store(editor, {"Add sample", "Ajouter le sample"}, std::move(names), last, input, dialogs);
}

SampleResult renameSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    if (!mayChange(editor, dialogs)) {
        return {};
    }
    if (!input.selected || *input.selected >= names.size()) {
        refuse(selectFirst, dialogs);
        return {};
    }
    if (input.typedName.empty()) {
        return {false, *input.selected, names[*input.selected]};
    }
    if (!ValidateSampleName(SampleChange::Rename, names, input, dialogs)) {
        return {};
    }
    names[*input.selected] = input.typedName;
    return store(editor, {"Rename sample", "Renommer le sample"}, std::move(names), *input.selected, input,
                 dialogs);
}

SampleResult removeSample(LineEditor& editor, const SampleInput& input, Dialogs& dialogs)
{
    std::vector<std::string> names = namesOf(editor);
    const BilingualText& title = titles::removeSample;
    if (!mayChange(editor, dialogs)) {
        return {};
    }
    const bool isSelected = input.selected && *input.selected < names.size();
    if (names.size() < 2 || !isSelected) {
        dialogs.show({MessageIcon::Exclamation, title,
                      names.size() == 1
                          ? BilingualText("Only one sample in the list. Remove unauthorized",
                                          "Plus qu'un sample dans la liste. Suppression non autorisée")
                          : selectFirst});
        return {};
    }
    // The box may hold a name that was typed since; what goes is the selected one.
    const std::string name = names[*input.selected];
    const std::string shown = utf8FromCodePage(name);
    const Question question{
        title,
        {"Remove sample [" + shown + "]", "Confirmez la suppression du sample [" + shown + "]"},
        Buttons::YesNo};
    if (dialogs.ask(question) != Answer::Yes) {
        return {false, *input.selected, name};
    }
    names.erase(names.begin() + static_cast<std::ptrdiff_t>(*input.selected));
    SampleResult result = store(editor, title, std::move(names), 0, input, dialogs);
    if (result.changed) {
        result.typedName = editor.record().Samples.front();
    }
    return result;
}

bool setSamples(LineEditor& editor, const std::vector<std::string>& names,
                const std::filesystem::path& samplesFolder, Dialogs& dialogs)
{
    std::vector<std::string> before = namesOf(editor);
    std::vector<std::string> judged;
    std::vector<std::string> added;
    for (const std::string& name : names) {
        const auto kept = std::ranges::find(before, name);
        if (kept == before.end()) {
            added.push_back(name);
        } else {
            judged.push_back(name);
            before.erase(kept);
        }
    }
    if (names.empty()) {
        added.emplace_back(); // refused like an empty box
    }
    if (!mayChange(editor, dialogs)) {
        return false;
    }
    for (const std::string& name : added) {
        if (!ValidateSampleName(SampleChange::Add, judged, {samplesFolder, name, {}}, dialogs)) {
            return false;
        }
        judged.push_back(name);
    }
    return editor.storeSamples(names, dialogs);
}

} // namespace tavrel
