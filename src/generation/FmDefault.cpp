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
    addOption(*m_catalogue, "LbKeptFile");
    addOption(*m_samples, "LbKeptDir");
    addOption(*m_sfx, "LbKeptSFX");
    content().addStretch(1);
    content().addLayout(buttons);
}

// With what happens to the present files.
void FmDefault::addOption(QCheckBox& option, const char* keptLabel)
{
    auto* const group = new QVBoxLayout;
    group->setSpacing(2);
    group->addWidget(&option);
    auto* const kept = named(new QLabel, keptLabel);
    kept->setProperty("muted", true);
    kept->setWordWrap(true);
    kept->setContentsMargins(26, 0, 0, 0); // below the text of the option
    group->addWidget(kept);
    content().addLayout(group);
}

void FmDefault::showCaptions(Language language)
{
    const BilingualText start("Start restore", "Lancer la Restauration");
    const BilingualText close("Close", "Fermer");
    const BilingualText keptFile("The present file is kept beside it as [Sounds_replaced.txt].",
                                 "Le fichier actuel est conservé à côté sous le nom [Sounds_replaced.txt].");
    const BilingualText keptSamples(
        "All present samples, yours too, move to the folder [Samples_replaced] beside it.",
        "Tous les samples actuels, les vôtres aussi, passent à côté, dans le répertoire [Samples_replaced].");
    const BilingualText keptResults(
        "Only those of the stock levels. The present ones move to the folder [wads_replaced] beside [wads].",
        "Seulement ceux des niveaux d'origine. Les actuels passent dans le répertoire [wads_replaced], à côté de "
        "[wads].");
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
         keptFile},
        {"LbKeptFile", keptFile, {}},
        {"CkDefDir",
         {"Restore Original [\\Samples] Directory", "Restaurer le Répertoire [\\Samples] d'origine"},
         keptSamples},
        {"LbKeptDir", keptSamples, {}},
        {"CkDefSFX",
         {"Restore Original [SAM/SFX] Files", "Restaurer les Fichiers [SAM/SFX] d'origine"},
         keptResults},
        {"LbKeptSFX", keptResults, {}},
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
