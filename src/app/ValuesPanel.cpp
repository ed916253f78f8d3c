// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ValuesPanel.h"

#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr std::array<ValueBox, valueBoxCount> allValueBoxes = {ValueBox::Vol, ValueBox::Pit, ValueBox::Rad,
                                                               ValueBox::Ch};
constexpr std::array<LineFlag, lineFlagCount> allLineFlags = {LineFlag::P, LineFlag::V, LineFlag::R,
                                                              LineFlag::N, LineFlag::L};

} // namespace

ValuesPanel::ValuesPanel(const PanelContext& context) : MainPanel(context)
{
    layOut();
    connectControls();
    enable();
}

void ValuesPanel::layOut()
{
    static constexpr const char* boxNames[] = {"TxVOL", "TxPIT", "TxRAD", "TxCH"};
    static constexpr const char* labelNames[] = {"LbVOL", "LbPIT", "LbRAD", "LbCH"};
    static constexpr const char* flagNames[] = {"CkP", "CkV", "CkR", "CkN", "CkL"};
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(controlGap, 0, controlGap, controlGap);
    layout->setSpacing(controlGap);
    layout->addWidget(makeHeading("LbValues"));
    auto* const boxes = rowOf({});
    for (std::size_t i = 0; i < valueBoxCount; ++i) {
        const ValueBox which = allValueBoxes[i];
        auto* const box = named(new QLineEdit, boxNames[i]);
        box->setFixedWidth(44);
        box->setFont(fixedPitchFont());
        box->setMaxLength(static_cast<int>(maximumLength(which)));
        const QRegularExpression typed(which == ValueBox::Pit ? "-?[0-9]*" : "[0-9]*");
        box->setValidator(new QRegularExpressionValidator(typed, box));
        m_values[i] = box;
        auto* const label = named(new QLabel, labelNames[i]);
        label->setBuddy(box);
        boxes->addWidget(label);
        boxes->addWidget(box);
        boxes->addStretch(1);
    }
    layout->addLayout(boxes);
    auto* const flags = rowOf({});
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        m_flags[i] = named(new QCheckBox(QString(flagNames[i]).mid(2)), flagNames[i]);
        flags->addWidget(m_flags[i]);
        flags->addStretch(1);
    }
    layout->addLayout(flags);
}

void ValuesPanel::connectControls()
{
    for (const ValueBox box : allValueBoxes) {
        connect(value(box), &QLineEdit::textChanged, this, [this, box] { valueTyped(box); });
        connect(value(box), &QLineEdit::returnPressed, this, [this] { selection().accept(dialogs()); });
    }
    connect(value(ValueBox::Pit), &QLineEdit::editingFinished, this, &ValuesPanel::pitchLeft);
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        connect(m_flags[i], &QCheckBox::toggled, this, [this, i](bool on) {
            if (!m_filling) {
                selection().setFlag(allLineFlags[i], on);
            }
        });
    }
}

void ValuesPanel::showLanguage(Language language)
{
    const BilingualText probability("Probability", "Probabilité en % que le son soit entendu");
    const BilingualText pitch("", "Hauteur grave/aigu");
    const BilingualText radius("", "Rayon d'écoute");
    const Caption captions[] = {
        {"LbValues", {"Sample Values", "Valeurs Sample"}, {}},
        {"LbVOL", BilingualText::same("VOL"), {"Volume", "Volume"}},
        {"TxVOL", {}, {"Volume", "Volume"}},
        {"LbPIT", BilingualText::same("PIT"), pitch},
        {"TxPIT", {}, pitch},
        {"LbRAD", BilingualText::same("RAD"), radius},
        {"TxRAD", {}, radius},
        {"LbCH", BilingualText::same("CH"), probability},
        {"TxCH", {}, probability},
        {"CkP", {}, {"Random Pitch", "Hauteur aléatoire"}},
        {"CkV", {}, {"Random Volume", "Volume aléatoire"}},
        {"CkR", {}, {"Random Radius", "Rayon d'écoute aléatoire"}},
        {"CkL", {}, {"Loop", "Son en boucle"}},
    };
    showCaptions(*this, captions, language);
}

void ValuesPanel::lineShown()
{
    {
        const Flagged filling(m_filling);
        for (const ValueBox box : allValueBoxes) {
            value(box)->setText(fromCodePage(selection().editor().boxText(box)));
        }
    }
    fillFlags();
    enable(); // last: a box that loses the focus must hold this line's value
}

void ValuesPanel::fillFlags()
{
    const Flagged filling(m_filling);
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        m_flags[i]->setChecked(selection().editor().hasFlag(allLineFlags[i]));
    }
}

void ValuesPanel::enable()
{
    const bool editable = selection().canEditLine();
    for (QLineEdit* const box : m_values) {
        box->setEnabled(editable);
    }
    for (QCheckBox* const box : m_flags) {
        box->setEnabled(editable);
    }
}

void ValuesPanel::valueTyped(ValueBox box)
{
    if (m_filling) {
        return;
    }
    QLineEdit* const edit = value(box);
    const QString typed = edit->text();
    const QString corrected = fromCodePage(selection().setValue(box, toCodePage(typed), edit->hasFocus()));
    if (corrected != typed) {
        const Flagged filling(m_filling);
        edit->setText(corrected);
        edit->selectAll(); // the next digit replaces what the correction put there
    }
}

// A sign alone may stand in the pitch only while the user is typing.
void ValuesPanel::pitchLeft()
{
    QLineEdit* const edit = value(ValueBox::Pit);
    if (selection().editor().canEdit() && edit->text().startsWith('-')) {
        const Flagged filling(m_filling);
        edit->setText(fromCodePage(selection().setValue(ValueBox::Pit, toCodePage(edit->text()), false)));
    }
}

} // namespace tavrel
