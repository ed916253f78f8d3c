// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's commands on letters, references and objects.
#include "app/FmSFX.h"
#include "app/SoundListModel.h"
#include "base/Titles.h"
#include "references/FmObject.h"
#include "references/FmRefW.h"
#include "references/LetterCommands.h"
#include "references/LineLetters.h"
#include "ui/Colours.h"
#include "ui/Text.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

namespace tavrel {

namespace {

// 0x00BBGGRR
constexpr ColourValue wadTextColour = 16576;
constexpr ColourValue chooserColour = 33023;
constexpr ColourValue reminderColour = 192;
constexpr ColourValue greyedColour = 0xC0C0C0;
constexpr int blinkMilliseconds = 500;

} // namespace

void FmSFX::connectLetterControls()
{
    const FmSFXControls& c = m_controls;
    const auto onClick = [this](QPushButton* button, void (FmSFX::*command)()) {
        connect(button, &QPushButton::clicked, this, command);
    };
    onClick(c.CdAddWAD, &FmSFX::addLetter);
    onClick(c.CdDel, &FmSFX::removeLetter);
    onClick(c.CdErase, &FmSFX::eraseLetterEverywhere);
    onClick(c.CdReplacL, &FmSFX::replaceLetterOfWad);
    onClick(c.CdRefW, &FmSFX::openRegister);
    onClick(c.CdObj, &FmSFX::chooseObject);
    onClick(c.CdEffObj, &FmSFX::eraseObject);
    c.TxReplacL->setValidator(new CodePageValidator(c.TxReplacL));
    connect(c.TxReplacL, &QLineEdit::returnPressed, this, &FmSFX::replaceLetterOfWad);
    connect(c.TxReplacL, &QLineEdit::textChanged, this, [this](const QString& typed) {
        const QString corrected = fromCodePage(correctedLetter(toCodePage(typed)));
        if (corrected != typed) {
            m_controls.TxReplacL->setText(corrected);
        }
        showInfo(looksLikeFlagOrValue(toCodePage(corrected)) ? flagLetterHint() : BilingualText());
    });
    connect(c.CbTWad, &QComboBox::activated, this, [this] {
        m_settings.lastWad = toCodePage(m_controls.CbTWad->currentText());
        selectWad(m_settings.lastWad);
    });
    m_reminder.setInterval(blinkMilliseconds);
    connect(&m_reminder, &QTimer::timeout, this, &FmSFX::blinkReminder);
}

// The chooser lists the user's own WADs; the built-in references are only there to be read.
void FmSFX::fillWadChooser()
{
    m_controls.CbTWad->clear();
    for (std::size_t i = m_references.userBegin(); i < m_references.size(); ++i) {
        m_controls.CbTWad->addItem(fromCodePage(m_references.at(i).wadName));
    }
    showWad();
}

void FmSFX::selectWad(const std::string& wadName)
{
    m_wad = currentWad(wadName.empty() ? nullptr : m_references.findWad(wadName));
    m_justAdded.clear();
    showWad();
    fillLetters();
}

void FmSFX::showWad()
{
    m_controls.CbTWad->setCurrentIndex(
        m_wad.wadName.empty() ? -1
                              : m_controls.CbTWad->findText(fromCodePage(m_wad.wadName), Qt::MatchExactly));
    m_controls.TxWAD->setText(fromCodePage(m_wad.wadName));
    m_controls.TxLett->setText(fromCodePage(m_wad.letter));
    m_controls.TxTitre->setText(fromCodePage(m_wad.title));
    showTitle();
    updateReminder();
    m_wadHasSavedLines.reset();
    enableImports();
}

// The chooser blinks while there is nothing to choose.
void FmSFX::updateReminder()
{
    paintWadPanel(wadTextColour, chooserColour);
    if (m_loaded && m_controls.CbTWad->count() == 0 && m_context.systemLikesMotion) {
        m_reminder.start();
    } else {
        m_reminder.stop();
    }
}

void FmSFX::blinkReminder()
{
    paintWadPanel(wadTextColour, m_chooserColour == chooserColour ? reminderColour : chooserColour);
}

void FmSFX::paintWadPanel(ColourValue text, ColourValue chooser)
{
    m_chooserColour = chooser;
    m_controls.PnWad->setStyleSheet(
        QString(
            "QLabel, QLineEdit { color: %1; } QComboBox { background: %2; color: %3; } "
            "QComboBox QAbstractItemView { background: #1F2124; color: #EEECDA; selection-color: #1B1C1F; }")
            .arg(colourFrom(text).name(), colourFrom(chooser).name(),
                 chooser == reminderColour ? "#FFFFDF" : "#1B1C1F"));
}

// While another window works on the current WAD.
void FmSFX::greyWadPanel()
{
    m_reminder.stop();
    paintWadPanel(greyedColour, greyedColour);
}

void FmSFX::refreshAllLines()
{
    m_sounds->refreshAll();
    m_editor.select(m_editor.selected());
    showSelectedLine();
}

void FmSFX::addLetter()
{
    if (!m_editor.canEdit()) {
        return;
    }
    if (!m_object.empty()) {
        addLetterToObject(m_catalogue, m_object, m_wad, m_context.dialogs);
        refreshAllLines();
        return;
    }
    switch (addLetterToLine(m_editor, m_wad, m_context.dialogs)) {
    case AddedLetter::Added:
        m_justAdded = m_wad.letter;
        refreshLine();
        m_controls.LiWAD->setCurrentRow(m_controls.LiWAD->count() - 1);
        break;
    case AddedLetter::SoundOfAllLevels:
        m_controls.LiSFX->selectionModel()->clearCurrentIndex();
        m_controls.LiSFX->clearSelection();
        break;
    case AddedLetter::Refused:
        break;
    }
}

void FmSFX::removeLetter()
{
    if (!m_object.empty()) {
        removeLetterFromObject(m_catalogue, m_object, m_wad, m_context.dialogs);
        refreshAllLines();
        return;
    }
    const int row = m_controls.LiWAD->selectedItems().empty() ? -1 : m_controls.LiWAD->currentRow();
    const auto entry = row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
    if (removeLetterFromLine(m_editor, entry, m_context.dialogs)) {
        refreshLine();
    }
}

void FmSFX::eraseLetterEverywhere()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    removeLetterEverywhere(m_catalogue, m_wad, m_context.dialogs);
    refreshAllLines();
}

