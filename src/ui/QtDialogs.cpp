// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtDialogs.h"

#include "base/CodePage.h"
#include "ui/Text.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <array>

namespace tavrel {

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

struct AnswerButton
{
    Answer answer;
    QMessageBox::StandardButton button;
    BilingualText caption;
};

const std::array<AnswerButton, 4>& answerButtons()
{
    static const std::array<AnswerButton, 4> buttons = {{
        {Answer::Yes, QMessageBox::Yes, {"&Yes", "&Oui"}},
        {Answer::No, QMessageBox::No, {"&No", "&Non"}},
        {Answer::Ok, QMessageBox::Ok, {"&OK", "&OK"}},
        {Answer::Cancel, QMessageBox::Cancel, {"&Cancel", "&Annuler"}},
    }};
    return buttons;
}

QMessageBox::StandardButtons boxButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        break;
    }
    return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

void setUp(QMessageBox& box, const BilingualText& title, const BilingualText& text, Language language)
{
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(inLanguage(title, language));
    box.setText(inLanguage(text, language));
    for (const AnswerButton& entry : answerButtons()) {
        if (auto* const button = qobject_cast<QPushButton*>(box.button(entry.button))) {
            button->setText(inLanguage(entry.caption, language));
            button->setIcon({});
        }
    }
}

QString existingFolder(const std::filesystem::path& folder)
{
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored)
               ? QString::fromStdString(displayPath(folder))
               : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

} // namespace

void QtDialogs::show(const Message& message)
{
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(boxIcon(message.icon));
    box.setStandardButtons(QMessageBox::Ok);
    setUp(box, message.title, message.text, m_language);
    box.exec();
}

Answer QtDialogs::ask(const Question& question)
{
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(boxButtons(question.buttons));
    const bool hasCancel = question.buttons != Buttons::YesNo;
    box.setEscapeButton(hasCancel ? QMessageBox::Cancel : QMessageBox::No);
    const QMessageBox::StandardButton agreement =
        question.buttons == Buttons::OkCancel ? QMessageBox::Ok : QMessageBox::Yes;
    const QMessageBox::StandardButton refusal =
        question.buttons == Buttons::OkCancel ? QMessageBox::Cancel : QMessageBox::No;
    box.setDefaultButton(question.refusalIsDefault ? refusal : agreement);
    setUp(box, question.title, question.text, m_language);
    const int pressed = box.exec();
    for (const AnswerButton& entry : answerButtons()) {
        if (entry.button == pressed) {
            return entry.answer;
        }
    }
    return hasCancel ? Answer::Cancel : Answer::No;
}

std::optional<std::filesystem::path> QtDialogs::chooseFile(const OpenFileQuestion& question)
{
    QStringList patterns;
    for (const std::string& name : question.fileNames) {
        patterns += QString::fromStdString(name);
    }
    const QString filter = inLanguage(question.filterName, m_language) + " (" + patterns.join(' ') + ")";
    const QString chosen =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), inLanguage(question.title, m_language),
                                     existingFolder(question.folder), filter);
    if (chosen.isEmpty()) {
        return std::nullopt;
    }
    return std::filesystem::path(chosen.toStdU16String()).make_preferred();
}

} // namespace tavrel
