// SPDX-License-Identifier: GPL-3.0-or-later
// What an earlier window had not applied, or had given up.
#include "app/FmSFX.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "session/FmRecover.h"
#include "session/RecoverCommands.h"
#include "versions/PendingChanges.h"

namespace tavrel {

namespace {

std::optional<std::string> lineUnlessEmpty(const std::string& line)
{
    return line.empty() ? std::nullopt : std::optional(line);
}

BilingualText listOfChanges(const FoundRecovery& found)
{
    BilingualText rows;
    for (const RecoveredLine& line : netChanges(found.content.track)) {
        rows += rows.empty() ? "" : "\n";
        rows +=
            describe(PendingChange{line.number, lineUnlessEmpty(line.before), lineUnlessEmpty(line.after)});
    }
    return rows;
}

} // namespace

void FmSFX::offerRecovery()
{
    if (!m_session.isLoaded()) {
        return;
    }
    for (const FoundRecovery& found : abandonedRecoveries(m_context.programFolder)) {
        if (isApplied(found.content, m_session)) {
            if (const Problem problem = removeRecovery(found.file)) {
                m_context.dialogs.show({MessageIcon::Exclamation, titles::recovery, problem->text});
            }
            continue;
        }
        const bool isOfFile = isOfThisFile(found.content.header, m_session);
        FmRecover window(this, found, false, isOfFile, settings().colours, settings().language);
        window.exec();
        if (window.choice() == FmRecover::Choice::Recover) {
            bringBack(found);
        } else if (window.choice() == FmRecover::Choice::Discard) {
            discard(found, isOfFile);
        }
    }
    if (m_session.isOpenElsewhere()) {
        m_context.dialogs.show(
            {MessageIcon::Information,
             titles::program,
             {"Another window of Tavrel has the same [sounds.txt] open. Whoever applies second is asked before the "
              "other's changes are overwritten.",
              "Une autre fenêtre de Tavrel a ouvert le même [sounds.txt]. La seconde qui applique ses modifications "
              "doit confirmer avant d'écraser celles de l'autre."}});
    }
}

void FmSFX::bringBack(const FoundRecovery& found)
{
    const Recovered recovered = recover(m_session, found.content);
    if (const Problem problem = removeRecovery(found.file)) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::recovery, problem->text});
    }
    say(counted(recovered.lines, {"line recovered", "ligne récupérée"},
                {"lines recovered", "lignes récupérées"}));
    if (!recovered.missed.empty()) {
        FmMissed(this, recovered.missed, settings().colours, settings().language).exec();
    }
    const std::optional<UnacceptedValues>& values = found.content.values;
    if (values && values->number < catalogue().size() && SoundCatalogue::accepts(values->line)) {
        const SoundLine line = ParseSoundLine(catalogue().currentLine(values->number));
        m_selection.putBack(
            {{values->number}, values->number, editBetween(line, ParseSoundLine(values->line))});
    } else if (!netChanges(found.content.track).empty()) {
        m_selection.reveal(netChanges(found.content.track).front().number);
    }
}

void FmSFX::discard(const FoundRecovery& found, bool isOfFile)
{
    Question question{titles::recovery,
                      {"Give up the changes that were not applied?",
                       "Renoncer aux modifications qui n'ont pas été appliquées ?"},
                      Buttons::YesNo,
                      true};
    question.details = listOfChanges(found);
    if (m_context.dialogs.ask(question) != Answer::Yes) {
        return;
    }
    std::vector<Failure> messages;
    if (isOfFile) {
        messages = discardRecovered(m_session, found.content);
    }
    if (Problem problem = discardRecovery(found.file)) {
        messages.push_back(std::move(*problem));
    }
    if (!messages.empty()) {
        m_context.dialogs.show({MessageIcon::Information, titles::recovery, listOf(messages)});
    }
}

// "Recover...": the last one that was given up, then those before it.
void FmSFX::recoverDiscarded()
{
    if (!m_session.isLoaded() || !m_selection.mayLeave(m_context.dialogs)) {
        return;
    }
    const std::vector<FoundRecovery> discarded = discardedRecoveries(m_context.programFolder);
    for (const FoundRecovery& found : discarded) {
        FmRecover window(this, found, true, isOfThisFile(found.content.header, m_session), settings().colours,
                         settings().language);
        if (window.exec() != QDialog::Accepted) {
            continue;
        }
        bringBack(found);
        return;
    }
    if (discarded.empty()) {
        say({"Nothing was given up", "Rien n'a été abandonné"});
    }
}

} // namespace tavrel
