// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmSplInc.h"

#include "base/Counted.h"
#include "base/Titles.h"
#include "samples/SampleList.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

BilingualText meaning(std::size_t count)
{
    return counted(count,
                   {"sample of the WAD's list is not in any line of sounds.txt.",
                    "sample de la liste du WAD ne figure dans aucune ligne de sounds.txt."},
                   {"samples of the WAD's list are not in any line of sounds.txt.",
                    "samples de la liste du WAD ne figurent dans aucune ligne de sounds.txt."});
}

} // namespace

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
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setCurrentRow(0);
    auto* const said = makePaperLabel("LbInfo");
    connect(copy, &QPushButton::clicked, this, [list, said, language, count = names.size()] {
        copyAllRows(*list);
        setPaperText(*said,
                     inLanguage(counted(count, {"name copied", "nom copié"}, {"names copied", "noms copiés"}),
                                language));
    });
    copySelectionByKey(*list);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    auto* const text = named(new QLabel, "LbMeaning");
    text->setWordWrap(true);
    content().addWidget(text);
    content().addWidget(list, 1);
    content().addWidget(said);
    content().addLayout(rowOf({copy, close}));
    const Caption captions[] = {
        {"LbMeaning", meaning(names.size()), {}},
        {"LiSample", {}, {"Samples that no sound uses", "Samples qu'aucun son n'utilise"}},
        {"CdCopyList",
         {"Copy the list", "Copier la liste"},
         {"Copy the list to clipboard", "Copier la liste dans le presse papiers"}},
        {"CdCancel", {"Close", "Fermer"}, {"Close", "Fermer"}},
    };
    showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::unknownSamples, language));
    resize(380, 420);
}

} // namespace tavrel
