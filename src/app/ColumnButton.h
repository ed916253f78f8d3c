// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/SoundFilter.h"
#include "settings/Options.h"

#include <QToolButton>

#include <set>
#include <utility>
#include <vector>

class QAction;

namespace tavrel {

// The menu of the columns that the list of sounds can have beside number and name. They are remembered.
class ColumnButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ColumnButton(Options& options);

    void showLanguage(Language language);
    std::set<SoundColumn> columns() const;

Q_SIGNALS:
    void changed();

private:
    void remember();

    Options& m_options;
    std::vector<std::pair<SoundColumn, QAction*>> m_actions;
};

} // namespace tavrel
