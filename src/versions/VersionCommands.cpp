// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/VersionCommands.h"

#include "backup/SampleTransfer.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/SafeFile.h"
#include "base/Titles.h"
#include "catalogue/ChangeSounds.h"
#include "catalogue/LineWords.h"
#include "samples/SampleConversion.h"
#include "samples/SampleFormat.h"
#include "samples/SamplesFolder.h"
#include "versions/CatalogueComparison.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostListed = 20;

BilingualText listOfNames(std::span<const std::string> names)
{
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), mostListed); ++i) {
        list += (i == 0 ? "[" : " [") + utf8FromCodePage(names[i]) + "]";
    }
    return BilingualText::same(names.size() > mostListed ? list + " ..." : list);
}

// All of them, for the details of a question whose text names only the first.
BilingualText beyondThoseListed(std::span<const std::string> names)
{
    std::string rows;
    for (std::size_t i = 0; names.size() > mostListed && i < names.size(); ++i) {
        rows += (i == 0 ? "" : "\n") + shownText(names[i]);
    }
    return BilingualText::same(rows);
}

bool confirmRefused(const TakenLines& taken, Dialogs& dialogs)
{
    if (taken.refused.empty()) {
        return true;
    }
    const BilingualText list = listOf(taken.refused);
    if (taken.changes.empty()) {
        dialogs.show({MessageIcon::Exclamation, titles::compare, list});
        return false;
    }
    const BilingualText text =
        list + BilingualText("\n\nTake the other lines over?", "\n\nReprendre les autres lignes ?");
    return dialogs.ask({titles::compare, text, Buttons::YesNo, true}) == Answer::Yes;
}

// My lines that are composed anew.
bool confirmComposing(const TakeRequest& request, const TakenLines& taken, Dialogs& dialogs)
{
    std::vector<ComposedLine> composed;
    for (const SoundCatalogue::LineChange& change : taken.changes) {
        if (!request.parts.wholeLine) {
            composed.push_back({change.number, request.catalogue.currentLine(change.number)});
        }
    }
    return confirmComposing(composed, dialogs);
}

std::vector<std::string> thoseIn(const fs::path& folder, const std::vector<std::string>& names)
{
    std::vector<std::string> found;
    std::ranges::copy_if(names, std::back_inserter(found),
                         [&](const std::string& name) { return findSample(folder, name).has_value(); });
    return found;
}

// The samples to copy; nothing when the user cancels.
std::optional<std::vector<std::string>> confirmSamples(const TakeRequest& request, const TakenLines& taken,
                                                       Dialogs& dialogs)
{
    const bool takesSamples = request.parts.wholeLine || request.parts.samples;
    const std::vector<std::string> missing =
        takesSamples ? missingSamples(taken.changes, request.samplesFolder) : std::vector<std::string>();
    if (missing.empty()) {
        return missing;
    }
    const BilingualText lacking = BilingualText("Samples of these lines that are missing here:\n",
                                                "Samples de ces lignes absents ici :\n") +
                                  listOfNames(missing);
    const std::vector<std::string> found =
        request.theirSamples ? thoseIn(*request.theirSamples, missing) : std::vector<std::string>();
    if (found.empty()) {
        Question all{titles::compare,
                     lacking + BilingualText("\n\nTake the lines over anyway?",
                                             "\n\nReprendre les lignes quand même ?"),
                     Buttons::YesNo, true};
        all.details = beyondThoseListed(missing);
        return dialogs.ask(all) == Answer::Yes ? std::optional(found) : std::nullopt;
    }
    const std::string count = std::to_string(found.size());
    const BilingualText copying =
        lacking +
        BilingualText("\n\nCopy " + count + " of them from\n", "\n\nEn copier " + count + " depuis\n") +
        displayPath(*request.theirSamples) + BilingualText("?", " ?");
    Question question{titles::compare, copying, Buttons::YesNoCancel};
    question.details = beyondThoseListed(missing);
    const Answer answer = dialogs.ask(question);
    if (answer == Answer::Cancel) {
        return std::nullopt;
    }
    return answer == Answer::Yes ? found : std::vector<std::string>();
}

} // namespace

std::optional<AgreedTake> confirmTaking(const TakeRequest& request, Dialogs& dialogs)
{
    TakenLines taken = takeLines(request.catalogue, request.lines, request.parts);
    if (!confirmRefused(taken, dialogs)) {
        return std::nullopt;
    }
    if (taken.changes.empty()) {
        dialogs.show({MessageIcon::Information,
                      titles::compare,
                      {"These lines have nothing to take over.", "Ces lignes n'ont rien à reprendre."}});
        return std::nullopt;
    }
    if (!confirmComposing(request, taken, dialogs)) {
        return std::nullopt;
    }
    std::optional<std::vector<std::string>> samples = confirmSamples(request, taken, dialogs);
    return samples ? std::optional(AgreedTake{std::move(taken.changes), std::move(*samples)}) : std::nullopt;
}

