// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpWindow.h"

#include "settings/HelpText.h"
#include "ui/FmHelp.h"
#include "ui/Text.h"

#include <QtGlobal>

namespace tavrel {

void showHelpWindow(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
                    Language language, const HelpTopic& topic)
{
    const Result<std::string> text = loadHelp(programFolder, language);
    if (!text) {
        qWarning("%s", text.failure().text.english.c_str());
        return;
    }
    const std::vector<HelpSection> sections = helpSections(*text);
    std::vector<FmHelp::Heading> headings;
    for (const HelpSection& section : sections) {
        headings.push_back(
            {fromCodePage(section.title), static_cast<int>(section.line), section.isChapter ? 0 : 1});
    }
    FmHelp window(parent, *text, headings, colours, language);
    const HelpAbout about = topic.isMessage ? HelpAbout::Message : HelpAbout::Window;
    if (const HelpSection* const section = findHelpSection(*text, sections, toCodePage(topic.title), about)) {
        window.showLine(static_cast<int>(section->line));
    }
    window.exec();
}

HelpTopic helpOnKeys(Language language)
{
    return {inLanguage({"8. KEYS", "8. LES TOUCHES"}, language)};
}

HelpTopic helpOnFirstUse(Language language)
{
    return {inLanguage({"2. A FIRST WALK: FROM A WAD TO ITS SOUND FILES",
                        "2. PREMIERS PAS : D'UN WAD À SES FICHIERS DE SONS"},
                       language)};
}

} // namespace tavrel
