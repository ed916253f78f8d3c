// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/SfxGeneration.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/FilledText.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "base/Titles.h"
#include "catalogue/SoundLine.h"
#include "references/LetterCommands.h"
#include "references/LineLetters.h"
#include "samples/SampleFormat.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

bool hasEnding(std::string_view name, std::string_view ending)
{
    return name.size() >= ending.size() && sameName(name.substr(name.size() - ending.size()), ending);
}

// One word to the command interpreter, which also reads batch files in another code page than the files' own.
bool isOneWord(std::string_view text)
{
    static constexpr std::string_view special = "&|<>^%\"'";
    return std::ranges::all_of(text, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte > 0x20 && byte < 0x7F && special.find(c) == std::string_view::npos;
    });
}

// The interpreter cannot stand in a network folder.
bool canBeCurrentFolder(const fs::path& folder)
{
    const fs::path::string_type& path = folder.native();
    const auto isSeparator = [](fs::path::value_type c) { return c == '/' || c == '\\'; };
    const bool isNetwork = path.size() > 1 && isSeparator(path[0]) && isSeparator(path[1]);
    return folder.is_absolute() && !isNetwork && isFolder(folder);
}

BilingualText impossible(const fs::path& folder)
{
    return filled(
        {"Impossible to create SFX files from folder\n{}\nCheck your user authorizations for this folder",
         "Impossible de créer les SFX à partir du répertoire\n{}\nVérifiez vos autorisations utilisateur "
         "concernant ce répertoire"},
        {displayPath(folder / "")});
}

struct SampleOfWad
{
    std::string name;
    std::optional<fs::path> file; // none is no fault: the tool itself will meet that
};

std::vector<SampleOfWad> samplesOfWad(const SoundCatalogue& catalogue, const CurrentWad& wad,
                                      const fs::path& samplesFolder)
{
    const Result<std::vector<FolderEntry>> files = listFolder(samplesFolder);
    std::vector<SampleOfWad> samples;
    for (std::size_t i = 0; i < catalogue.size(); ++i) {
        const std::string& line = catalogue.currentLine(i);
        if (!belongsToLevel(line, wad.letter)) {
            continue;
        }
        for (const std::string& name : ParseSoundLine(line).Samples) {
            if (name.empty() || name.front() == ' ') {
                continue;
            }
            const auto entry = files ? findIn(*files, sampleFileName(name)) : std::nullopt;
            const bool isThere = entry && entry->isFile && !system::isHidden(entry->path);
            samples.push_back({name, isThere ? std::optional(entry->path) : std::nullopt});
        }
    }
    return samples;
}

// Elsewhere there is no console window, and no key to wait for.
BilingualText keyWanted()
{
#ifdef _WIN32
    return {" When its console window asks for a key, press one in it.",
            " Quand sa fenêtre de console le demande, appuyez-y sur une touche."};
#else
    return {};
#endif
}

// The interpreter repeats each command behind its prompt ("Z:\folder>").
bool isPromptOrEmpty(std::string_view line)
{
    return line.find_first_not_of(" \t") == std::string_view::npos ||
           (line.substr(1).starts_with(":\\") && line.find('>') != std::string_view::npos);
}

// The end of what the tool said.
std::string lastWords(const fs::path& output)
{
    const Result<FileContent> content = readFile(output);
    if (!content) {
        return {};
    }
    constexpr std::size_t mostShown = 8;
    const TextFile file{output, content->bytes, false, content->stamp};
    std::vector<std::string_view> lines = file.lines();
    std::erase_if(lines, isPromptOrEmpty);
    std::string text;
    for (std::size_t i = lines.size() - std::min(lines.size(), mostShown); i < lines.size(); ++i) {
        text += "\n" + shownText(lines[i]);
    }
    return text;
}

} // namespace

std::string generationBatch(const CurrentWad& wad)
{
    return "pcwadsfx " + wad.wadName + " " + wad.letter + "\r\n" +
           "copy *.sam ..\\..\\graphics\\wads\r\n"
           "copy *.sfx ..\\..\\graphics\\wads\r\n"
           "del *.sam\r\n"
           "del *.sfx\r\n"
           "pause\r\n";
}