void FmSFX::replaceLetterOfWad()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    const std::string typed = toCodePage(m_controls.TxReplacL->text());
    const ReplacedLetter result = replaceLetterEverywhere(m_catalogue, m_references, m_wad, typed,
                                                          m_context.programFolder, m_context.dialogs);
    refreshAllLines();
    if (result == ReplacedLetter::Refused) {
        m_controls.TxReplacL->setFocus();
        return;
    }
    m_controls.TxReplacL->clear();
    if (result == ReplacedLetter::Replaced) {
        showWad();
        selectFirstLine();
    }
}

void FmSFX::openRegister()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    refreshLine();
    greyWadPanel();
    m_controls.CdQuit->setEnabled(false);
    const auto changed = [this] {
        m_justAdded.clear();
        fillWadChooser();
        greyWadPanel();
        refreshAllLines();
    };
    FmRefW window(this, {m_settings.language,
                         m_settings.colours,
                         {m_catalogue, m_references, m_wad, m_paths.wads, m_context.dialogs},
                         changed});
    window.exec();
    const Problem problem = saveRegister(m_context.programFolder, m_references);
    m_registerUnsaved = problem.has_value();
    if (problem) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::reference, problem->text});
    }
    m_controls.CdQuit->setEnabled(true);
    m_settings.lastWad = m_wad.wadName;
    updateReminder();
    if (window.linesChanged()) {
        selectFirstLine();
    }
}

void FmSFX::chooseObject()
{
    FmObject window(this, m_catalogue, m_settings.colours, m_settings.language);
    if (window.exec() == QDialog::Accepted && m_editor.mayLeave(m_context.dialogs)) {
        m_object = window.chosenName();
        m_warnedLine = m_editor.selected();
        showObject();
    }
}

void FmSFX::eraseObject()
{
    m_object.clear();
    showObject();
}

void FmSFX::showObject()
{
    m_controls.TxObj->setText(fromCodePage(m_object));
    m_controls.CdEffObj->setEnabled(!m_object.empty());
    refreshLine();
}

// While an object is selected, single lines are not edited; said once for a line.
void FmSFX::warnAboutObject()
{
    if (m_object.empty() || !m_editor.canEdit() || m_warnedLine == m_editor.selected()) {
        return;
    }
    m_warnedLine = m_editor.selected();
    m_context.dialogs.show({MessageIcon::Information,
                            titles::addLetterToObject,
                            {"An object is selected. Modification not authorized",
                             "Un objet est sélectionné. Modification non autorisée"}});
}

} // namespace tavrel
