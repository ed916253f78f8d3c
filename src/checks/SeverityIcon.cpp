// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/SeverityIcon.h"

#include "ui/Colours.h"
#include "ui/Controls.h"

namespace tavrel {

QIcon severityIcon(Severity severity, const ColourPair& colours)
{
    switch (severity) {
    case Severity::Error:
        return glyphIcon(Glyph::Critical, alarmColour(colours));
    case Severity::Warning:
        return glyphIcon(Glyph::Exclamation, markColour(colours));
    case Severity::Note:
        break;
    }
    return glyphIcon(Glyph::Information, mutedColour(colours));
}

} // namespace tavrel
