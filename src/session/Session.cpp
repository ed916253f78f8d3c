// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Session.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/TextFile.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/ChangedLines.h"
#include "references/LetterReplacementNote.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tavrel {

namespace {

constexpr std::chrono::seconds registerPatience(2);

Failure staysInRegister(const ReferenceDelta& delta)
{
    const WadReference& reference = delta.after ? *delta.after : delta.before.value();
    const std::string name =
        "[" + utf8FromCodePage(reference.wadName) + "/#" + utf8FromCodePage(reference.letter) + "]";
    return {{"The reference " + name +
                 " has changed again since, and stays in the register as it is. Compare its letter with the "
                 "lines of [sounds.txt].",
             "La référence " + name +
                 " a encore changé depuis et reste telle quelle dans le registre. Comparez sa lettre avec "
                 "les lignes de [sounds.txt]."}};
}

// Whether the lines stand as the step expects them; they are then changed.
bool move(SoundCatalogue& catalogue, const HistoryTrack::Move& move)
{
    std::vector<LineDelta> deltas = move.step->lines;
    if (!move.forward) {
        std::ranges::reverse(deltas);
    }
    for (const LineDelta& delta : deltas) {
        const std::string& from = move.forward ? delta.before : delta.after;
        const std::string& to = move.forward ? delta.after : delta.before;
        const bool comes = delta.kind == (move.forward ? LineDelta::Kind::PutIn : LineDelta::Kind::TakenOut);
        const bool goes = delta.kind == (move.forward ? LineDelta::Kind::TakenOut : LineDelta::Kind::PutIn);
        const bool stands =
            comes ? delta.number <= catalogue.size()
                  : delta.number < catalogue.size() && catalogue.currentLine(delta.number) == from;
        if (!stands || (!goes && !SoundCatalogue::accepts(to))) {
            return false;
        }
        if (move.forward) {
            catalogue.repeat(delta);
        } else {
            catalogue.reverse(delta);
        }
    }
    return true;
}

} // namespace

Session::Session(const std::filesystem::path& programFolder, ProgramSettings settings)
    : m_settings(std::move(settings)), m_places(derivePlaces(programFolder, m_settings.LevelEditorFolder)),
      m_options(Options::load(programFolder)), m_history(m_catalogue, m_references, m_wad, *this)
{}

// A recovery log that nobody ended stays for the next start.
Session::~Session() = default;

template <typename... Arguments>
void Session::tell(void (SessionObserver::*event)(Arguments...), Arguments... arguments)
{
    const std::vector<SessionObserver*> observers = m_observers; // one may come or go meanwhile
    for (SessionObserver* const observer : observers) {
        (observer->*event)(arguments...);
    }
}

void Session::chooseWad(const std::string& wadName)
{
    m_wad = currentWad(wadName.empty() ? nullptr : m_references.findWad(wadName));
    m_settings.lastWad = m_wad.wadName;
    tell(&SessionObserver::wadChanged);
}

// Loading

Result<std::vector<Failure>> Session::load(std::vector<LineReadOtherwise> readOtherwise)
{
    return loadFrom(m_places, m_settings, std::move(readOtherwise));
}

Result<std::vector<Failure>> Session::loadFrom(const std::string& drive, const std::string& levelEditorFolder)
{
    ProgramSettings settings = m_settings;
    settings.drive = drive;
    settings.LevelEditorFolder = levelEditorFolder;
    return loadFrom(derivePlaces(m_places.program, levelEditorFolder), std::move(settings));
}

Result<std::vector<Failure>> Session::loadFrom(Places places, ProgramSettings settings,
                                               std::vector<LineReadOtherwise> readOtherwise)
{
    const bool readsOtherwise = !readOtherwise.empty();
    Result<LoadedCatalogue> catalogue = loadCatalogue(
        {places.program, places.creator, settings.protectedLinesEditable, std::move(readOtherwise)});
    Result<LoadedRegister> references = loadRegister(places.program);
    if (!references || !catalogue) {
        return references ? catalogue.failure() : references.failure();
    }
    const bool discards = m_loaded && pending();
    std::vector<Failure> notices = discardChanges();
    if (m_registerUnsaved) {
        writeRegister(); // what is in memory is what the user has done, written now or later
    } else {
        if (discards) { // which may have written the register
            if (Result<LoadedRegister> again = loadRegister(places.program)) {
                references = std::move(again);
            }
        }
        m_registerNotices = std::move(references->notices);
        m_references = std::move(references->references);
    }
    notices.insert(notices.end(), catalogue->notices.begin(), catalogue->notices.end());
    const std::vector<Failure> halves =
        halfReplacedLetters(places.program, catalogue->catalogue, m_references);
    notices.insert(notices.end(), halves.begin(), halves.end());
    m_catalogue = std::move(catalogue->catalogue);
    m_places = std::move(places);
    m_settings = std::move(settings);
    m_loaded = true;
    m_replaced = false;
    m_loadedEditable = m_settings.protectedLinesEditable;
    // One of the user's own, with the letter of the first reference of that name, as the chooser takes it.
    const bool isUsers = m_references.findUserWad(m_settings.lastWad) != nullptr;
    m_wad = currentWad(isUsers ? m_references.findWad(m_settings.lastWad) : nullptr);
    m_history.restart(readsOtherwise);
    beginRecovery();
    tell(&SessionObserver::reloaded);
    return notices;
}

std::string Session::registerState() const
{
    return std::to_string(hashOf(m_references.textInFile() + listOf(m_registerNotices).english));
}

