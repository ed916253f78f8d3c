// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's imports of the lists that the level editor writes beside a WAD.
#include "app/FmSFX.h"
#include "app/SoundListModel.h"
#include "base/Titles.h"
#include "references/FmView.h"
#include "references/LetterCommands.h"
#include "samples/FmSplInc.h"
#include "ui/Text.h"

#include <QPushButton>
#include <QRadioButton>

namespace tavrel {

void FmSFX::connectImportControls()
{
    connect(m_controls.CdLoadSAM, &QPushButton::clicked, this, [this] { importList(WadListKind::Samples); });
    connect(m_controls.CdLoadWAS, &QPushButton::clicked, this, [this] { importList(WadListKind::Objects); });
    connect(m_controls.CdViewWAD, &QPushButton::clicked, this, &FmSFX::viewWadLists);
    // They show which list was imported last; the buttons set them.
    for (QRadioButton* const option : m_controls.OpWAD) {
        option->setEnabled(false);
    }
}

// An import starts from the lines saved for the WAD, so the settings may forbid it once there is work to
// lose.
void FmSFX::enableImports()
{
    const bool forbidden = !m_settings.loadWadAfterChanges && (m_catalogue.pending() || wadHasSavedLines());
    const struct
    {
        QPushButton* button;
        WadListKind kind;
    } imports[] = {{m_controls.CdLoadSAM, WadListKind::Samples},
                   {m_controls.CdLoadWAS, WadListKind::Objects}};
    for (const auto& [button, kind] : imports) {
        BilingualText toolTip = importTitle(kind);
        if (forbidden) {
            toolTip += BilingualText::same("\n") + importForbidden();
        }
        button->setEnabled(m_loaded && !forbidden);
        button->setToolTip(inLanguage(toolTip, m_settings.language));
    }
}

bool FmSFX::wadHasSavedLines()
{
    if (!m_wadHasSavedLines) {
        m_wadHasSavedLines = hasSavedLines(m_context.programFolder, m_wad.wadName);
    }
    return *m_wadHasSavedLines;
}

void FmSFX::importList(WadListKind kind)
{
    const bool edited = m_editor.edited();
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    if (edited) {
        refreshLine();
    }
    m_controls.OpWAD[kind == WadListKind::Samples ? 0 : 1]->setChecked(true);
    m_wadHasSavedLines.reset();
    const ImportResult result =
        importWadList(m_catalogue, m_wad, kind, {m_context.programFolder, m_paths.wads}, m_context.dialogs,
                      [this] { refreshAllLines(); });
    if (!result.imported) {
        return;
    }
    if (!result.unknownSamples.empty()) {
        showUnknownSamples(result.unknownSamples);
    }
    m_sounds->rebuild(m_showGlobals);
    selectFirstLine();
}

void FmSFX::showUnknownSamples(const std::vector<std::string>& names)
{
    greyWadPanel();
    m_controls.CdQuit->setEnabled(false);
    FmSplInc(this, names, m_settings.colours, m_settings.language).exec();
    m_controls.CdQuit->setEnabled(true);
    updateReminder();
}

void FmSFX::viewWadLists()
{
    if (RequireCurrentReference(m_wad, titles::viewWadLists, m_context.dialogs)) {
        const WadView view = viewWad(m_catalogue, m_wad, {m_context.programFolder, m_paths.wads});
        FmView(this, m_catalogue, m_wad, view, m_settings.colours, m_settings.language).exec();
    }
}

} // namespace tavrel
