// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "references/WadView.h"
#include "ui/TitledWindow.h"

class QListWidget;

namespace tavrel {

// A WAD's samples and objects beside the sounds that they need; what lacks the WAD's letter is marked.
// Changes nothing.
class FmView : public TitledWindow
{
    Q_OBJECT

public:
    FmView(QWidget* parent, const SoundCatalogue& catalogue, const CurrentWad& wad, const WadView& view,
           const ColourScheme& colours, Language language);

private:
    void layOut(const ColourScheme& colours);
    void showCaptions(Language language);

    QListWidget* m_samples;
    QListWidget* m_objects;
    QListWidget* m_surplus;
};

} // namespace tavrel
