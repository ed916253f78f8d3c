// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "references/WadLists.h"
#include "ui/FoldingPanel.h"

#include <QTimer>

#include <array>
#include <functional>

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tavrel {

// The WAD that the user works on, and what gives or takes its letter: the selected lines, all lines, objects.
class WadPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    // What it opens.
    struct Doors
    {
        std::function<void()> chooseObject;
        std::function<void()> explainFirstUse;
    };
    WadPanel(const PanelContext& context, bool mayBlink, const Doors& doors);

    void showLanguage(Language language) override;

    // While another window works on the current WAD.
    void setGreyed(bool greyed);
    // Which list was imported last.
    void showImported(WadListKind kind);

    // Of the selected sounds or objects
    void addLetter();
    void removeLetter();

protected:
    // Of the modes, which nobody can choose.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void reloaded() override;
    void registerChanged() override { fillChooser(); }
    void wadChanged() override { showWad(); }
    void lineShown() override { enable(); }
    void objectChosen() override;

    void layOut();
    QWidget* makeCurrentWad();
    void connectControls();
    void fillChooser();
    void showWad();
    void enable();
    void remind();
    void paint(ColourValue text, ColourValue chooser);
    void replacementTyped(const QString& typed);
    void tell(const SoundsChanged& changed);
    void eraseLetter();
    void replaceLetter();

    bool m_mayBlink;
    bool m_greyed = false;
    QTimer m_reminder; // TmWAD
    ColourValue m_chooserColour = 0;
    QWidget* m_frame; // around what names the current WAD
    QComboBox* m_chooser;
    QPushButton* m_firstUse; // as long as there is no WAD to choose
    QLineEdit* m_wad;
    QLineEdit* m_letter;
    QLineEdit* m_title;
    QPushButton* m_add;
    QPushButton* m_remove;
    QPushButton* m_erase;
    QLineEdit* m_replacement;
    QPushButton* m_replace;
    QLineEdit* m_object;
    QPushButton* m_chooseObject;
    QPushButton* m_eraseObject;
    std::array<QRadioButton*, 2> m_modes{};
};

} // namespace tavrel
