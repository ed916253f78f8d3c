// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Motion.h"

#include <QApplication>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace tavrel {

bool systemLikesMotion()
{
#ifdef Q_OS_WIN
    BOOL animates = TRUE;
    SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animates, 0);
    return animates != FALSE;
#else
    return QApplication::isEffectEnabled(Qt::UI_General);
#endif
}

} // namespace tavrel
