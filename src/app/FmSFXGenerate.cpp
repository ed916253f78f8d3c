// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's generation of sound files, and the restore of original files.
#include "app/FmSFX.h"
#include "app/StatusProgress.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProcessLock.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FmDefault.h"
#include "generation/RestoreDefaults.h"
#include "versions/PendingChanges.h"

#include <QApplication>

namespace tavrel {

void FmSFX::generate()
{
    say({});
    m_results.stop(); // a look in the middle of the pass would end it
    m_busy = std::make_unique<StatusProgress>(*this, *m_status, settings().language);
    const GenerationRequest request{catalogue(), m_session.wad(), m_session.pending() || m_selection.edited(),
                                    m_session.places(), [this] { return acceptsErrors(m_session.wad()); }};
    switch (m_generation.begin(request, *m_busy, SfxGeneration::Clock::now())) {
    case SfxGeneration::Begun::Started:
        m_busy->wait(m_generation.waitText());
        m_results.start(SfxGeneration::firstLook);
        break;
    case SfxGeneration::Begun::WrongSample:
        m_busy->alarm();
        m_context.dialogs.show(wrongSamplesMessage());
        m_busy.reset();
        offerSamplesCheck();
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
    const SfxGeneration::Phase phase = m_generation.poll(SfxGeneration::Clock::now());
    if (phase != SfxGeneration::Phase::Waiting) {
        m_busy.reset();
    }
    if (phase == SfxGeneration::Phase::Idle) {
        say(m_generation.summary());
    } else {
        if (wasWaiting && phase == SfxGeneration::Phase::ConsoleOpen) {
            say(m_generation.waitText());
        }
        m_results.start(SfxGeneration::nextLook);
    }
}

void FmSFX::openRestore(QWidget* parent)
{
    FmDefault chooser(parent, settings().language, m_context.dialogs);
    if (chooser.exec() != QDialog::Accepted) {
        return;
    }
    const Places& places = m_session.places();
    ChangeLocks locks({places.program, fileIn(places.creator, soundsFileName), places.samples},
                      std::chrono::seconds(2));
    if (const Problem problem = locks.take()) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::restore, problem->text});
        return;
    }
    if (const std::optional<BilingualText> notice = locks.notice()) {
        m_context.dialogs.show({MessageIcon::Information, titles::restore, *notice});
    }
    m_busy = std::make_unique<StatusProgress>(*this, *m_status, settings().language);
    const RestoreContext context{places, [this] { m_context.player.stop(); }, *m_busy, m_context.dialogs};
    if (restoreDefaults(chooser.choice(), context).catalogueReplaced) {
        m_session.setReplaced(true);
    }
    m_busy.reset();
}

bool FmSFX::reloadIfReplaced()
{
    if (!m_session.wasReplaced()) {
        return true;
    }
    m_session.setReplaced(false);
    const bool hasWork = m_session.pending() || m_selection.edited();
    return confirmReload(hasWork, listOfPendingChanges(catalogue()), m_context.dialogs) && reload();
}

} // namespace tavrel
