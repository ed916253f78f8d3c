// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's doors to exchange files and backups.
#include "app/FmSFX.h"
#include "backup/FmExport.h"
#include "backup/FmImport.h"

#include <QPushButton>

namespace tavrel {

void FmSFX::connectExchangeControls()
{
    connect(m_controls.CdExport, &QPushButton::clicked, this, [this] { exportLines(); });
    connect(m_controls.CdImport, &QPushButton::clicked, this, [this] { importLines(); });
}

ExchangeContext FmSFX::exchangeContext()
{
    return {m_settings.language, m_settings.colours, m_context.programFolder, m_paths.samples, m_wad,
            m_catalogue,         m_context.dialogs,  m_context.player};
}

void FmSFX::exportLines()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    refreshLine();
    if (FmExport(this, exchangeContext()).exec() == QDialog::Accepted) {
        showInfo({"The file is written", "Le fichier est écrit"});
    }
}

// What comes in is only in memory; the file is written when the user applies the changes.
void FmSFX::importLines()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    refreshLine();
    FmImport window(this, exchangeContext());
    window.exec();
    if (window.importDone()) {
        rebuildList();
        showInfo({"The lines are imported", "Les lignes sont importées"});
    }
}

} // namespace tavrel
