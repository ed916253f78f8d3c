// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's files: reading them, reading them again, and closing.
#include "app/FmSFX.h"
#include "app/FmSounds.h"
#include "app/SoundListPanel.h"
#include "app/StatusProgress.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FolderReplacement.h"
#include "versions/PendingChanges.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include <sstream>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace tavrel {

void FmSFX::load()
{
    loadSession(std::nullopt);
    m_sounds->focusList();
}

// What was loaded before stays when the files cannot be read now.
bool FmSFX::loadSession(const std::optional<LevelEditorChoice>& editor)
{
    Result<std::vector<Failure>> notices =
        editor ? m_session.loadFrom(editor->drive, editor->folder) : m_session.load();
    if (!notices) {
        m_context.dialogs.show({MessageIcon::Critical, titles::soundsFile, notices.failure().text});
        return false;
    }
    for (const std::filesystem::path& folder : {m_session.places().samples, m_session.places().wads}) {
        if (Problem problem = cutShortReplacement(folder)) {
            notices->push_back(std::move(*problem));
        }
    }
    if (!notices->empty()) { // last: while the box is up, the window paints what was loaded
        m_context.dialogs.show({MessageIcon::Information, titles::soundsFile, listOf(*notices)});
    }
    tellFileErrors();
    tellRegisterNotices();
    return true;
}

// Once for a state of the register's files. One that cannot be read is told each time: nothing is kept then.
void FmSFX::tellRegisterNotices()
{
    const std::vector<Failure>& notices = m_session.registerNotices();
    const std::string state = m_session.registerState();
    const bool isTold = m_session.options().text(options::toldRegister) == state;
    if (notices.empty() || (isTold && !m_session.references().isUserFileProtected())) {
        return;
    }
    m_session.options().set(options::toldRegister, state);
    m_context.dialogs.show({MessageIcon::Information, titles::references, listOf(notices)});
}

// The selected sound stays selected.
bool FmSFX::reload()
{
    const std::optional<std::size_t> selected = m_selection.number();
    if (!loadSession(std::nullopt)) {
        return false;
    }
    if (selected && *selected < catalogue().size()) {
        m_selection.reveal(selected);
    }
    return true;
}

std::string FmSFX::chooseOtherLevelEditor()
{
    if (!mayLoadOther()) {
        return settings().LevelEditorFolder;
    }
    const std::optional<LevelEditorChoice> choice =
        chooseLevelEditor(m_context.dialogs, m_session.places().levelEditor);
    if (choice && loadSession(choice)) {
        saveSettings(titles::selectLevelEditor);
    }
    return settings().LevelEditorFolder;
}

// Loading from elsewhere drops what is not applied.
bool FmSFX::mayLoadOther()
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return false;
    }
    Question question{
        titles::selectLevelEditor,
        {"Modifications not applied. They are lost when another level editor is chosen.\nChoose it anyway",
         "Des modifications n'ont pas été appliquées. Elles seront perdues si vous choisissez un autre éditeur "
         "de niveaux.\nLe choisir quand même"},
        Buttons::YesNo,
        true};
    question.details = listOfPendingChanges(catalogue());
    return !m_session.pending() || m_context.dialogs.ask(question) == Answer::Yes;
}

// sounds.txt outside the list

void FmSFX::editSounds()
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    if (m_session.pending()) {
        viewSounds();
    } else {
        editInNotepad();
    }
}

// The file does not hold what is pending, so it is only to be read.
void FmSFX::viewSounds()
{
    Result<SoundsText> text = SoundsText::load(m_session.places().creator);
    if (!text) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::soundsFile, text.failure().text});
        return;
    }
    FmSounds(this, std::move(*text), settings().colours, settings().language).exec();
}

void FmSFX::editInNotepad()
{
    const std::filesystem::path file = fileIn(m_session.places().creator, soundsFileName);
    if (!m_context.programs.editText(file, settings().notepadMode)) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::notepad,
                                BilingualText("No text editor could be started for\n",
                                              "Aucun éditeur de texte n'a pu être lancé pour\n") +
                                    displayPath(file)});
        return;
    }
    const Question question{titles::notepad,
                            {"Reload [sounds.txt]\nand reboot program",
                             "Faut-il recharger le fichier sounds.txt\net réinitialiser le programme"},
                            Buttons::YesNo};
    if (m_context.dialogs.ask(question) == Answer::Yes) {
        load();
    }
}

// Closing

bool FmSFX::mayClose()
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return false;
    }
    Question question{titles::quit,
                      {"Modifications not applied. Would you like to quit anyway",
                       "Des modifications n'ont pas été appliquées. Voulez-vous quitter quand même"},
                      Buttons::YesNo,
                      true};
    question.details = listOfPendingChanges(catalogue());
    return !m_session.pending() || m_context.dialogs.ask(question) == Answer::Yes;
}

