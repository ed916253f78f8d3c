// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmPaste.h"

#include "base/Counted.h"
#include "base/Titles.h"
#include "catalogue/SoundFilter.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

// "&Values: VOL44 PIT15"
BilingualText withContent(const BilingualText& caption, const SoundLine& line, SoundColumn column)
{
    const std::string text = fromCodePage(columnText(line, column)).replace('&', "&&").toStdString();
    const std::string shown = text.empty() ? "-" : text;
    return {caption.english + ": " + shown, caption.french + " : " + shown};
}

} // namespace

FmPaste::FmPaste(QWidget* parent, const std::string& source, const SoundLine& line, std::size_t sounds,
                 const CarriedParts& parts, Language language)
    : TitledWindow(parent), m_values(named(new QCheckBox, "CkValues")),
      m_flags(named(new QCheckBox, "CkFlags")), m_samples(named(new QCheckBox, "CkSamples")),
      m_ok(makeButton("CdOK", Glyph::Accept)), m_cancel(makeButton("CdCancel", Glyph::Close))
{
    setObjectName("FmPaste");
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(inLanguage(titles::pasteValues, language));
    layOut(QString::fromStdString(source) +
           inLanguage(BilingualText("\nonto ", "\nsur ") + countedSounds(sounds), language));
    const Caption captions[] = {
        {"CkValues",
         withContent({"&Values", "&Valeurs"}, line, SoundColumn::Values),
         {"Give them these values, and none where there is none",
          "Leur donner ces valeurs, et aucune là où il n'y en a pas"}},
        {"CkFlags",
         withContent({"&Flags", "&Flags"}, line, SoundColumn::Flags),
         {"Set these flags, and clear the others", "Mettre ces flags et enlever les autres"}},
        {"CkSamples",
         withContent({"&Samples", "&Samples"}, line, SoundColumn::Samples),
         {"Replace their samples by these", "Remplacer leurs samples par ceux-ci"}},
        {"CdOK", {"&Paste", "&Coller"}, {"Change the selected sounds", "Modifier les sons sélectionnés"}},
        {"CdCancel", {"C&ancel", "&Annuler"}, {"Change nothing", "Ne rien modifier"}},
    };
    showCaptions(*this, captions, language);
    m_values->setChecked(parts.values);
    m_flags->setChecked(parts.flags);
    m_samples->setChecked(parts.samples);
    for (const QCheckBox* const box : {m_values, m_flags, m_samples}) {
        connect(box, &QCheckBox::toggled, this, &FmPaste::enable);
    }
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ok->setDefault(true);
    enable();
    m_values->setFocus();
}

void FmPaste::layOut(const QString& source)
{
    constexpr int margin = 2 * controlGap;
    auto* const text = named(new QLabel(source), "LbSource");
    text->setTextFormat(Qt::PlainText);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(text);
    for (QCheckBox* const box : {m_values, m_flags, m_samples}) {
        content().addWidget(box);
    }
    auto* const buttons = rowOf({m_ok, m_cancel});
    buttons->insertStretch(0, 1);
    content().addLayout(buttons);
}

void FmPaste::enable()
{
    const CarriedParts parts = chosenParts();
    m_ok->setEnabled(parts.values || parts.flags || parts.samples);
}

CarriedParts FmPaste::chosenParts() const
{
    return {m_values->isChecked(), m_flags->isChecked(), m_samples->isChecked()};
}

} // namespace tavrel