// History

Session::Moved Session::goTo(std::size_t position)
{
    Moved moved;
    bool writesRegister = false;
    while (m_history.track().position != position) {
        const bool back = m_history.track().position > position;
        const HistoryStep& step = back ? m_history.undo() : m_history.redo();
        moved.label = step.label;
        moved.sound = step.firstNumber();
        writesRegister = writesRegister || step.changesRegister();
    }
    if (moved.sound && *moved.sound >= m_catalogue.size()) {
        moved.sound.reset();
    }
    if (writesRegister) {
        moved.problem = writeRegister();
    }
    return moved;
}

void Session::stepDone(const HistoryStep& step)
{
    if (m_recovery) {
        noteRecovery(m_recovery->stepDone(step, m_history.track()));
    }
    announce(step);
}

void Session::stepMoved(const HistoryStep& step)
{
    if (m_recovery) {
        noteRecovery(m_recovery->moved(m_history.track()));
    }
    announce(step);
}

void Session::announce(const HistoryStep& step)
{
    if (step.movesLines()) {
        tell(&SessionObserver::linesMoved);
    } else if (step.changesLines()) {
        tell<const std::vector<std::size_t>&>(&SessionObserver::linesChanged, step.numbers());
    }
    if (step.changesRegister()) {
        tell(&SessionObserver::registerChanged);
    }
    if (step.wad) {
        m_settings.lastWad = m_wad.wadName;
        tell(&SessionObserver::wadChanged);
    }
    tell(&SessionObserver::historyChanged);
}

// Files

bool Session::apply(Dialogs& dialogs, const std::optional<std::string>& wadName, const ApplyDoors& doors)
{
    const ApplyTarget target{m_places.program,
                             wadName.value_or(m_wad.wadName),
                             m_locks.get(),
                             doors.confirm,
                             doors.compare,
                             keepsComments(),
                             true};
    if (!applyChanges(m_catalogue, target, dialogs)) {
        return false;
    }
    m_history.markSaved();
    beginRecovery();
    if (m_registerUnsaved) {
        writeRegister();
    }
    tell(&SessionObserver::historyChanged);
    return true;
}

Result<bool> Session::completeChangedLines(const std::optional<std::string>& wadName)
{
    return tavrel::completeChangedLines(m_places.program, wadName.value_or(m_wad.wadName), m_catalogue);
}

// Where lines are read otherwise, those of the file do not tell which of them are sounds.
bool Session::keepsComments() const
{
    return m_options.flag(options::keepComments) && !history().differsFromStart;
}

Problem Session::writeRegister()
{
    std::optional<Result<ProcessLock>> lock;
    if (!m_locks || !m_locks->areTaken()) {
        lock = takeLock(m_places.program, changesLock, registerPatience);
    }
    Problem problem = !lock || *lock ? saveRegister(m_places.program, m_references) : lock->failure();
    m_registerUnsaved = problem.has_value();
    return problem;
}

std::vector<Failure> Session::discardChanges()
{
    std::vector<Failure> messages;
    if (!m_loaded || !pending()) {
        return messages;
    }
    messages = discardReferencesOf(m_history.track());
    if (m_recovery) {
        noteRecovery(m_recovery->keepAsDiscarded());
    }
    return messages;
}

std::vector<Failure> Session::discardReferencesOf(const HistoryTrack& track)
{
    std::vector<Failure> messages;
    const std::string before = m_references.userFileText();
    for (const ReferenceDelta& delta : m_history.moveReferencesToSaved(track)) {
        messages.push_back(staysInRegister(delta));
    }
    if (m_references.userFileText() != before) {
        if (Problem problem = writeRegister()) {
            messages.push_back(std::move(*problem));
        }
        tell(&SessionObserver::registerChanged);
    }
    return messages;
}

// Recovery

RecoveryHeader Session::recoveryHeader() const
{
    const SoundCatalogue::File& file = m_catalogue.file();
    return {file.path, file.stamp.size, file.stamp.hash,
            std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now())};
}

void Session::keepRecoverable()
{
    m_recovery = std::make_unique<RecoveryLog>(m_places.program);
    beginRecovery();
}

void Session::beginRecovery()
{
    if (m_recovery && m_loaded) {
        noteRecovery(m_recovery->begin(recoveryHeader(), m_history.track()));
    }
}

void Session::noteRecovery(Problem problem)
{
    m_recoveryProblem = std::move(problem);
}

bool Session::isOpenElsewhere() const
{
    return m_recovery &&
           tavrel::isOpenElsewhere(m_places.program, m_catalogue.file().path, m_recovery->file());
}

void Session::keepValues(const UnacceptedValues& values)
{
    if (m_recovery) {
        noteRecovery(m_recovery->valuesLeft(values));
    }
}

bool Session::adopt(const HistoryTrack& track)
{
    SoundCatalogue trial = m_catalogue;
    const std::vector<HistoryTrack::Move> way = track.wayFromSaved();
    if (!std::ranges::all_of(way, [&trial](const HistoryTrack::Move& step) { return move(trial, step); })) {
        return false;
    }
    m_history.adopt(track);
    beginRecovery();
    if (m_references.hasChanged()) {
        writeRegister();
    }
    tell(&SessionObserver::linesMoved);
    tell(&SessionObserver::registerChanged);
    tell(&SessionObserver::historyChanged);
    return true;
}

void Session::close()
{
    if (m_recovery) {
        m_recovery->end();
        m_recovery.reset();
    }
}

} // namespace tavrel
