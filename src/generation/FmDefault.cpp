// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FmDefault.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

FmDefault::FmDefault(QWidget* parent, Language language, Dialogs& dialogs)
    : TitledWindow(parent), m_catalogue(named(new QCheckBox, "CkDefFile")),
      m_samples(named(new QCheckBox, "CkDefDir")), m_sfx(named(new QCheckBox, "CkDefSFX"))
{
    setObjectName("FmDefault");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    showCaptions(language);
    connect(findChild<QPushButton*>("CdOK"), &QPushButton::clicked, this, [this, &dialogs] {
        if (requireChoice(choice(), dialogs)) {
            accept();
        }
    });
    connect(findChild<QPushButton*>("CdClose"), &QPushButton::clicked, this, &QDialog::reject);
}

void FmDefault::layOut()
{
    constexpr int margin = 2 * controlGap;
    constexpr int textWidth = 460;
    auto* const explanation = named(new QLabel, "LbExplain");
    explanation->setTextFormat(Qt::PlainText);
    explanation->setWordWrap(true);
    explanation->setMinimumWidth(textWidth);
    auto* const buttons =
        rowOf({makeButton("CdOK", Glyph::RestoreLine), makeButton("CdClose", Glyph::Close)});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(makeHeading("LbChoose"));
    content().addWidget(explanation);
    content().addWidget(m_catalogue);
    content().addWidget(m_samples);
    content().addWidget(m_sfx);
    content().addStretch(1);
    content().addLayout(buttons);
}

void FmDefault::showCaptions(Language language)
{
    const BilingualText start("Start restore", "Lancer la Restauration");
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbChoose", {"Choose what you want to restore", "Choisissez ce que vous voulez restaurer"}, {}},
        {"LbExplain",
         {"This will restore [Sounds.txt] file and/or [\\Samples] directory and/or [SAM/SFX] files as they were at "
          "the first installation of TRLE.",
          "Cette fonction va restaurer le fichier [Sounfs.txt] et/ou le répertoire [\\Samples] et/ou les fichiers "
          "[SAM/SFX] comme ils étaient à l'origine de l'installation de TRLE."},
         {}},
        {"CkDefFile",
         {"Restore Original [Sounds.txt] File", "Restaurer le Fichier [Sounds.txt] d'origine"},
         {"The present file is kept as [Sounds_replaced.txt] beside it",
          "Le fichier actuel est conservé à côté sous le nom [Sounds_replaced.txt]"}},
        {"CkDefDir",
         {"Restore Original [\\Samples] Directory", "Restaurer le Répertoire [\\Samples] d'origine"},
         {"All present samples, yours too, move to the folder [Samples_replaced] beside it",
          "Tous les samples actuels, les vôtres aussi, passent dans le répertoire [Samples_replaced] à côté"}},
        {"CkDefSFX",
         {"Restore Original [SAM/SFX] Files", "Restaurer les Fichiers [SAM/SFX] d'origine"},
         {"Those of the stock levels; the present ones move to the folder [wads_replaced]",
          "Ceux des niveaux d'origine ; les actuels passent dans le répertoire [wads_replaced]"}},
        {"CdOK", start, start},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::restoreDefaults, language));
}

RestoreChoice FmDefault::choice() const
{
    return {m_catalogue->isChecked(), m_samples->isChecked(), m_sfx->isChecked()};
}

} // namespace tavrel
