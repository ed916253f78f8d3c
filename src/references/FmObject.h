// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "catalogue/SoundCatalogue.h"
#include "ui/TitledWindow.h"

#include <string>

class QListWidget;
class QPushButton;

namespace tavrel {

// Chooses an object of the level editor by its type. Accepted with a name, or rejected.
class FmObject : public TitledWindow
{
    Q_OBJECT

public:
    FmObject(QWidget* parent, const SoundCatalogue& catalogue, const ColourScheme& colours,
             Language language);

    // Code page bytes.
    const std::string& chosenName() const { return m_chosenName; }

private:
    void layOut(const ColourScheme& colours);
    void showCaptions(Language language);
    void fillTypes();
    void fillObjects();
    void fillSounds();
    const SoundObject* selectedObject() const;
    void choose();

    const SoundCatalogue& m_catalogue;
    QListWidget* m_types;
    QListWidget* m_objects;
    QListWidget* m_sounds;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    std::string m_chosenName;
};

} // namespace tavrel
