// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Checks.h"

#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace tavrel {

namespace {

using enum CheckTurn;

// NOLINTNEXTLINE(readability-function-size): a table
const std::vector<Check>& table()
{
    static const std::vector<Check> rows = {
        {"sample-missing", {"Sample missing", "Sample manquant"}, true, Last, checks::sampleMissing},
        {"sample-format",
         {"Sample in a wrong format", "Sample au mauvais format"},
         true,
         Usual,
         checks::sampleFormat},
        {"sample-bits", {"8-bit sample", "Sample de 8 bits"}, true, Usual, checks::sampleBits},
        {"sample-chunks",
         {"Sample with something after its data", "Sample suivi d'autres données"},
         true,
         Usual,
         checks::sampleChunks},
        {"sample-silent", {"Silent sample", "Sample muet"}, false, Usual, checks::sampleSilent},
        {"value-zero", {"Value of zero", "Valeur nulle"}, true, Usual, checks::valueZero},
        {"value-case", {"Value in small letters", "Valeur en minuscules"}, true, Usual, checks::valueCase},
        {"value-digits",
         {"Value without two digits", "Valeur sans deux chiffres"},
         true,
         Usual,
         checks::valueDigits},
        {"ch-low",
         {"Played less often than the original", "Joué moins souvent que l'original"},
         false,
         Usual,
         checks::chanceLow},
        {"no-letter",
         {"Changed, but in no level", "Modifié, mais dans aucun niveau"},
         false,
         Usual,
         checks::noLetter},
        {"letters-no-samples",
         {"Letters without samples", "Lettres sans samples"},
         true,
         Usual,
         checks::lettersWithoutSamples},
        {"words-lost",
         {"Words that Tavrel reads differently", "Mots que Tavrel lit autrement"},
         false,
         Last,
         checks::wordsLost},
        {"letter-twice", {"Same letter twice", "Même lettre deux fois"}, true, Usual, checks::letterTwice},
        {"letter-beside-g", {"Letter beside #g", "Lettre à côté de #g"}, true, Usual, checks::letterBesideG},
        {"letter-length",
         {"Letter not of two characters", "Lettre qui n'a pas deux caractères"},
         true,
         Usual,
         checks::letterLength},
        {"letter-as-word",
         {"Letter that reads as something else", "Lettre lue comme autre chose"},
         false,
         Usual,
         checks::letterAsWord},
        {"letter-unknown",
         {"Letter without a reference", "Lettre sans référence"},
         false,
         Usual,
         checks::letterUnknown},
        {"flags-rn", {"R beside N", "R à côté de N"}, false, Usual, checks::flagsRN},
        {"samples-too-long",
         {"Too many sample names", "Trop de noms de samples"},
         false,
         Usual,
         checks::samplesTooLong},
        {"name-twice", {"Same name twice", "Même nom deux fois"}, false, Usual, checks::nameTwice},
        {"line-shifted", {"Shifted sounds", "Sons décalés"}, false, Usual, checks::lineShifted},
        {"colon-comment",
         {"Comment read as a sound", "Commentaire lu comme un son"},
         true,
         First,
         checks::colonComment},
        {"lost-colon",
         {"Sound that lost its colon", "Son qui a perdu ses deux-points"},
         true,
         Usual,
         checks::lostColon},
        {"protected-changed",
         {"Protected line changed", "Ligne protégée modifiée"},
         true,
         Usual,
         checks::protectedChanged},
        {"reference-letter-twice",
         {"References with one letter", "Références de même lettre"},
         false,
         Usual,
         checks::referenceLetterTwice},
        {"reference-wad-twice",
         {"References with one WAD", "Références de même WAD"},
         false,
         Usual,
         checks::referenceWadTwice},
        {"letter-inside-letter",
         {"Letter inside another", "Lettre contenue dans une autre"},
         false,
         Usual,
         checks::letterInsideLetter},
        {"wad-missing",
         {"Reference without its WAD file", "Référence sans son fichier WAD"},
         false,
         Usual,
         checks::wadMissing},
        {"reference-unused",
         {"Reference that no sound uses", "Référence qu'aucun son n'utilise"},
         false,
         Usual,
         checks::referenceUnused},
        {"list-sample",
         {"Sample of a WAD that no sound has", "Sample d'un WAD qu'aucun son n'a"},
         false,
         Usual,
         checks::listSample},
        {"list-object",
         {"Object whose sounds lack the letter", "Objet dont les sons n'ont pas la lettre"},
         true,
         Usual,
         checks::listObject},
        {"results-old",
         {"Sound files older than sounds.txt", "Fichiers de sons plus anciens que sounds.txt"},
         false,
         Usual,
         checks::resultsOld},
        {"tool-missing", {"Tool missing", "Outil manquant"}, false, Usual, checks::toolMissing},
        {"sample-unused",
         {"Sample that no sound uses", "Sample qu'aucun son n'utilise"},
         false,
         Usual,
         checks::sampleUnused},
    };
    return rows;
}

void sortFindings(std::vector<Finding>& findings)
{
    std::unordered_map<std::string_view, std::size_t> order;
    for (const Check& check : table()) {
        order.emplace(check.name, order.size());
    }
    const auto key = [&order](const Finding& finding) {
        const std::size_t sound = finding.sounds.empty() ? SIZE_MAX : finding.sounds.front();
        return std::tuple(finding.severity, order.at(finding.check), sound, std::string_view(finding.file),
                          std::string_view(finding.wadName));
    };
    std::ranges::stable_sort(findings, {}, key);
}

bool isOfFile(const Check& check)
{
    return check.name == "line-shifted" || check.name == "colon-comment" || check.name == "lost-colon";
}

template <typename Wanted>
CheckReport runWanted(const CheckSubject& subject, Progress& progress, Wanted wanted)
{
    CheckRun run(subject, progress, table().size());
    for (const CheckTurn turn : {First, Usual, Last}) {
        for (const Check& check : table()) {
            if (check.turn == turn && wanted(check) && run.step()) {
                check.run(run);
            }
        }
    }
    CheckReport report{run.takeFindings(), run.takeFailures(), run.isCancelled()};
    if (!report.cancelled) {
        progress.show(1, 1);
    }
    sortFindings(report.findings);
    return report;
}

} // namespace

std::span<const Check> allChecks()
{
    return table();
}

const Check* findCheck(std::string_view name)
{
    const auto found = std::ranges::find(table(), name, &Check::name);
    return found == table().end() ? nullptr : &*found;
}

CheckReport runChecks(const CheckSubject& subject, Progress& progress)
{
    return runWanted(subject, progress, [](const Check&) { return true; });
}

CheckReport runFileChecks(const CheckSubject& subject, Progress& progress)
{
    return runWanted(subject, progress, isOfFile);
}

std::vector<const Finding*> errorsBeforeGeneration(const CheckReport& report, const SoundCatalogue& catalogue,
                                                   const CurrentWad& wad)
{
    std::vector<const Finding*> errors;
    for (const Finding& finding : report.findings) {
        if (finding.severity == Severity::Error && finding.check != "sample-format" &&
            concernsWad(finding, catalogue, wad)) {
            errors.push_back(&finding);
        }
    }
    return errors;
}

} // namespace tavrel
