// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Captions.h"

#include "ui/Text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include <map>
#include <set>
#include <vector>

namespace tavrel {

namespace {

void setText(QWidget& control, const QString& text)
{
    if (auto* const button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text);
    } else if (auto* const label = qobject_cast<QLabel*>(&control)) {
        label->setText(text);
    }
}

// Gives each button a letter of its caption, if need be by giving another one a second choice of its own.
class LetterChoice
{
public:
    void add(QAbstractButton& button)
    {
        const QString text = button.text();
        if (const auto mark = text.indexOf('&'); mark >= 0 && mark + 1 < text.size()) {
            m_taken[text[mark + 1].toUpper()] = nullptr;
        } else {
            m_buttons.push_back(&button);
        }
    }

    void underline()
    {
        for (QAbstractButton* const button : m_buttons) {
            std::set<QChar> tried;
            place(button, tried);
        }
        for (const auto& [letter, button] : m_taken) {
            if (button != nullptr) {
                QString text = button->text();
                text.insert(placeOf(letter, text), '&');
                button->setText(text);
            }
        }
    }

private:
    // The beginnings of words come first.
    static qsizetype placeOf(QChar letter, const QString& text)
    {
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i].toUpper() == letter && (i == 0 || !text[i - 1].isLetter())) {
                return i;
            }
        }
        return text.indexOf(letter, 0, Qt::CaseInsensitive);
    }

    static QString lettersOf(const QString& text)
    {
        QString beginnings;
        QString others;
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar letter = text[i].toUpper();
            if (letter >= 'A' && letter <= 'Z') { // those that every keyboard has
                (i == 0 || !text[i - 1].isLetter() ? beginnings : others) += letter;
            }
        }
        return beginnings + others;
    }

    bool place(QAbstractButton* button, std::set<QChar>& tried)
    {
        for (const QChar letter : lettersOf(button->text())) {
            if (!tried.insert(letter).second) {
                continue;
            }
            const auto taken = m_taken.find(letter);
            if (taken == m_taken.end() || (taken->second != nullptr && place(taken->second, tried))) {
                m_taken[letter] = button;
                return true;
            }
        }
        return false;
    }

    std::vector<QAbstractButton*> m_buttons;
    std::map<QChar, QAbstractButton*> m_taken; // nothing for a letter that was chosen by hand
};

} // namespace

void showCaptions(QWidget& window, std::span<const Caption> captions, Language language)
{
    for (const Caption& caption : captions) {
        auto* const control = window.findChild<QWidget*>(caption.control);
        Q_ASSERT_X(control != nullptr, "showCaptions", caption.control);
        const QString toolTip = inLanguage(caption.toolTip, language);
        control->setToolTip(toolTip);
        if (caption.text.empty()) {
            control->setAccessibleName(toolTip);
        } else {
            setText(*control, inLanguage(caption.text, language));
        }
    }
    underlineLetters(window);
}

void underlineLetters(QWidget& window)
{
    LetterChoice choice;
    for (QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
        const bool isButton = qobject_cast<QPushButton*>(button) || qobject_cast<QToolButton*>(button);
        if (isButton && !button->text().isEmpty()) {
            choice.add(*button);
        }
    }
    choice.underline();
}

} // namespace tavrel
