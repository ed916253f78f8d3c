// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "checks/Finding.h"

#include <QIcon>

namespace tavrel {

// How grave it is, for a list with these colours.
QIcon severityIcon(Severity severity, const ColourPair& colours);

} // namespace tavrel