namespace {

// The copy alone: the file that it was made of stays where it is.
bool convertInPlace(const fs::path& sample)
{
    const Result<ConvertedSample> converted = convertSample(sample);
    return converted && !writeFileSafely(sample, converted->bytes);
}

} // namespace

std::optional<Message> copyMissingSamples(std::span<const std::string> names, const fs::path& source,
                                          const fs::path& target, Progress& progress)
{
    const SampleCopies copies = replaceSamples(names, source, target, progress);
    if (copies.failure) {
        return Message{MessageIcon::Critical, titles::compare, copies.failure->text};
    }
    BilingualText text;
    if (!copies.refused.empty()) {
        text += unsafeSampleNames(copies.refused);
    }
    std::vector<std::string> converted;
    std::vector<std::string> wrong;
    for (const std::string& name : names) {
        const std::optional<fs::path> sample = findSample(target, name);
        if (sample && !CheckSampleFormat(target, name)) {
            (convertInPlace(*sample) ? converted : wrong).push_back(name);
        }
    }
    const auto add = [&text](const BilingualText& what, const std::vector<std::string>& which) {
        if (!which.empty()) {
            text += (text.empty() ? BilingualText() : BilingualText::same("\n")) + what + listOfNames(which);
        }
    };
    add({"These samples were converted to the format that the level editor takes:\n",
         "Ces samples ont été convertis au format de l'éditeur de niveaux :\n"},
        converted);
    add({"These samples were copied, but are not in the format that the level editor takes:\n",
         "Ces samples ont été copiés, mais ne sont pas au format de l'éditeur de niveaux :\n"},
        wrong);
    return text.empty() ? std::nullopt
                        : std::optional(Message{MessageIcon::Exclamation, titles::compare, text});
}

std::optional<std::vector<SoundCatalogue::LineChange>>
confirmBringingBack(const SoundCatalogue& catalogue, const KeptVersion& version, Dialogs& dialogs)
{
    const Result<OtherCatalogue> other = readOtherCatalogue(version.path);
    if (!other) {
        dialogs.show({MessageIcon::Critical, titles::versions, other.failure().text});
        return std::nullopt;
    }
    const CatalogueComparison comparison = compareCatalogues(currentLinesOf(catalogue), *other);
    std::vector<SoundCatalogue::LineChange> changes;
    std::size_t onOneSide = 0;
    for (const SoundDifference& difference : comparison.differences) {
        const auto& [mine, theirs] = difference.sound;
        if (mine && theirs) {
            changes.push_back({*mine, other->lines[*theirs]});
        } else {
            ++onOneSide;
        }
    }
    BilingualText missing;
    if (onOneSide > 0) {
        missing = counted(onOneSide,
                          {"line exists on one side only and is not brought back. ",
                           "ligne n'existe que d'un côté et n'est pas reprise. "},
                          {"lines exist on one side only and are not brought back. ",
                           "lignes n'existent que d'un côté et ne sont pas reprises. "}) +
                  shiftText(comparison.pairing) + "\n";
    }
    if (changes.empty()) {
        dialogs.show(
            {MessageIcon::Information, titles::versions,
             missing + BilingualText("No line differs from now.", "Aucune ligne ne diffère de maintenant.")});
        return std::nullopt;
    }
    BilingualText text = missing + countedLines(changes.size()) +
                         agreeing(changes.size(), {" will be as in\n", " sera comme dans\n"},
                                  {" will be as in\n", " seront comme dans\n"}) +
                         displayPath(version.path);
    if (dialogs.appliesLater()) {
        text += BilingualText("\nNothing is written before you apply the changes.",
                              "\nRien n'est écrit avant d'appliquer les modifications.");
    }
    std::vector<std::size_t> numbers;
    std::ranges::transform(changes, std::back_inserter(numbers), &SoundCatalogue::LineChange::number);
    Question question{titles::versions, text};
    question.details = listedSounds(catalogue, numbers);
    return dialogs.ask(question) == Answer::Yes ? std::optional(std::move(changes)) : std::nullopt;
}

bool bringSetBack(const KeptVersion& set, const KeptPlaces& places, Progress& progress, Dialogs& dialogs)
{
    const BilingualText text =
        filled({"Bring back {} of\n{}\nWhat is there now is put aside.",
                "Remettre en place {} de\n{}\nCe qui s'y trouve est mis de côté."},
               {counted(set.files, {"file", "fichier"}, {"files", "fichiers"}), displayPath(set.path)});
    Question question{titles::versions, text};
    if (const Result<std::vector<FolderEntry>> files = listFolder(set.path)) {
        for (const FolderEntry& file : *files) {
            question.details += (question.details.empty() ? "" : "\n") + shownText(file.name);
        }
    }
    if (dialogs.ask(question) != Answer::Yes) {
        return false;
    }
    if (const Problem problem = bringBackSet(set, places, progress)) {
        dialogs.show({MessageIcon::Critical, titles::versions, problem->text});
        return false;
    }
    return true;
}

} // namespace tavrel
