// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpWindow.h"

#include "settings/HelpText.h"
#include "ui/FmHelp.h"
#include "ui/Text.h"

#include <QtGlobal>

namespace tavrel {

void showHelpWindow(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
                    Language language, const BilingualText& heading)
{
    const Result<std::string> text = loadHelp(programFolder, language);
    if (!text) {
        qWarning("%s", text.failure().text.english.c_str());
        return;
    }
    FmHelp window(parent, *text, colours, language);
    if (!heading.empty()) {
        window.showHeading(inLanguage(heading, language));
    }
    window.exec();
}

BilingualText helpOnKeys()
{
    return {"8. KEYS", "8. LES TOUCHES"};
}

} // namespace tavrel
