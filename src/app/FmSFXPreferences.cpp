// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's options, and the windows that change them.
#include "app/FmPreferences.h"
#include "app/FmSFX.h"
#include "app/HelpWindow.h"
#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "samples/FmDoub.h"
#include "ui/Colours.h"
#include "ui/FmColors.h"
#include "ui/FoldingPanel.h"

#include <QApplication>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>

namespace tavrel {

void FmSFX::openPreferences()
{
    FmPreferences window(this, m_settings,
                         {[this](Language language) { switchLanguage(language); },
                          [this](QWidget&) { return chooseOtherLevelEditor(); },
                          [this](QWidget& parent) { openColours(parent); },
                          [this](QWidget& parent) { openDoubles(parent); },
                          [this](QWidget& parent) { openRestore(&parent); }});
    window.exec();
    window.storeIn(m_settings);
    showPanels();
    showPending(); // the imports depend on an option
    const bool declined = m_catalogueReplaced && !offerReload();
    if (m_settings.protectedLinesEditable != m_loadedEditable) {
        followProtectedOption(declined);
    }
}

// Which lines are protected is settled when the catalogue is loaded.
void FmSFX::followProtectedOption(bool reloadDeclined)
{
    if (!reloadDeclined && !m_editor.edited() && !m_catalogue.pending()) {
        reload();
        return;
    }
    m_context.dialogs.show(
        {MessageIcon::Information,
         titles::preferences,
         {"The 'empty' and 'unsure' lines follow your choice when [sounds.txt] is loaded the next time.",
          "Les lignes 'empty' et 'non utilisées' suivront votre choix au prochain chargement de [sounds.txt]."}});
}

void FmSFX::switchLanguage(Language language)
{
    m_settings.language = language;
    showLanguage();
}

void FmSFX::showPanels()
{
    for (std::size_t i = 0; i < panelCount; ++i) {
        m_controls.panels[i]->setOpen(m_settings.panels[i]);
    }
}

void FmSFX::openColours(QWidget& parent)
{
    FmColors(&parent, m_settings.colours, m_settings.language, m_context.dialogs,
             [this](const ColourPair& pair) { paintMainColours(pair); })
        .exec();
}

void FmSFX::applyMainColours()
{
    paintMainColours(m_settings.colours.slots[ColourScheme::mainWindowSlot]);
}

void FmSFX::paintMainColours(const ColourPair& pair)
{
    for (QWidget* const area : std::initializer_list<QWidget*>{
             m_controls.LiSFX, m_controls.LiWAD, m_controls.LiSamp, m_controls.TxOrig, m_controls.TxModif}) {
        paintWith(*area, pair);
    }
}

void FmSFX::openDoubles(QWidget& parent)
{
    FmDoub window(&parent, m_context.programFolder, m_catalogue.protectedNumbers(), m_settings.colours,
                  m_settings.language, m_context.dialogs);
    if (window.exec() != QDialog::Accepted) {
        return;
    }
    const Result<std::vector<Failure>> notices = reloadDoubles(m_catalogue, m_context.programFolder);
    if (!notices || !notices->empty()) {
        m_context.dialogs.show({MessageIcon::Information, titles::manageDoubles,
                                notices ? listOf(*notices) : notices.failure().text});
    }
}

void FmSFX::showHelp()
{
    showHelpWindow(QApplication::activeWindow(), m_context.programFolder, m_settings.colours,
                   m_settings.language);
}

} // namespace tavrel