// References that could not be written are tried once more; the user decides whether they may get lost.
bool FmSFX::mayCloseWithoutRegister()
{
    const Problem problem = m_session.isRegisterUnsaved() ? m_session.writeRegister() : Problem();
    return !problem || m_context.dialogs.ask(
                           {titles::quit,
                            problem->text + BilingualText("\nYour references are lost when you quit now. "
                                                          "Quit anyway",
                                                          "\nVos références seront perdues si vous quittez "
                                                          "maintenant. Quitter quand même"),
                            Buttons::YesNo, true}) == Answer::Yes;
}

void FmSFX::closeEvent(QCloseEvent* event)
{
    if (m_systemEnds) {
        saveSettings(titles::quit);
        event->accept();
        return;
    }
    if (m_busy || !mayClose()) {
        event->ignore();
        return;
    }
    if (!mayCloseWithoutRegister()) {
        event->ignore();
        return;
    }
    const std::vector<Failure> messages = m_session.discardChanges();
    if (!messages.empty()) {
        m_context.dialogs.show({MessageIcon::Information, titles::quit, listOf(messages)});
    }
    saveSettings(titles::quit);
    m_session.close();
    event->accept();
}

void FmSFX::keepValues()
{
    if (m_selection.edited() && m_selection.editor().canEdit()) {
        m_session.keepValues({m_selection.number().value(), ComposeSoundLine(m_selection.editor().record())});
    }
}

void FmSFX::closeForSystem()
{
    keepValues();
    m_systemEnds = true;
    close();
}

#ifdef Q_OS_WIN
bool FmSFX::nativeEvent(const QByteArray& eventType, void* message, qintptr* result)
{
    const MSG& told = *static_cast<const MSG*>(message);
    if (told.message == WM_QUERYENDSESSION) {
        keepValues();
        *result = TRUE;
        return true;
    }
    if (told.message == WM_ENDSESSION) {
        if (told.wParam != 0) {
            closeForSystem();
        }
        *result = 0;
        return true;
    }
    return TitledWindow::nativeEvent(eventType, message, result);
}
#else
bool FmSFX::nativeEvent(const QByteArray& eventType, void* message, qintptr* result)
{
    return TitledWindow::nativeEvent(eventType, message, result);
}
#endif

// Places and sizes of windows

namespace {

std::vector<int> numbersIn(const std::optional<std::string>& text)
{
    std::vector<int> numbers;
    std::istringstream words(text.value_or(""));
    for (int number = 0; words >> number;) {
        numbers.push_back(number);
    }
    return numbers;
}

std::string sizeOption(const QString& window)
{
    return std::string(options::windowSizePrefix) + window.toStdString();
}

} // namespace

std::optional<QSize> FmSFX::sizeOf(const QString& window) const
{
    const std::vector<int> size = numbersIn(m_session.options().text(sizeOption(window)));
    return size.size() == 2 ? std::optional(QSize(size[0], size[1])) : std::nullopt;
}

void FmSFX::keepSize(const QString& window, QSize size)
{
    m_session.options().set(sizeOption(window),
                            std::to_string(size.width()) + " " + std::to_string(size.height()));
}

void FmSFX::goWhereItWas()
{
    const std::vector<int> place = numbersIn(m_session.options().text(options::mainWindowPlace));
    if (place.size() == 4 && place[2] > 0 && place[3] > 0) {
        const QRect wanted(place[0], place[1], place[2], place[3]);
        const QScreen* const nearest = QGuiApplication::screenAt(wanted.center());
        resize(nearest == nullptr ? size() : wanted.size().boundedTo(nearest->availableSize()));
        move(wanted.topLeft());
        moveIntoReach();
    }
    if (m_session.options().flag(options::mainWindowMaximised)) {
        setWindowState(windowState() | Qt::WindowMaximized);
    }
}

void FmSFX::rememberPlace()
{
    const QRect place = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    std::string text;
    for (const int number : {place.x(), place.y(), place.width(), place.height()}) {
        text += (text.empty() ? "" : " ") + std::to_string(number);
    }
    m_session.options().set(options::mainWindowPlace, text);
    m_session.options().setFlag(options::mainWindowMaximised, isMaximized());
}

void FmSFX::saveSettings(const Title& title)
{
    ProgramSettings& settings = m_session.settings();
    if (m_session.isLoaded()) { // else the WAD is only not known
        settings.lastLetter = m_session.wad().letter;
        settings.lastWad = m_session.wad().wadName;
    }
    rememberPlace();
    Problem problem = m_settingsDamaged ? replaceDamagedSettings(m_context.programFolder, settings)
                                        : SaveSettings(m_context.programFolder, settings);
    m_settingsDamaged = m_settingsDamaged && problem; // one copy of the damaged file is enough
    if (!problem) {
        problem = m_session.options().save();
    }
    if (problem && !m_systemEnds) {
        m_context.dialogs.show({MessageIcon::Exclamation, title, problem->text});
    }
}

} // namespace tavrel