std::optional<std::string> findWrongSample(const SoundCatalogue& catalogue, const CurrentWad& wad,
                                           const fs::path& samplesFolder, Progress& progress)
{
    const std::string wadName = shownText(wad.wadName);
    const std::vector<SampleOfWad> samples = samplesOfWad(catalogue, wad, samplesFolder);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::string file = "[" + shownText(samples[i].name) + ".wav]...";
        progress.say({"Generating " + wadName + "] SFX files - checking sample integrity : " + file,
                      "Génération des fichiers SFX de [" + wadName +
                          "] - contrôle de l'intégrité du sample : " + file});
        progress.show(i, samples.size());
        if (samples[i].file && !CheckSampleFormatDetailed(*samples[i].file).valid()) {
            return samples[i].name;
        }
    }
    progress.show(samples.size(), samples.size());
    return std::nullopt;
}

Message wrongSamplesMessage()
{
    return {MessageIcon::Critical,
            titles::generate,
            {"Some samples are in the wrong format\n"
             "Generating SFX Files aborted\n"
             "Please check the entire \\Samples directory. Click on [OK] to proceed",
             "Certains samples ne sont pas au bon format\n"
             "Génération des Fichiers SFX annulée\n"
             "Veuillez analyser le répertoire \\Samples entièrement. Cliquez sur [OK] pour ce faire"}};
}

SfxGeneration::~SfxGeneration()
{
    // The interpreter reads it line by line: taken away too early, the results would never be copied.
    try {
        if (m_phase != Phase::Idle && (m_running->hasEnded() || hasResults())) {
            removeBatchFile();
        }
    } catch (const std::exception&) { // the next generation takes it away
        return;
    }
}

SfxGeneration::Begun SfxGeneration::begin(const GenerationRequest& request, Progress& progress,
                                          Clock::time_point now)
{
    poll(now); // the console of the last one may have been closed just now
    if (!mayBegin(request) || !request.acceptsErrors() || !confirm(request) ||
        !confirmMovingOtherFiles(request)) {
        return Begun::NotStarted;
    }
    if (findWrongSample(request.catalogue, request.wad, request.places.samples, progress)) {
        return Begun::WrongSample;
    }
    if (const Problem problem = takeLocks(request.places)) {
        refuse(problem->text);
        return Begun::NotStarted;
    }
    if (!start(request, now)) {
        m_locks = {};
        return Begun::NotStarted;
    }
    return Begun::Started;
}

Problem SfxGeneration::takeLocks(const Places& places)
{
    const std::array folders{places.program, places.creator};
    for (std::size_t i = 0; i < folders.size(); ++i) {
        Result<ProcessLock> lock = takeLock(folders[i], generationLock, std::chrono::seconds(0));
        if (!lock) {
            m_locks = {};
            return lock.failure();
        }
        m_locks[i] = std::move(*lock);
    }
    return std::nullopt;
}

bool SfxGeneration::mayBegin(const GenerationRequest& request)
{
    if (!RequireCurrentReference(request.wad, titles::generate, m_dialogs)) {
        return false;
    }
    if (m_phase != Phase::Idle) {
        refuse(BilingualText("The last generation is still running. Wait until it has ended.",
                             "La dernière génération est encore en cours. Attendez qu'elle soit terminée.") +
               keyWanted());
        return false;
    }
    if (!isOneWord(request.wad.wadName) || !isPlainFileName(request.wad.wadName) ||
        !isOneWord(request.wad.letter)) {
        refuse(
            BilingualText("The tool of the level editor cannot be called for\n",
                          "L'outil de l'éditeur de niveaux ne peut pas être appelé pour\n") +
            ("[" + shownText(request.wad.wadName) + "] [" + shownText(request.wad.letter) + "]") +
            BilingualText("\nA blank, an accented letter or one of & | < > ^ % \" ' in the name of the WAD "
                          "or in its letter would be misread, and some names cannot be those of a file "
                          "(\"aux\", one with * or ?). Rename it.",
                          "\nUn espace, une lettre accentuée ou l'un des caractères & | < > ^ % \" ' dans "
                          "le nom du WAD ou dans sa lettre serait mal lu, et certains noms ne peuvent pas "
                          "être ceux d'un fichier (« aux », un nom avec * ou ?). Renommez-le."));
        return false;
    }
    if (const Problem missing = m_runner.whatIsMissing()) {
        refuse(missing->text);
        return false;
    }
    if (!isFolder(request.places.wads)) {
        refuse(BilingualText("There is no folder for the results:\n",
                             "Il n'y a pas de répertoire pour les résultats :\n") +
               displayPath(request.places.wads));
        return false;
    }
    return true;
}

