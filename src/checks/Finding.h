// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueLoading.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavrel {

enum class Severity {
    Error,   // the level's sound will be wrong or missing
    Warning, // probably not meant
    Note
};
// "error", for scripts.
std::string_view nameOf(Severity severity);

// Lines as fixes change them, one after another. Nothing reaches the catalogue.
class LineDraft
{
public:
    explicit LineDraft(const SoundCatalogue& catalogue) : m_catalogue(catalogue) {}

    const std::string& line(std::size_t sound) const;
    void set(std::size_t sound, std::string text) { m_lines[sound] = std::move(text); }
    std::vector<SoundCatalogue::LineChange> changes() const;

private:
    const SoundCatalogue& m_catalogue;
    std::map<std::size_t, std::string> m_lines;
};

// How a finding is mended. It looks at the lines anew, so that several fixes of one line go together.
using LineFix = std::function<void(LineDraft&)>;
// Writes a better file in the place of a sample.
using FileFix = std::function<Problem()>;
// The register with the letter filled in: only a person can go on.
struct RegisterFix
{
    std::string letter;
};
using FixAction = std::variant<LineFix, LineReadOtherwise, FileFix, RegisterFix>;

struct Fix
{
    BilingualText button; // "VOL00 becomes VOL01"
    FixAction action;
};

// Something in the project that deserves a look. Texts of the user's files are code page bytes.
struct Finding
{
    std::string_view check; // its name in the table
    Severity severity;
    std::vector<std::size_t> sounds; // the first is the one to show
    std::string file;                // a sample with its ending, another file; empty for none
    std::string wadName;             // what it says is about this WAD alone; empty for no WAD in particular
    BilingualText text;
    std::optional<Fix> fix;
};

// Whether the finding matters to the WAD: one of its sounds belongs to it, or it concerns every WAD.
bool concernsWad(const Finding& finding, const SoundCatalogue& catalogue, const CurrentWad& wad);

// Every line that the fixes of these findings change, as one step.
std::vector<SoundCatalogue::LineChange> changesOf(const std::vector<const Finding*>& findings,
                                                  const SoundCatalogue& catalogue);
// The lines that have to be read otherwise.
std::vector<LineReadOtherwise> linesToReadOtherwise(const std::vector<const Finding*>& findings);

} // namespace tavrel
