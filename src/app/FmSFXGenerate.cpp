// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's generation of sound files, the restore of original files, the statistics of the script.
#include "app/FmSFX.h"
#include "app/StatusProgress.h"
#include "base/CodePage.h"
#include "base/Folder.h"
#include "base/ProcessLock.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FmDefault.h"
#include "generation/FmStats.h"
#include "generation/RestoreDefaults.h"

#include <QApplication>
#include <QPushButton>

namespace tavrel {

FmSFX::~FmSFX() = default;

void FmSFX::connectGenerationControls()
{
    connect(m_controls.CdCopy, &QPushButton::clicked, this, &FmSFX::generate);
    connect(m_controls.CdStats, &QPushButton::clicked, this, &FmSFX::openStatistics);
    m_results.setObjectName("TmSFX");
    m_results.setSingleShot(true);
    m_results.setTimerType(Qt::PreciseTimer); // a coarse one comes too early
    connect(&m_results, &QTimer::timeout, this, &FmSFX::lookForResults);
}

void FmSFX::generate()
{
    showInfo({});
    m_results.stop(); // a look in the middle of the pass would end it
    m_busy = std::make_unique<StatusProgress>(*this, m_controls, m_settings.language);
    const GenerationRequest request{m_catalogue,
                                    m_wad,
                                    m_catalogue.pending() || m_editor.edited(),
                                    m_context.programFolder,
                                    m_paths.creator,
                                    m_paths.samples,
                                    m_paths.wads};
    switch (m_generation.begin(request, *m_busy, SfxGeneration::Clock::now())) {
    case SfxGeneration::Begun::Started:
        m_busy->wait();
        m_results.start(SfxGeneration::firstLook);
        break;
    case SfxGeneration::Begun::WrongSample:
        m_busy->alarm();
        m_context.dialogs.show(wrongSamplesMessage());
        m_busy.reset();
        checkSamplesFolder();
        break;
    case SfxGeneration::Begun::NotStarted:
        m_busy.reset();
        break;
    }
    if (m_generation.phase() != SfxGeneration::Phase::Idle && !m_results.isActive()) {
        m_results.start(SfxGeneration::nextLook);
    }
}

// Until the tool's console is closed; the window works again as soon as the results are in place.
void FmSFX::lookForResults()
{
    const bool wasWaiting = m_generation.phase() == SfxGeneration::Phase::Waiting;
    if (!wasWaiting && QApplication::activeModalWidget() != nullptr) {
        m_results.start(SfxGeneration::nextLook); // what there is to say can wait
        return;
    }
    const SfxGeneration::Phase phase = m_generation.look(SfxGeneration::Clock::now());
    if (phase != SfxGeneration::Phase::Waiting) {
        m_busy.reset();
    }
    if (phase == SfxGeneration::Phase::Idle) {
        showInfo(m_generation.summary());
    } else {
        m_results.start(SfxGeneration::nextLook);
    }
}

void FmSFX::openStatistics()
{
    // Of the folder that the settings file names by now.
    std::string folder = LoadSettings(m_context.programFolder).settings.LevelEditorFolder;
    if (folder.empty()) {
        folder = m_settings.LevelEditorFolder;
    }
    FmStats(this, scriptFile(nativePath(folder)), m_context.dialogs).exec();
}

void FmSFX::openRestore(QWidget* parent)
{
    FmDefault chooser(parent, m_settings.language, m_context.dialogs);
    if (chooser.exec() != QDialog::Accepted) {
        return;
    }
    ChangeLocks locks({m_context.programFolder, fileIn(m_paths.creator, soundsFileName), m_paths.samples},
                      std::chrono::seconds(2));
    if (const Problem problem = locks.take()) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::restore, problem->text});
        return;
    }
    if (const std::optional<BilingualText> notice = locks.notice()) {
        m_context.dialogs.show({MessageIcon::Information, titles::restore, *notice});
    }
    m_busy = std::make_unique<StatusProgress>(*this, m_controls, m_settings.language);
    const RestoreContext context{m_context.programFolder,
                                 m_paths.creator,
                                 m_paths.samples,
                                 m_paths.wads,
                                 [this] { m_context.player.stop(); },
                                 *m_busy,
                                 m_context.dialogs};
    if (restoreDefaults(chooser.choice(), context).catalogueReplaced) {
        m_catalogueReplaced = true;
    }
    m_busy.reset();
}

bool FmSFX::offerReload()
{
    const bool hasWork = m_catalogue.pending() || m_editor.edited();
    if (!std::exchange(m_catalogueReplaced, false)) {
        return true;
    }
    return wantsReload(hasWork, m_context.dialogs) && reload();
}

} // namespace tavrel