bool SfxGeneration::confirm(const GenerationRequest& request)
{
    if (request.hasUnappliedChanges) {
        refuse({"Modifications not applied.", "Modifications non appliquées."});
    }
    const std::string wadName = shownText(request.wad.wadName);
    const Question question{
        titles::generate,
        {"Confirm generation\n" + wadName + ".SAM and .SFX files will be created from [sounds.txt]",
         "Confirmer la génération\nLes fichiers " + wadName +
             ".SAM et .SFX seront créés en fonction de [sounds.txt]"},
        Buttons::OkCancel};
    return m_dialogs.ask(question) == Answer::Ok;
}

// The batch file moves whatever lies beside it.
bool SfxGeneration::confirmMovingOtherFiles(const GenerationRequest& request)
{
    std::string others;
    for (const std::string_view ending : {".sam", ".sfx"}) {
        const std::string own = request.wad.wadName + std::string(ending);
        const Result<FileStates> files = filesOf(request.places.creator, ending);
        if (!files) {
            refuse(impossible(request.places.creator), MessageIcon::Critical);
            return false;
        }
        for (const FileState& state : *files) {
            const std::string name = codePagePath(state.file.filename()).bytes;
            if (!sameName(name, own)) {
                others += "\n" + shownText(name);
            }
        }
    }
    if (others.empty()) {
        return true;
    }
    const Question question{
        titles::generate,
        BilingualText("Files of other levels lie beside the tool:", "Des fichiers d'autres niveaux se "
                                                                    "trouvent à côté de l'outil :") +
            others +
            BilingualText("\nThe generation would replace those of the same names in this folder, and delete "
                          "them where they are now. Go on?\n",
                          "\nLa génération remplacerait ceux du même nom dans ce répertoire et les "
                          "effacerait de leur place actuelle. Continuer ?\n") +
            displayPath(request.places.wads),
        Buttons::YesNo, true};
    return m_dialogs.ask(question) == Answer::Yes;
}

bool SfxGeneration::start(const GenerationRequest& request, Clock::time_point now)
{
    m_batchFile = fileIn(request.places.creator, batchFileName);
    if (!canBeCurrentFolder(request.places.creator) ||
        writeFileSafely(m_batchFile, generationBatch(request.wad))) {
        refuse(impossible(request.places.creator), MessageIcon::Critical);
        return false;
    }
    m_output = request.places.program / generationOutputFileName;
    m_wadsFolder = request.places.wads;
    m_wadName = request.wad.wadName;
    m_resultsBefore = resultsOf(m_wadsFolder, m_wadName);
    // What an earlier run left beside the tool is copied, too, and keeps its time.
    for (FileState stale : resultsOf(request.places.creator, m_wadName)) {
        stale.file = m_wadsFolder / stale.file.filename();
        m_resultsBefore.push_back(std::move(stale));
    }
    std::error_code ignored;
    fs::remove(m_output, ignored);
    Result<std::unique_ptr<RunningBatch>> running = m_runner.start(m_batchFile, m_output);
    if (!running) {
        removeBatchFile();
        refuse(impossible(request.places.creator), MessageIcon::Critical);
        return false;
    }
    m_running = std::move(*running);
    m_phase = Phase::Waiting;
    m_lastSeen.reset();
    m_lastChange = now;
    m_summary = {};
    m_summaryWasShown = false;
    return true;
}

BilingualText SfxGeneration::waitText() const
{
    const std::string wad = bracketed(m_wadName);
    switch (m_phase) {
    case Phase::Waiting:
        return {"The level editor's tool makes the sound files of " + wad + ". Please wait...",
                "L'outil de l'éditeur de niveaux crée les fichiers de sons de " + wad +
                    ". Veuillez patienter..."};
    case Phase::ConsoleOpen:
        return BilingualText("The level editor's tool is still running for " + wad + ".",
                             "L'outil de l'éditeur de niveaux est encore en cours pour " + wad + ".") +
               keyWanted();
    case Phase::Idle:
        break;
    }
    return {};
}

