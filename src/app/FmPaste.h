// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/LineEdit.h"
#include "ui/TitledWindow.h"

#include <string>

class QCheckBox;
class QPushButton;

namespace tavrel {

// Asks which parts of a copied sound the selected ones shall get.
class FmPaste : public TitledWindow
{
    Q_OBJECT

public:
    // `source` in UTF-8: "12: METAL_SCRAPE_LOOP".
    FmPaste(QWidget* parent, const std::string& source, const SoundLine& line, std::size_t sounds,
            const CarriedParts& parts, Language language);

    CarriedParts chosenParts() const;

private:
    void layOut(const QString& source);
    void enable();

    QCheckBox* m_values;
    QCheckBox* m_flags;
    QCheckBox* m_samples;
    QPushButton* m_ok;
    QPushButton* m_cancel;
};

} // namespace tavrel
