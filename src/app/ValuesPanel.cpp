// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ValuesPanel.h"

#include "app/ValueEdit.h"
#include "checks/LineReading.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace tavrel {

namespace {

BilingualText toolTipOf(ValueBox box)
{
    switch (box) {
    case ValueBox::Vol:
        return {"Volume", "Volume"};
    case ValueBox::Pit:
        return {"", "Hauteur grave/aigu"};
    case ValueBox::Rad:
        return {"", "Rayon d'écoute"};
    case ValueBox::Ch:
        break;
    }
    return {"Probability", "Probabilité en % que le son soit entendu"};
}

BilingualText toolTipOf(LineFlag flag)
{
    switch (flag) {
    case LineFlag::P:
        return {"Random Pitch", "Hauteur aléatoire"};
    case LineFlag::V:
        return {"Random Volume", "Volume aléatoire"};
    case LineFlag::R:
        return {"Random Radius", "Rayon d'écoute aléatoire"};
    case LineFlag::L:
        return {"Loop", "Son en boucle"};
    case LineFlag::N:
        break;
    }
    return {};
}

BilingualText varying(const BilingualText& toolTip)
{
    const BilingualText varies("varies", "varie");
    const auto joined = [](const std::string& text, const char* colon, const std::string& word) {
        return text.empty() ? word : text + colon + word;
    };
    return {joined(toolTip.english, ": ", varies.english), joined(toolTip.french, " : ", varies.french)};
}

void markWrong(QLineEdit& box, bool wrong)
{
    if (box.property("wrong").toBool() != wrong) {
        box.setProperty("wrong", wrong);
        box.style()->unpolish(&box);
        box.style()->polish(&box);
    }
}

} // namespace

ValuesPanel::ValuesPanel(const PanelContext& context) : MainPanel(context)
{
    layOut();
    connectControls();
    enable();
}

void ValuesPanel::layOut()
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(controlGap, 0, controlGap, controlGap);
    layout->setSpacing(controlGap);
    layout->addWidget(makeHeading("LbValues"));
    layout->addWidget(makeBoxes());
}

// The boxes with the flags below; together however wide the panel is.
QWidget* ValuesPanel::makeBoxes()
{
    static constexpr const char* boxNames[] = {"TxVOL", "TxPIT", "TxRAD", "TxCH"};
    static constexpr const char* labelNames[] = {"LbVOL", "LbPIT", "LbRAD", "LbCH"};
    static constexpr const char* flagNames[] = {"CkP", "CkV", "CkR", "CkN", "CkL"};
    enum Column { Label, Box, Gap, Columns };
    constexpr int widest = 420;
    constexpr int smallestGap = 8;
    auto* const boxes = new QWidget;
    boxes->setMaximumWidth(widest);
    auto* const grid = new QGridLayout(boxes);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(controlGap);
    for (std::size_t i = 0; i < valueBoxCount; ++i) {
        const int column = Columns * static_cast<int>(i);
        auto* const box = named(new ValueEdit(allValueBoxes[i]), boxNames[i]);
        m_values[i] = box;
        auto* const label = named(new QLabel, labelNames[i]);
        label->setContentsMargins(0, 0, controlGap, 0);
        label->setBuddy(box);
        grid->addWidget(label, 0, column + Label);
        grid->addWidget(box, 0, column + Box);
        if (i + 1 < valueBoxCount) {
            grid->setColumnMinimumWidth(column + Gap, smallestGap);
            grid->setColumnStretch(column + Gap, 1);
        }
    }
    auto* const lastFlags = rowOf({}); // below the last box
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        m_flags[i] = named(new QCheckBox(QString(flagNames[i]).mid(2)), flagNames[i]);
        if (i + 1 < valueBoxCount) {
            grid->addWidget(m_flags[i], 1, Columns * static_cast<int>(i), 1, Gap);
        } else {
            lastFlags->addWidget(m_flags[i]);
        }
    }
    grid->addLayout(lastFlags, 1, Columns * static_cast<int>(valueBoxCount - 1), 1, Gap);
    return boxes;
}

void ValuesPanel::connectControls()
{
    for (const ValueBox box : allValueBoxes) {
        connect(value(box), &QLineEdit::textChanged, this, [this, box] { valueTyped(box); });
        connect(value(box), &QLineEdit::returnPressed, this, [this] { acceptValues(); });
        connect(value(box), &ValueEdit::stepped, this, [this, box](int by) { valueStepped(box, by); });
        connect(value(box), &ValueEdit::refused, this, [this, box] { valueRefused(box); });
        connect(value(box), &ValueEdit::emptied, this, [this, box] {
            selection().setValue(box, "", true);
            fillValue(box);
        });
    }
    connect(value(ValueBox::Pit), &QLineEdit::editingFinished, this, &ValuesPanel::pitchLeft);
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        connect(m_flags[i], &QCheckBox::clicked, this,
                [this, i](bool on) { selection().setFlag(allLineFlags[i], on); });
    }
}

