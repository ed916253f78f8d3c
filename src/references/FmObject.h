// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "catalogue/SoundCatalogue.h"
#include "ui/TitledWindow.h"

#include <string>
#include <vector>

class QListWidget;
class QPushButton;

namespace tavrel {

// Chooses objects of the level editor by their type, several with Ctrl, Shift or Space. Accepted with their
// names, or rejected.
class FmObject : public TitledWindow
{
    Q_OBJECT

public:
    FmObject(QWidget* parent, const SoundCatalogue& catalogue, const ColourScheme& colours,
             Language language);

    // Code page bytes.
    const std::vector<std::string>& chosenNames() const { return m_chosenNames; }

private:
    void layOut(const ColourScheme& colours);
    void showCaptions(Language language);
    void fillTypes(Language language);
    void fillObjects();
    void fillSounds();
    std::string selectedType() const;
    std::vector<const SoundObject*> selectedObjects() const;
    void choose();

    const SoundCatalogue& m_catalogue;
    QListWidget* m_types;
    std::vector<std::string> m_typesShown; // in code page bytes, a row each
    QListWidget* m_objects;
    QListWidget* m_sounds;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    std::vector<std::string> m_chosenNames;
};

} // namespace tavrel
