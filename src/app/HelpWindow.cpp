// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpWindow.h"

#include "settings/HelpText.h"
#include "ui/FmHelp.h"

#include <QtGlobal>

namespace tavrel {

void showHelpWindow(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
                    Language language)
{
    const Result<std::string> text = loadHelp(programFolder, language);
    if (!text) {
        qWarning("%s", text.failure().text.english.c_str());
        return;
    }
    FmHelp(parent, *text, colours, language).exec();
}

} // namespace tavrel
