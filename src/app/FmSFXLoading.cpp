// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's files: reading them, reading them again, and closing.
#include "app/FmSFX.h"
#include "app/FmSounds.h"
#include "app/SessionLoading.h"
#include "app/SoundListModel.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FolderReplacement.h"
#include "ui/Text.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalBlocker>

namespace tavrel {

CatalogueSources FmSFX::sources(const LevelEditorPaths& paths) const
{
    return {m_context.programFolder, paths.creator, m_settings.protectedLinesEditable};
}

void FmSFX::load()
{
    Result<LoadedSession> loaded = loadSession(sources(m_paths));
    if (loaded) {
        adopt(std::move(*loaded));
        return;
    }
    m_loaded = false;
    m_catalogue = SoundCatalogue();
    showLoaded();
    m_context.dialogs.show({MessageIcon::Critical, titles::soundsFile, loaded.failure().text});
}

void FmSFX::adopt(LoadedSession loaded)
{
    m_loaded = true;
    m_catalogueReplaced = false;
    m_loadedEditable = m_settings.protectedLinesEditable;
    if (!m_registerUnsaved) { // else the file does not hold what the user has done
        m_references = std::move(loaded.references);
    }
    m_catalogue = std::move(loaded.catalogue);
    for (const std::filesystem::path& folder : {m_paths.samples, m_paths.wads}) {
        if (Problem problem = cutShortReplacement(folder)) {
            loaded.notices.push_back(std::move(*problem));
        }
    }
    showLoaded();
    if (!loaded.notices.empty()) { // last: while the box is up, the window paints what was loaded
        m_context.dialogs.show({MessageIcon::Information, titles::soundsFile, listOf(loaded.notices)});
    }
}

void FmSFX::showLoaded()
{
    m_object.clear();
    m_sounds->rebuild(m_showGlobals);
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_controls.CdApply, m_controls.CdCopy, m_controls.CdViewWAD,
                                         m_controls.CdRefW, m_controls.CdErase, m_controls.CdReplacL,
                                         m_controls.TxReplacL, m_controls.CdImport, m_controls.CdExport}) {
        control->setEnabled(m_loaded);
    }
    m_wad = currentWad(m_references.findUserWad(m_settings.lastWad));
    fillWadChooser();
    selectFirstLine();
    showObject();
    m_controls.LiSFX->setFocus();
}

// The same sound stays selected. What was loaded before stays when the files cannot be read now.
bool FmSFX::reload()
{
    const std::optional<std::size_t> selected = m_editor.selected();
    Result<LoadedSession> loaded = loadSession(sources(m_paths));
    if (!loaded) {
        m_context.dialogs.show({MessageIcon::Critical, titles::soundsFile, loaded.failure().text});
        return false;
    }
    adopt(std::move(*loaded));
    const QModelIndex index =
        selected && *selected < m_catalogue.size() ? m_sounds->indexOf(*selected) : QModelIndex();
    if (index.isValid()) {
        m_controls.LiSFX->setCurrentIndex(index);
        m_controls.LiSFX->scrollTo(index);
    }
    return true;
}

std::string FmSFX::chooseOtherLevelEditor()
{
    const std::string& current = m_settings.LevelEditorFolder;
    if (!mayLoadOther()) {
        return current;
    }
    const std::optional<LevelEditorChoice> choice = chooseLevelEditor(m_context.dialogs, m_paths.levelEditor);
    if (!choice) {
        return current;
    }
    const LevelEditorPaths paths = derivePaths(choice->folder);
    Result<LoadedSession> loaded = loadSession(sources(paths));
    if (!loaded) {
        m_context.dialogs.show({MessageIcon::Critical, titles::soundsFile, loaded.failure().text});
        return current;
    }
    m_settings.drive = choice->drive;
    m_settings.LevelEditorFolder = choice->folder;
    m_paths = paths;
    m_controls.LbPath->setText(fromCodePage(choice->folder));
    saveSettings(titles::selectLevelEditor);
    adopt(std::move(*loaded));
    return m_settings.LevelEditorFolder;
}

// Loading from elsewhere drops what is not applied.
bool FmSFX::mayLoadOther()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return false;
    }
    refreshLine();
    return !m_catalogue.pending() ||
           m_context.dialogs.ask(
               {titles::selectLevelEditor,
                {"Modifications not applied. They are lost when another level editor is chosen.\nChoose "
                 "it anyway",
                 "Des modifications n'ont pas été appliquées. Elles seront perdues si vous choisissez un "
                 "autre éditeur de niveaux.\nLe choisir quand même"},
                Buttons::YesNo,
                true}) == Answer::Yes;
}

// sounds.txt outside the list

void FmSFX::editSounds()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    refreshLine();
    if (m_catalogue.pending()) {
        viewSounds();
    } else {
        editInNotepad();
    }
}

// The file does not hold what is pending, so it is only to be read.
void FmSFX::viewSounds()
{
    Result<SoundsText> text = SoundsText::load(m_paths.creator);
    if (!text) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::soundsFile, text.failure().text});
        return;
    }
    FmSounds(this, std::move(*text), m_settings.colours, m_settings.language).exec();
    refreshAllLines();
}

void FmSFX::editInNotepad()
{
    const std::filesystem::path file = fileIn(m_paths.creator, soundsFileName);
    if (!m_context.programs.editText(file, m_settings.notepadMode)) {
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
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return false;
    }
    refreshLine();
    if (!m_catalogue.pending()) {
        return true;
    }
    const Question question{titles::quit,
                            {"Modifications not applied. Would you like to quit anyway",
                             "Des modifications n'ont pas été appliquées. Voulez-vous quitter quand même"},
                            Buttons::YesNo,
                            true};
    return m_context.dialogs.ask(question) == Answer::Yes;
}

void FmSFX::closeEvent(QCloseEvent* event)
{
    if (m_busy || !mayClose()) {
        event->ignore();
        return;
    }
    saveSettings(titles::quit);
    event->accept();
}

void FmSFX::saveSettings(const BilingualText& title)
{
    if (m_loaded) { // else the WAD is only not known
        m_settings.lastLetter = m_wad.letter;
        m_settings.lastWad = m_wad.wadName;
    }
    const Problem problem = m_settingsDamaged ? replaceDamagedSettings(m_context.programFolder, m_settings)
                                              : SaveSettings(m_context.programFolder, m_settings);
    m_settingsDamaged = m_settingsDamaged && problem; // one copy of the damaged file is enough
    if (problem) {
        m_context.dialogs.show({MessageIcon::Exclamation, title, problem->text});
    }
}

} // namespace tavrel
