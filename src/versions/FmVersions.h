// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/TitledWindow.h"
#include "versions/VersionsContext.h"

#include <optional>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace tavrel {

// What is kept of earlier states, newest first: to compare with, and to bring back.
class FmVersions : public TitledWindow
{
    Q_OBJECT

public:
    FmVersions(QWidget* parent, const VersionsContext& context);

private:
    void layOut();
    void showCaptions();
    void fill();
    void showPossibilities();
    const KeptVersion* selected() const;
    void compare();
    void bringBack();
    QString inLanguage(const BilingualText& text) const;

    VersionsContext m_context;
    std::vector<KeptVersion> m_versions;

    QTreeWidget* m_list;
    QLabel* m_said;
    QPushButton* m_compare;
    QPushButton* m_bringBack;
};

} // namespace tavrel
