// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmSplInc.h"

#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

FmSplInc::FmSplInc(QWidget* parent, const std::vector<std::string>& names, const ColourScheme& colours,
                   Language language)
    : TitledWindow(parent)
{
    setObjectName("FmSplInc");
    setWindowModality(Qt::ApplicationModal);
    auto* const list = makeFixedPitchList("LiSample");
    auto* const copy = makeButton("CdCopyList", Glyph::CopyLine);
    auto* const close = makeButton("CdCancel", Glyph::Close);
    paintWith(*list, colours.slots[ColourScheme::mainWindowSlot]);
    QStringList shown;
    for (const std::string& name : names) {
        shown += fromCodePage(name);
    }
    list->addItems(shown);
    connect(copy, &QPushButton::clicked, this,
            [shown] { QApplication::clipboard()->setText(shown.join("\n")); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(list, 1);
    content().addLayout(rowOf({copy, close}));
    const Caption captions[] = {
        {"LiSample", {}, {"Samples that no sound uses", "Samples qu'aucun son n'utilise"}},
        {"CdCopyList",
         {"Copy the list", "Copier la liste"},
         {"Copy the list to clipboard", "Copier la liste dans le presse papiers"}},
        {"CdCancel", {"Close", "Fermer"}, {"Close", "Fermer"}},
    };
    showCaptions(*this, captions, language);
    setWindowTitle(inLanguage({"List of Unknown Samples", "Liste des Samples inconnus"}, language));
    resize(380, 420);
}

} // namespace tavrel
