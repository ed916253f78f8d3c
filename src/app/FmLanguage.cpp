// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmLanguage.h"

#include "base/Titles.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavrel {

FmLanguage::FmLanguage(HelpOpener openHelp)
    : m_openHelp(std::move(openHelp)), m_french(new QRadioButton("Français"))
{
    setObjectName("FmLanguage");
    setWindowTitle(inLanguage(titles::program, Language::English));
    m_french->setObjectName("OpLangF");
    m_french->setToolTip("Affichage en Français");
    auto* const english = new QRadioButton("English");
    english->setObjectName("OpLangE");
    english->setToolTip("English display");
    const bool frenchSystem = QLocale::system().language() == QLocale::French;
    (frenchSystem ? m_french : english)->setChecked(true);

    auto* const ok = new QPushButton("OK");
    ok->setObjectName("CdOK");
    ok->setDefault(true);
    ok->setToolTip("Start with this language\nDémarrer dans cette langue");
    auto* const quit = new QPushButton("Quit / Quitter");
    quit->setObjectName("CdQuit");
    quit->setAutoDefault(false);
    quit->setToolTip("End the program\nTerminer le programme");
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(quit, &QPushButton::clicked, this, &QDialog::reject);

    content().setContentsMargins(24, 16, 24, 16);
    content().setSpacing(10);
    content().addWidget(new QLabel("Select Language\nSélectionnez la Langue"));
    content().addSpacing(4);
    content().addWidget(english);
    content().addWidget(m_french);
    content().addSpacing(4);
    auto* const next = new QLabel("Then choose your level editor: winroomedit.exe or ngle.exe\n"
                                  "Choisissez ensuite l'éditeur de niveaux : winroomedit.exe ou ngle.exe");
    next->setProperty("muted", true);
    content().addWidget(next);
    content().addSpacing(8);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(quit);
    ok->setMinimumWidth(quit->sizeHint().width());
    content().addLayout(buttons);
    setMinimumWidth(320);
}

void FmLanguage::showHelp(const HelpTopic& topic)
{
    m_openHelp(*this, topic, language());
}

Language FmLanguage::language() const
{
    return m_french->isChecked() ? Language::French : Language::English;
}

} // namespace tavrel