SfxGeneration::Phase SfxGeneration::poll(Clock::time_point now)
{
    if (m_phase == Phase::Waiting) {
        // The batch file deletes the .sfx file only after it was copied.
        const Result<FileStates> files = filesOf(m_batchFile.parent_path(), ".sfx");
        if ((files && files->empty()) ||
            wantsToStop(files ? *files : m_lastSeen.value_or(FileStates()), now)) {
            m_phase = Phase::ConsoleOpen;
        }
    }
    if (m_phase == Phase::ConsoleOpen && m_running->hasEnded()) {
        end();
    }
    return m_phase;
}

// A console that was closed too early leaves them there for ever.
bool SfxGeneration::wantsToStop(FileStates files, Clock::time_point now)
{
    if (files != m_lastSeen) {
        m_lastSeen = std::move(files);
        m_lastChange = now;
        return false;
    }
    if (now - m_lastChange < (m_running->hasEnded() ? patienceAfterTheEnd : patience)) {
        return false;
    }
    std::string names;
    for (const FileState& state : files) {
        names += "\n" + displayPath(state.file);
    }
    const Question question{
        titles::generate,
        filled(
            {"These files wait to be copied to the WADs, and nothing happens to them. Was the console window "
             "closed too early?{}\nStop waiting?",
             "Ces fichiers attendent d'être copiés dans le répertoire des WADs et rien ne se passe. La fenêtre de "
             "console a-t-elle été fermée trop tôt ?{}\nArrêter d'attendre ?"},
            {names}),
        Buttons::YesNo};
    const bool stops = m_dialogs.ask(question) == Answer::Yes;
    m_lastSeen.reset(); // the patience begins anew, and the time for the answer does not count
    return stops;
}

void SfxGeneration::end()
{
    removeBatchFile();
    m_running.reset();
    m_locks = {};
    m_phase = Phase::Idle;
    const std::string name = shownText(m_wadName);
    if (hasResults()) {
        m_summary = {"The .SAM and .SFX files of [" + name + "] are generated",
                     "Les fichiers .SAM et .SFX de [" + name + "] sont générés"};
        return;
    }
    m_summary = {"No new .SAM and .SFX files of [" + name + "]",
                 "Pas de nouveaux fichiers .SAM et .SFX de [" + name + "]"};
    // Without a console window, nobody has read it.
    const std::string said = lastWords(m_output);
    if (!said.empty()) {
        refuse(m_summary +
               BilingualText("\nThe last words of the tool:", "\nLes derniers mots de l'outil :") + said +
               "\n\n[" + displayPath(m_output) + "]");
        m_summaryWasShown = true;
    }
}

// New files of the WAD, not what was there before.
bool SfxGeneration::hasResults() const
{
    const FileStates results = resultsOf(m_wadsFolder, m_wadName);
    return results.size() == 2 && std::ranges::none_of(results, [this](const FileState& state) {
               return std::ranges::find(m_resultsBefore, state) != m_resultsBefore.end();
           });
}

void SfxGeneration::removeBatchFile() const
{
    std::error_code ignored;
    fs::remove(m_batchFile, ignored);
}

void SfxGeneration::refuse(const BilingualText& text, MessageIcon icon) const
{
    m_dialogs.show({icon, titles::generate, text});
}

Result<SfxGeneration::FileStates> SfxGeneration::filesOf(const fs::path& folder, std::string_view ending)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    FileStates states;
    for (const FolderEntry& entry : *entries) {
        std::error_code error;
        if (!hasEnding(entry.name, ending) || !entry.isFile || system::isHidden(entry.path)) {
            continue;
        }
        const std::uintmax_t size = fs::file_size(entry.path, error);
        const fs::file_time_type modified = fs::last_write_time(entry.path, error);
        if (!error) {
            states.push_back({entry.path, size, modified});
        }
    }
    return states;
}

SfxGeneration::FileStates SfxGeneration::resultsOf(const fs::path& folder, const std::string& wadName)
{
    FileStates results;
    for (const std::string_view ending : {".sam", ".sfx"}) {
        Result<FileStates> files = filesOf(folder, ending);
        for (std::size_t i = 0; files && i < files->size(); ++i) {
            FileState& state = (*files)[i];
            if (sameName(codePagePath(state.file.filename()).bytes, wadName + std::string(ending))) {
                results.push_back(std::move(state));
            }
        }
    }
    return results;
}

} // namespace tavrel
