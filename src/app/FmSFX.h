// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FmSFXControls.h"
#include "app/ProgramSettings.h"
#include "app/SessionLoading.h"
#include "app/StartUp.h"
#include "base/BatchRunner.h"
#include "base/Dialogs.h"
#include "base/Programs.h"
#include "catalogue/LineEditor.h"
#include "catalogue/LineSearch.h"
#include "catalogue/SoundCatalogue.h"
#include "generation/SfxGeneration.h"
#include "references/LetterList.h"
#include "references/ReferenceRegister.h"
#include "references/WadImport.h"
#include "samples/SampleCommands.h"
#include "samples/SamplesContext.h"
#include "ui/TitledWindow.h"

#include <QTimer>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace tavrel {

class SoundListModel;
struct ExchangeContext;
class StatusProgress;

// What the main window needs from the program around it.
struct FmSFXContext
{
    std::filesystem::path programFolder;
    Dialogs& dialogs;
    Programs& programs;
    SamplePlayer& player;
    BatchRunner& batches;
    bool systemLikesMotion;
    std::function<void(Language)> languageChanged; // for the boxes and whatever else stands outside
};

// The main window: the sound list, the selected line, and the doors to everything else.
class FmSFX : public TitledWindow
{
    Q_OBJECT

public:
    FmSFX(FmSFXContext context, const StartedSession& session);
    FmSFX(const FmSFX&) = delete;
    FmSFX& operator=(const FmSFX&) = delete;
    ~FmSFX() override;

    // Reads the catalogue and its register, and selects the first sound.
    void load();

    const SoundCatalogue& catalogue() const { return m_catalogue; }
    const ProgramSettings& settings() const { return m_settings; }

    // Lets the user choose what to put back as it was installed, over the window that offers it.
    void openRestore(QWidget* parent);
    // When that window has closed: a restored sounds.txt is not the one that was loaded.
    // False when the user declines.
    bool offerReload();

protected:
    void reject() override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showHelp() override;

private:
    void connectControls();
    void connectLineControls();
    void addShortcut(const QKeySequence& keys, QPushButton& button);
    void showLanguage();
    void showTitle();
    void showInfo(const BilingualText& text);

    // Files (FmSFXLoading.cpp)
    CatalogueSources sources(const LevelEditorPaths& paths) const;
    void adopt(LoadedSession loaded);
    void showLoaded();
    bool reload();
    std::string chooseOtherLevelEditor();
    bool mayLoadOther();
    void editSounds();
    void viewSounds();
    void editInNotepad();
    bool mayClose();
    void saveSettings(const BilingualText& title);

    // Options (FmSFXPreferences.cpp)
    void openPreferences();
    void followProtectedOption(bool reloadDeclined);
    void switchLanguage(Language language);
    void showPanels();
    void openColours(QWidget& parent);
    void applyMainColours();
    void paintMainColours(const ColourPair& pair);
    void openDoubles(QWidget& parent);

    void currentRowChanged();
    void leaveForCurrentRow();
    void selectFirstLine();
    void selectLine(std::optional<std::size_t> number);
    void showSelectedLine();
    void sayWhatIsRefused();
    void fillLineTexts();
    void fillValues();
    void fillFlags();
    void fillSamples();
    void fillLetters();
    void refreshLine();
    void enableLineControls(bool enable);
    void showPending();

    // Samples (FmSFXSamples.cpp)
    void connectSampleControls();
    void enableSampleControls();
    void sampleSelected();
    SampleInput sampleInput() const;
    void changeSamples(SampleResult (*command)(LineEditor&, const SampleInput&, Dialogs&));
    void playSample(QWidget& focusAfterwards);
    void stopSample(QWidget& focusAfterwards);
    void chooseSample();
    void checkSamplesFolder();
    SamplesContext samplesContext() const;

    // Letters, references and objects (FmSFXLetters.cpp)
    void connectLetterControls();
    void fillWadChooser();
    void selectWad(const std::string& wadName);
    void showWad();
    void updateReminder();
    void blinkReminder();
    void paintWadPanel(ColourValue text, ColourValue chooser);
    void greyWadPanel();
    void refreshAllLines();
    void rebuildList();
    void addLetter();
    void removeLetter();
    void eraseLetterEverywhere();
    void replaceLetterOfWad();
    void openRegister();
    void chooseObject();
    void eraseObject();
    void showObject();
    void warnAboutObject();

    // Lists of a WAD (FmSFXImport.cpp)
    void connectImportControls();
    void enableImports();
    bool wadHasSavedLines();
    void importList(WadListKind kind);
    void showUnknownSamples(const std::vector<std::string>& names);
    void viewWadLists();

    // Generation, restore, statistics (FmSFXGenerate.cpp)
    void connectGenerationControls();
    void generate();
    void lookForResults();
    void openStatistics();

    // Exchange files and backups (FmSFXExchange.cpp)
    void connectExchangeControls();
    ExchangeContext exchangeContext();
    void exportLines();
    void importLines();

    void valueChanged(ValueBox box);
    void pitchLeft();
    void flagChanged(LineFlag flag, bool on);

    void acceptValues();
    void restoreSelectedLine();
    void apply();
    void copyLine();
    void showOrHideGlobals();
    void search();

    FmSFXContext m_context;
    ProgramSettings m_settings;
    bool m_settingsDamaged;
    LevelEditorPaths m_paths;
    SoundCatalogue m_catalogue;
    ReferenceRegister m_references;
    CurrentWad m_wad;
    std::optional<bool> m_wadHasSavedLines; // nothing when it must be looked up again
    std::string m_justAdded;                // the letter that was put on the selected line last
    std::string m_object; // letters go to all its sounds; empty when single lines are edited
    std::optional<std::size_t> m_warnedLine;
    QTimer m_reminder; // TmWAD
    QTimer m_leaving;  // for questions that wait until a click or key is done with
    QTimer m_refusing;
    bool m_asking = false; // one of them is on the screen
    SfxGeneration m_generation;
    QTimer m_results;                       // TmSFX
    std::unique_ptr<StatusProgress> m_busy; // a command that must not be left is under way
    bool m_catalogueReplaced = false;       // by a restore, since it was loaded
    bool m_loadedEditable = false;          // whether the protected lines were, when it was loaded
    ColourValue m_chooserColour = 0;
    bool m_loaded = false;
    bool m_registerUnsaved = false;
    LineEditor m_editor;
    std::pair<std::optional<std::size_t>, QStringList> m_shownSamples; // of which sound
    std::string m_currentSample;                                       // what the play buttons play
    SoundListModel* m_sounds;
    FmSFXControls m_controls;
    bool m_showGlobals = true;
    bool m_filling = false;   // boxes are filled from a line, not by the user
    bool m_selecting = false; // the selection is put back or moved by the program
    BilingualText m_info;
};

} // namespace tavrel
