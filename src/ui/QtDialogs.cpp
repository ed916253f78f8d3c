// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtDialogs.h"

#include "base/CodePage.h"
#include "ui/Text.h"

#include <QApplication>
#include <QFileDialog>
#include <QStandardPaths>

#include <algorithm>
#include <vector>

namespace tavrel {

namespace {

std::vector<Answer> offeredAnswers(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return {Answer::Ok};
    case Buttons::OkCancel:
        return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
        break;
    }
    return {Answer::Yes, Answer::No, Answer::Cancel};
}

// Closing the box.
Answer refusalOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return Answer::Ok;
    case Buttons::YesNo:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QString existingFolder(const std::filesystem::path& folder)
{
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored)
               ? QString::fromStdString(displayPath(folder))
               : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

// While a console of a tool has the focus, no window of this program is active.
QWidget* ownerOfDialogs()
{
    if (QWidget* const modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* const active = QApplication::activeWindow()) {
        return active;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(windows, &QWidget::isVisible);
    return shown != windows.end() ? *shown : nullptr;
}

} // namespace

MessageWindow::HelpOpener QtDialogs::helpOfBoxes() const
{
    return [this](QWidget& box, const HelpTopic& topic) {
        if (m_openHelp) {
            m_openHelp(box, topic, m_language);
        }
    };
}

void QtDialogs::show(const Message& message)
{
    MessageWindow window(ownerOfDialogs(), message.icon, inLanguage(message.title, m_language),
                         inLanguage(message.text, m_language));
    if (!message.details.empty()) {
        window.addDetails(inLanguage(message.details, m_language), false, m_language);
    }
    window.setHelp(helpOfBoxes());
    const Answer ok[] = {Answer::Ok};
    window.offer(ok, Answer::Ok, m_language);
    window.run(Answer::Ok);
}

Answer QtDialogs::ask(const Question& question)
{
    MessageWindow window(ownerOfDialogs(), question.icon, inLanguage(question.title, m_language),
                         inLanguage(question.text, m_language));
    if (!question.details.empty()) {
        window.addDetails(inLanguage(question.details, m_language), question.showsDetails, m_language);
    }
    window.setHelp(helpOfBoxes());
    std::vector<Answer> answers = offeredAnswers(question.buttons);
    const Answer cautious = question.buttons == Buttons::OkCancel ? Answer::Cancel : Answer::No;
    const Answer byDefault = question.refusalIsDefault ? cautious : answers.front();
    if (!question.otherChoice.empty()) {
        answers.insert(answers.begin(), Answer::Other);
    }
    std::map<Answer, BilingualText> words{{Answer::Other, question.otherChoice}};
    if (!question.agreement.empty()) {
        words[question.buttons == Buttons::OkCancel || question.buttons == Buttons::Ok ? Answer::Ok
                                                                                       : Answer::Yes] =
            question.agreement;
    }
    window.offer(answers, byDefault, m_language, words);
    return window.run(refusalOf(question.buttons));
}

std::optional<std::filesystem::path> QtDialogs::chooseFile(const OpenFileQuestion& question)
{
    const QFileDialog::FileMode mode =
        question.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
    const std::vector<std::filesystem::path> files = runFileDialog(question, mode);
    return files.empty() ? std::nullopt : std::optional(files.front());
}

std::vector<std::filesystem::path> QtDialogs::chooseFiles(const OpenFileQuestion& question)
{
    return runFileDialog(question, QFileDialog::ExistingFiles);
}

std::vector<std::filesystem::path> QtDialogs::runFileDialog(const OpenFileQuestion& question,
                                                            QFileDialog::FileMode mode)
{
    QStringList patterns;
    for (const std::string& name : question.fileNames) {
        patterns += QString::fromStdString(name);
    }
    const QString filter = inLanguage(question.filterName, m_language) + " (" + patterns.join(' ') + ")";
    QFileDialog dialog(ownerOfDialogs(), inLanguage(question.title, m_language),
                       existingFolder(question.folder), filter);
    dialog.setFileMode(mode);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the name says what there is to say
    if (question.forSaving) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
    dialog.selectFile(QString::fromStdString(question.proposedName));
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().empty()) {
        std::vector<std::filesystem::path> files;
        for (const QString& chosen : dialog.selectedFiles()) {
            files.push_back(std::filesystem::path(chosen.toStdU16String()).make_preferred());
        }
        std::error_code ignored;
        if (std::filesystem::is_directory(files.front().parent_path(), ignored)) {
            return files;
        }
        show({MessageIcon::Exclamation, question.title,
              BilingualText("There is no folder ", "Il n'y a pas de répertoire ") +
                  displayPath(files.front().parent_path())});
    }
    return {};
}

std::optional<ColourValue> QtDialogs::chooseColour(ColourValue current)
{
    return askForColour(ownerOfDialogs(), current, m_keptColours, m_language);
}

} // namespace tavrel
