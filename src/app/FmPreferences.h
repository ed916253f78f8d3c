// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Options.h"
#include "settings/ProgramSettings.h"
#include "ui/TitledWindow.h"

#include <array>
#include <functional>
#include <string>

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace tavrel {

// What the preferences lead to. Each gets the window that is then underneath.
struct PreferencesDoors
{
    std::function<void(Language)> languageChanged;
    // Gives the folder of the level editor afterwards, chosen anew or not.
    std::function<std::string(QWidget&)> chooseLevelEditor;
    std::function<void(QWidget&)> openColours;
    std::function<void(QWidget&)> openDoubles;
    std::function<void(QWidget&)> openRestore;
};

// The options of the user. However it is closed, the options hold: it has no way to discard them.
class FmPreferences : public TitledWindow
{
    Q_OBJECT

public:
    FmPreferences(QWidget* parent, const ProgramSettings& settings, const Options& options,
                  PreferencesDoors doors);

    // Everything but the language, which changes at once.
    void storeIn(ProgramSettings& settings, Options& options) const;

private:
    void layOut();
    void showSettings(const ProgramSettings& settings);
    void showLanguage(Language language);
    void showFolder(const std::string& folder);

    PreferencesDoors m_doors;
    std::array<QCheckBox*, panelCount> m_panels{};
    QRadioButton* m_normalNotepad;
    QRadioButton* m_maximisedNotepad;
    QRadioButton* m_english;
    QRadioButton* m_french;
    QCheckBox* m_protectedEditable;
    QCheckBox* m_loadAfterChanges;
    QCheckBox* m_keepComments;
    QLabel* m_folder;
    QPushButton* m_selectEditor;
    QPushButton* m_colours;
    QPushButton* m_doubles;
    QPushButton* m_restore;
    QPushButton* m_ok;
};

} // namespace tavrel
