// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that the main window opens.
#include "app/FmPreferences.h"
#include "app/FmSFX.h"
#include "app/FunctionPanels.h"
#include "app/SoundListPanel.h"
#include "app/StatusProgress.h"
#include "app/StatusRow.h"
#include "app/TitleButtons.h"
#include "app/WadPanel.h"
#include "backup/FmExport.h"
#include "backup/FmImport.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/ProcessLock.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FmStats.h"
#include "references/FmObject.h"
#include "references/FmRefW.h"
#include "references/FmView.h"
#include "references/LetterCommands.h"
#include "references/WadListImport.h"
#include "samples/FmCheck.h"
#include "samples/FmDoub.h"
#include "samples/FmSamp.h"
#include "samples/FmSplInc.h"
#include "ui/Controls.h"
#include "ui/FmColors.h"
#include "versions/FmCompare.h"
#include "versions/FmReview.h"
#include "versions/FmVersions.h"
#include "versions/VersionCommands.h"

#include <QScreen>

#include <algorithm>

namespace tavrel {

namespace {

// While another window works on the current WAD.
class WadHeld
{
public:
    WadHeld(WadPanel& wads, TitleButtons& title) : m_wads(wads), m_title(title) { hold(true); }
    WadHeld(const WadHeld&) = delete;
    WadHeld& operator=(const WadHeld&) = delete;
    ~WadHeld() { hold(false); }

private:
    void hold(bool held)
    {
        m_wads.setGreyed(held);
        m_title.setQuitEnabled(!held);
    }

    WadPanel& m_wads;
    TitleButtons& m_title;
};

} // namespace

// References and objects

void FmSFX::openRegister(const std::string& letter)
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    const std::size_t referencesBefore = m_session.references().size();
    const WadHeld held(*m_wads, *m_titleButtons);
    FmRefW(this, {settings().language,
                  settings().colours,
                  {m_session.catalogue(), m_session.references(), m_session.wad(), m_session.places().wads,
                   m_context.dialogs},
                  [this] { m_selection.selectFirst(); },
                  letter})
        .exec();
    if (const Problem problem = m_session.writeRegister()) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::reference, problem->text});
    }
    const ReferenceRegister& references = m_session.references();
    if (m_session.wad().wadName.empty() && references.size() > referencesBefore) {
        m_session.chooseWad(references.all().back().wadName);
    }
}

void FmSFX::chooseObject()
{
    FmObject window(this, catalogue(), settings().colours, settings().language);
    if (window.exec() == QDialog::Accepted && m_selection.mayLeave(m_context.dialogs)) {
        m_selection.chooseObjects(window.chosenNames());
    }
}

// Samples

SamplesContext FmSFX::samplesContext()
{
    return {settings().language, settings().colours,      m_session.places().samples,
            m_context.dialogs,   m_context.player,        m_waveforms,
            &catalogue(),        &m_session.references(), [this](std::size_t sound) { goTo(sound); }};
}

std::optional<std::string> FmSFX::chooseSample()
{
    FmSamp window(this, samplesContext());
    return window.exec() == QDialog::Accepted ? std::optional(window.chosenName()) : std::nullopt;
}

void FmSFX::checkSamplesFolder()
{
    FmCheck(this, samplesContext()).exec();
}

void FmSFX::offerSamplesCheck()
{
    FmCheck window(this, samplesContext());
    window.offerCheck();
    window.exec();
}

// Lists of a WAD

void FmSFX::importList(WadListKind kind)
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    m_wads->showImported(kind);
    const ImportResult result =
        importWadList(m_session.catalogue(), m_session.wad(), kind, m_session.places(), m_context.dialogs);
    if (!result.imported) {
        return;
    }
    if (!result.unknownSamples.empty()) {
        showUnknownSamples(result.unknownSamples);
    }
    m_selection.selectFirst();
}

void FmSFX::showUnknownSamples(const std::vector<std::string>& names)
{
    const WadHeld held(*m_wads, *m_titleButtons);
    FmSplInc(this, names, settings().colours, settings().language).exec();
}

void FmSFX::viewWadLists()
{
    if (RequireCurrentReference(m_session.wad(), titles::viewWadLists, m_context.dialogs)) {
        const WadView view = viewWad(catalogue(), m_session.wad(), m_session.places());
        FmView(this, catalogue(), m_session.wad(), view, settings().colours, settings().language).exec();
    }
}

// Exchange files and backups

ExchangeContext FmSFX::exchangeContext()
{
    return {settings().language,   settings().colours, m_session.places(), m_session.wad(),
            m_session.catalogue(), m_context.dialogs,  m_context.player};
}

void FmSFX::openExport()
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    FmExport window(this, exchangeContext());
    if (window.exec() == QDialog::Accepted) {
        say(counted(window.savedLines(), {"line saved", "ligne sauvegardée"},
                    {"lines saved", "lignes sauvegardées"}));
    }
}

// What comes in is only in memory; the file is written when the user applies the changes.
void FmSFX::openImport()
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    FmImport window(this, exchangeContext());
    window.exec();
    if (window.importDone()) {
        say(counted(window.importedLines(), {"line imported", "ligne importée"},
                    {"lines imported", "lignes importées"}));
    }
}

// Compare, versions, review

