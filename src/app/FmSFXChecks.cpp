// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window tells of the findings, and the windows that list them, which stay open beside it.
#include "app/FmSFX.h"
#include "app/MainPanel.h"
#include "app/SoundListPanel.h"
#include "base/Titles.h"
#include "checks/CheckWatch.h"
#include "checks/FindingQuestions.h"
#include "checks/FmChecks.h"
#include "checks/FmLevels.h"
#include "checks/SessionChecks.h"
#include "versions/PendingChanges.h"

namespace tavrel {

namespace {

// Which file, and what is wrong with it: nobody needs to hear that twice.
std::string markOf(const std::filesystem::path& file, std::span<const Finding> errors)
{
    std::string told = file.string();
    for (const Finding& error : errors) {
        told += "\n" + error.text.english;
    }
    return std::to_string(hashOf(told));
}

} // namespace

void FmSFX::tellFileErrors()
{
    if (!m_session.isLoaded()) {
        return;
    }
    const CheckReport report = checkFileOf(m_session);
    std::vector<const Finding*> errors;
    for (const Finding& finding : report.findings) {
        errors.push_back(&finding);
    }
    const std::string mark = markOf(catalogue().file().path, report.findings);
    if (errors.empty() || m_session.options().text(options::toldFileErrors) == mark) {
        return;
    }
    m_session.options().set(options::toldFileErrors, mark);
    if (m_context.dialogs.ask(fileErrorsNotice(errors)) == Answer::Other) {
        openChecks();
    }
}

bool FmSFX::acceptsErrors(const CurrentWad& wad)
{
    SilentProgress progress;
    const CheckReport report = checkSession(m_session, wad, progress);
    const std::vector<const Finding*> errors = errorsBeforeGeneration(report, catalogue(), wad);
    if (errors.empty()) {
        return true;
    }
    const Answer answer = m_context.dialogs.ask(carriedErrorsQuestion(errors, catalogue()));
    if (answer == Answer::Other) {
        openChecks();
    }
    return answer == Answer::Ok;
}

void FmSFX::showMarks()
{
    for (MainPanel* const panel : m_panels) {
        panel->showMarks(m_watch->marks());
    }
}

void FmSFX::openChecks()
{
    if (!m_session.isLoaded()) {
        return;
    }
    if (!m_checks) {
        m_checks = new FmChecks(
            this, {settings().language, settings().colours, m_context.dialogs,
                   [this](Progress& progress) { return checkSession(m_session, m_session.wad(), progress); },
                   [this](const CheckReport& report) { m_watch->take(report); },
                   [this]() -> const SoundCatalogue& { return catalogue(); },
                   [this] { return m_session.wad(); }, [this](std::size_t sound) { goTo(sound); },
                   [this](std::vector<SoundCatalogue::LineChange> changes, const BilingualText& label) {
                       return m_selection.mayLeave(m_context.dialogs) &&
                              changeLines(std::move(changes), label);
                   },
                   [this](std::vector<LineReadOtherwise> lines) { return readOtherwise(std::move(lines)); },
                   [this](const std::string& letter) { openRegister(letter); }});
        m_checks->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_checks->show();
    m_checks->raise();
    m_checks->activateWindow();
}

// The lines get other numbers, so the history starts anew.
bool FmSFX::readOtherwise(std::vector<LineReadOtherwise> lines)
{
    if (!m_selection.mayLeave(m_context.dialogs)) {
        return false;
    }
    Question question{
        titles::checkProject,
        {"Modifications not applied. They are lost when [sounds.txt] is loaded again.\nLoad it anyway",
         "Des modifications n'ont pas été appliquées. Elles seront perdues si [sounds.txt] est rechargé.\nLe "
         "recharger quand même"},
        Buttons::YesNo,
        true};
    question.details = listOfPendingChanges(catalogue());
    if (m_session.pending() && m_context.dialogs.ask(question) != Answer::Yes) {
        return false;
    }
    const Result<std::vector<Failure>> loaded = m_session.load(std::move(lines));
    if (!loaded) {
        m_context.dialogs.show({MessageIcon::Critical, titles::soundsFile, loaded.failure().text});
    }
    return static_cast<bool>(loaded);
}

void FmSFX::openLevels()
{
    if (!m_session.isLoaded()) {
        return;
    }
    if (!m_levels) {
        m_levels = new FmLevels(this, {settings().language, settings().colours, m_context.dialogs,
                                       [this] { return surveySession(m_session); },
                                       [this] { return m_session.wad(); },
                                       [this](const CurrentWad& wad) {
                                           m_session.chooseWad(wad.wadName);
                                           m_sounds->showLevel();
                                           activateWindow();
                                       }});
        m_levels->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_levels->show();
    m_levels->raise();
    m_levels->activateWindow();
}

} // namespace tavrel
