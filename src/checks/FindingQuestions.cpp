// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/FindingQuestions.h"

#include "base/Titles.h"
#include "checks/FindingTexts.h"

#include <algorithm>

namespace tavrel {

namespace {

const BilingualText show("Show", "Montrer");

// The first of them, each with its place where it has one.
BilingualText list(std::span<const Finding* const> findings, const SoundCatalogue* catalogue)
{
    constexpr std::size_t mostShown = 10;
    BilingualText text;
    for (const Finding* const finding : findings.first(std::min(findings.size(), mostShown))) {
        const std::string place = catalogue == nullptr ? std::string() : placeOf(*finding, *catalogue);
        text += place.empty() ? "\n" : "\n" + place + ": ";
        text += finding->text;
    }
    if (findings.size() > mostShown) {
        const std::string more = std::to_string(findings.size() - mostShown);
        text += BilingualText("\n... and " + more + " more", "\n... et " + more + " de plus");
    }
    return text;
}

} // namespace

Question fileErrorsNotice(std::span<const Finding* const> errors)
{
    Question notice{
        titles::checkProject,
        BilingualText("[sounds.txt] itself has errors:\n", "[sounds.txt] contient lui-même des erreurs :\n") +
            list(errors, nullptr),
        Buttons::Ok};
    notice.icon = MessageIcon::Exclamation;
    notice.otherChoice = show;
    return notice;
}

Question carriedErrorsQuestion(std::span<const Finding* const> errors, const SoundCatalogue& catalogue)
{
    Question question{titles::generate,
                      counted(errors.size(), Severity::Error) +
                          BilingualText(" would go into the level:\n",
                                        errors.size() == 1 ? " passerait dans le niveau :\n"
                                                           : " passeraient dans le niveau :\n") +
                          list(errors, &catalogue),
                      Buttons::OkCancel, true};
    question.icon = MessageIcon::Exclamation;
    question.agreement = {"Generate anyway", "Générer quand même"};
    question.otherChoice = show;
    return question;
}

} // namespace tavrel