bool FmSFX::changeLines(std::vector<SoundCatalogue::LineChange> changes, const BilingualText& label)
{
    const Problem problem = [&] {
        const Step step(m_session.catalogue(), label);
        return m_session.catalogue().setCurrentLines(std::move(changes));
    }();
    if (problem) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::lines, problem->text});
    }
    return !problem;
}

void FmSFX::goTo(std::size_t sound)
{
    if (m_selection.mayLeave(m_context.dialogs)) {
        m_selection.reveal(sound);
    }
}

VersionsContext FmSFX::versionsContext()
{
    const Places& places = m_session.places();
    const KeptPlaces kept{catalogue().file().path, places.samples, places.wads};
    const auto bringSet = [this, kept](const KeptVersion& set) {
        ChangeLocks locks({m_context.programFolder, kept.soundsFile, kept.samplesFolder},
                          std::chrono::seconds(2));
        if (const Problem problem = locks.take()) {
            m_context.dialogs.show({MessageIcon::Exclamation, titles::versions, problem->text});
            return false;
        }
        m_context.player.stop();
        StatusProgress progress(*this, *m_status, settings().language);
        return bringSetBack(set, kept, progress, m_context.dialogs);
    };
    return {settings().language,
            settings().colours,
            catalogue(),
            m_context.dialogs,
            kept,
            [this](std::vector<SoundCatalogue::LineChange> changes, const BilingualText& label) {
                return changeLines(std::move(changes), label);
            },
            [this](std::size_t sound) { goTo(sound); },
            bringSet};
}

void FmSFX::compareWith()
{
    if (m_session.isLoaded() && m_selection.mayLeave(m_context.dialogs)) {
        FmCompare(this, versionsContext()).exec();
    }
}

// From the question before another program's changes are overwritten.
bool FmSFX::compareWithFile(const std::filesystem::path& file)
{
    FmCompare window(this, versionsContext(), file);
    window.exec();
    return window.tookOver();
}

void FmSFX::openVersions()
{
    if (m_session.isLoaded() && m_selection.mayLeave(m_context.dialogs)) {
        FmVersions(this, versionsContext()).exec();
    }
}

void FmSFX::reviewChanges()
{
    if (m_session.isLoaded() && m_selection.mayLeave(m_context.dialogs)) {
        FmReview(this, m_session, m_context.dialogs,
                 {[this] { return m_functions->apply(); }, [this](std::size_t sound) { goTo(sound); }})
            .exec();
    }
}

// From the question before an apply, which comes back then.
void FmSFX::showChanges()
{
    FmReview(this, m_session, m_context.dialogs, {{}, [this](std::size_t sound) { goTo(sound); }}).exec();
}

// Statistics

void FmSFX::openStatistics()
{
    FmStats(this, scriptFile(m_session.places().levelEditor), m_context.dialogs).exec();
}

// Options

void FmSFX::openPreferences()
{
    FmPreferences window(this, m_session.settings(), m_session.options(),
                         {[this](Language language) { switchLanguage(language); },
                          [this](QWidget&) { return chooseOtherLevelEditor(); },
                          [this](QWidget& parent) { openColours(parent); },
                          [this](QWidget& parent) { openDoubles(parent); },
                          [this](QWidget& parent) { openRestore(&parent); }});
    const bool editableBefore = settings().protectedLinesEditable;
    window.exec();
    window.storeIn(m_session.settings(), m_session.options());
    showPanels();
    m_functions->followOptions();
    const bool declined = !reloadIfReplaced();
    if (settings().protectedLinesEditable != editableBefore && !m_session.followsProtectedOption()) {
        followProtectedOption(declined);
    }
}

// Which lines are protected is settled when the catalogue is loaded.
void FmSFX::followProtectedOption(bool reloadDeclined)
{
    if (!reloadDeclined && !m_selection.edited() && !m_session.pending()) {
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
    m_session.settings().language = language;
    showLanguage();
}

void FmSFX::openColours(QWidget& parent)
{
    FmColors window(&parent, m_session.settings().colours, settings().language, m_context.dialogs,
                    [this](const ColourPair& pair) { paintColours(pair); });
    window.adjustSize();
    // The list that it repaints stays in sight.
    const QRect list(m_sounds->mapToGlobal(QPoint(0, 0)), m_sounds->size());
    const int widest = std::max(window.width(), parent.width());
    const int left = std::min(list.right() + controlGap, screen()->availableGeometry().right() - widest);
    const QPoint placeBefore = parent.pos();
    parent.move(left, parent.y());
    window.move(left, parent.geometry().center().y() - window.height() / 2);
    window.exec();
    parent.move(placeBefore);
}

void FmSFX::openDoubles(QWidget& parent)
{
    FmDoub window(&parent, m_context.programFolder, catalogue().protectedNumbers(), settings().colours,
                  settings().language, m_context.dialogs);
    if (window.exec() != QDialog::Accepted) {
        return;
    }
    const Result<std::vector<Failure>> notices =
        reloadDoubles(m_session.catalogue(), m_context.programFolder);
    if (!notices || !notices->empty()) {
        m_context.dialogs.show({MessageIcon::Information, titles::manageDoubles,
                                notices ? listOf(*notices) : notices.failure().text});
    }
}

} // namespace tavrel
