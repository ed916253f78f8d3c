// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Motion.h"

#include <QApplication>
#include <QStyle>

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
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
#endif
}

} // namespace tavrel
