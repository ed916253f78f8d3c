// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "ui/FoldingPanel.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tavrel {

// The selected line as a text: as it was installed, as it stands now, and as it stands in the file when that
// is neither.
class LineTextPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    explicit LineTextPanel(const PanelContext& context);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

private:
    void lineShown() override;
    void historyChanged() override { lineShown(); } // an apply changes what the file holds

    QLineEdit* m_number;
    QPlainTextEdit* m_original;
    QLabel* m_fileLabel;
    QPlainTextEdit* m_file;
    QPlainTextEdit* m_modified;
};

} // namespace tavrel
