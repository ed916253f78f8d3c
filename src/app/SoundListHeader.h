// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/SoundFilter.h"

#include <QWidget>

#include <set>

namespace tavrel {

BilingualText columnTitle(SoundColumn column);

// The titles above the columns of the sound list.
class SoundListHeader : public QWidget
{
    Q_OBJECT

public:
    explicit SoundListHeader(const QFont& font);

    void show(const std::set<SoundColumn>& columns, Language language);
    void scrollTo(int offset);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::set<SoundColumn> m_columns;
    Language m_language = Language::English;
    int m_offset = 0;
};

} // namespace tavrel
