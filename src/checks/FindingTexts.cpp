// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/FindingTexts.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "checks/Checks.h"
#include "checks/Csv.h"
#include "checks/LineReading.h"

#include <algorithm>

namespace tavrel {

namespace {

// A line of sounds.txt for reading: two blanks between its columns.
std::string inColumns(std::string_view line)
{
    std::string text;
    for (std::size_t start = line.find_first_not_of('\t'); start != std::string_view::npos;) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        text += text.empty() ? "" : "  ";
        text += utf8FromCodePage(line.substr(start, end - start));
        start = line.find_first_not_of('\t', end);
    }
    return text;
}

constexpr std::string_view arrow = "\u2192";

} // namespace

BilingualText counted(std::size_t count, Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return counted(count, {"error", "erreur"}, {"errors", "erreurs"});
    case Severity::Warning:
        return counted(count, {"warning", "avertissement"}, {"warnings", "avertissements"});
    case Severity::Note:
        return counted(count, {"note", "remarque"}, {"notes", "remarques"});
    }
    return {};
}

std::string placeOf(const Finding& finding, const SoundCatalogue& catalogue)
{
    if (finding.sounds.empty()) {
        return utf8FromCodePage(finding.file.empty() ? finding.wadName : finding.file);
    }
    const std::size_t sound = finding.sounds.front();
    return std::to_string(sound) + " " + utf8FromCodePage(nameOf(catalogue.currentLine(sound)));
}

std::string textOf(std::span<const Finding* const> findings, const SoundCatalogue& catalogue,
                   Language language)
{
    std::string text;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        const auto count = std::ranges::count(findings, severity, &Finding::severity);
        if (count == 0) {
            continue;
        }
        text += text.empty() ? "" : "\r\n";
        text += counted(static_cast<std::size_t>(count), severity).in(language) + "\r\n";
        for (const Finding* const finding : findings) {
            if (finding->severity == severity) {
                const std::string place = placeOf(*finding, catalogue);
                text += "  " + place + (place.empty() ? "" : "  ") + finding->text.in(language) + "\r\n";
            }
        }
    }
    return text;
}

std::string csvOf(std::span<const Finding* const> findings, const SoundCatalogue& catalogue,
                  Language language)
{
    CsvTable table({{"Severity", "Gravité"},
                    {"Check", "Contrôle"},
                    {"Sound", "Son"},
                    {"Name", "Nom"},
                    {"File", "Fichier"},
                    {"WAD", "WAD"},
                    {"Finding", "Constat"}},
                   language);
    for (const Finding* const finding : findings) {
        const bool hasSound = !finding->sounds.empty();
        const std::size_t sound = hasSound ? finding->sounds.front() : 0;
        table.addRow({std::string(nameOf(finding->severity)), std::string(finding->check),
                      hasSound ? std::to_string(sound) : "",
                      hasSound ? utf8FromCodePage(nameOf(catalogue.currentLine(sound))) : "",
                      utf8FromCodePage(finding->file), utf8FromCodePage(finding->wadName),
                      finding->text.in(language)});
    }
    return table.text();
}

std::string previewOf(std::span<const SoundCatalogue::LineChange> changes, const SoundCatalogue& catalogue)
{
    std::string text;
    for (const SoundCatalogue::LineChange& change : changes) {
        const std::string number = std::to_string(change.number);
        text += number + "  " + inColumns(catalogue.currentLine(change.number)) + "\n";
        text += std::string(number.size() - 1, ' ').append(arrow) + "  " + inColumns(change.text) + "\n";
    }
    return text;
}

std::string previewOf(std::span<const LineReadOtherwise> lines)
{
    std::string text;
    for (const LineReadOtherwise& line : lines) {
        text +=
            std::to_string(line.lineInFile).append(" ").append(arrow) + "  " + inColumns(line.text) + "\n";
    }
    return text;
}

} // namespace tavrel