void ValuesPanel::showLanguage(Language language)
{
    const Caption captions[] = {
        {"LbValues", {"Sample Values", "Valeurs Sample"}, {}},
        {"LbVOL", BilingualText::same("VOL"), toolTipOf(ValueBox::Vol)},
        {"LbPIT", BilingualText::same("PIT"), toolTipOf(ValueBox::Pit)},
        {"LbRAD", BilingualText::same("RAD"), toolTipOf(ValueBox::Rad)},
        {"LbCH", BilingualText::same("CH"), toolTipOf(ValueBox::Ch)},
    };
    showCaptions(*this, captions, language);
    showToolTips();
}

// Values that the lines do not have in common leave their boxes empty.
void ValuesPanel::showToolTips()
{
    const LineEditor& editor = selection().editor();
    for (const ValueBox box : allValueBoxes) {
        const bool varies = !editor.commonText(box);
        const QString name = inLanguage(toolTipOf(box), language());
        const QString raw = rawWord(box);
        value(box)->setToolTip(varies          ? inLanguage(varying(toolTipOf(box)), language())
                               : raw.isEmpty() ? name
                                               : plainToolTip(name.isEmpty() ? raw : name + ": " + raw));
        markWrong(*value(box), !raw.isEmpty());
        value(box)->setAccessibleName(name);
        value(box)->setPlaceholderText(varies ? QStringLiteral("\u2026") : QString());
    }
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        const BilingualText name = toolTipOf(allLineFlags[i]);
        m_flags[i]->setToolTip(
            inLanguage(editor.commonFlag(allLineFlags[i]) ? name : varying(name), language()));
    }
}

// What stands in the line where the box cannot show it as it stands ("VOL150").
QString ValuesPanel::rawWord(ValueBox box) const
{
    if (!selection().number() || selection().isSeveral() || selection().edited()) {
        return {};
    }
    const std::string_view raw =
        rawValueWord(session().catalogue().currentLine(*selection().number()), keyword(box));
    const std::string shown =
        std::string(keyword(box)) + selection().editor().commonText(box).value_or(std::string());
    return raw.empty() || raw == shown ? QString() : fromCodePage(raw);
}

void ValuesPanel::lineShown()
{
    for (const ValueBox box : allValueBoxes) {
        fillValue(box);
    }
    fillFlags();
    enable(); // last: a box that loses the focus must hold this line's value
}

void ValuesPanel::fillValue(ValueBox box)
{
    const Flagged filling(m_filling);
    value(box)->setText(fromCodePage(selection().editor().commonText(box).value_or(std::string())));
}

void ValuesPanel::fillFlags()
{
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        const std::optional<bool> common = selection().editor().commonFlag(allLineFlags[i]);
        m_flags[i]->setTristate(!common);
        m_flags[i]->setCheckState(!common ? Qt::PartiallyChecked : *common ? Qt::Checked : Qt::Unchecked);
    }
    showToolTips();
}

void ValuesPanel::enable()
{
    const bool editable = selection().canEditLines();
    for (ValueEdit* const box : m_values) {
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
    ValueEdit* const edit = value(box);
    const QString typed = edit->text();
    const QString corrected = fromCodePage(selection().setValue(box, toCodePage(typed), edit->hasFocus()));
    if (corrected != typed) {
        const Flagged filling(m_filling);
        edit->setText(corrected);
        edit->selectAll(); // the next digit replaces what the correction put there
    }
    showToolTips();
}

void ValuesPanel::valueStepped(ValueBox box, int by)
{
    if (!selection().canEditLines() || !selection().stepValue(box, by)) {
        return;
    }
    fillValue(box);
    value(box)->selectAll();
    if (selection().isSeveral() && !selection().editor().commonText(box)) {
        // The box stays empty; what it does has to be seen somewhere.
        const int steps = selection().editor().edit().value(box).value_or(LineEdit::Value()).by;
        say(BilingualText::same(std::string(keyword(box)) + " " + (steps > 0 ? "+" : "") +
                                std::to_string(steps)));
    }
}

void ValuesPanel::valueRefused(ValueBox box)
{
    const std::string name(keyword(box));
    switch (box) {
    case ValueBox::Vol:
    case ValueBox::Ch:
        say({name + " takes two digits, 1 to 99; an empty box means 100",
             name + " prend deux chiffres, de 1 à 99 ; une case vide vaut 100"});
        break;
    case ValueBox::Pit:
        say({name + " goes from -99 to 99", name + " va de -99 à 99"});
        break;
    case ValueBox::Rad:
        say({name + " takes two digits, 1 to 99", name + " prend deux chiffres, de 1 à 99"});
        break;
    }
}

// A sign alone may stand in the pitch only while the user is typing.
void ValuesPanel::pitchLeft()
{
    ValueEdit* const edit = value(ValueBox::Pit);
    if (selection().editor().canEditAny() && edit->text().startsWith('-')) {
        const Flagged filling(m_filling);
        edit->setText(fromCodePage(selection().setValue(ValueBox::Pit, toCodePage(edit->text()), false)));
    }
}

} // namespace tavrel
