// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "references/WadView.h"
#include "ui/TitledWindow.h"

#include <QColor>

class QLabel;
class QListWidget;
class QListWidgetItem;

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
    struct Section
    {
        QLabel* heading;
        QListWidget* list;
    };

    void layOut(const ColourPair& colours);
    void showCaptions();
    void fillNamed(const Section& section, const WadViewRows& rows, const BilingualText& withoutSound);
    void fillPlain(const Section& section, const WadViewRows& rows);
    // False when there are no rows; the list then says why.
    bool startSection(const Section& section, const WadViewRows& rows, std::size_t count);
    QListWidgetItem& addRow(const Section& section, const WadViewRow& row, const QString& text);
    void say(const Section& section, const BilingualText& text);
    QString nameOf(const WadViewRow& row) const;
    void copyLists();

    const SoundCatalogue& m_catalogue;
    QColor m_marked;
    Language m_language;
    Section m_samples;
    Section m_objects;
    Section m_surplus;
};

} // namespace tavrel
