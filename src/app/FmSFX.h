// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BatchRunner.h"
#include "base/Dialogs.h"
#include "base/Programs.h"
#include "generation/SfxGeneration.h"
#include "references/WadLists.h"
#include "samples/SamplePlayer.h"
#include "samples/SamplesContext.h"
#include "session/Selection.h"
#include "session/Session.h"
#include "session/StartUp.h"
#include "ui/TitledWindow.h"
#include "versions/VersionsContext.h"

#include <QPointer>
#include <QTimer>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QKeySequence;

namespace tavrel {

struct ExchangeContext;
class CheckWatch;
class FmChecks;
class FmLevels;
class WaveformCache;
class FoldingPanel;
class FunctionPanels;
class LineLettersPanel;
class LineTextPanel;
class MainPanel;
class SamplesPanel;
class SoundListPanel;
class StatusProgress;
class StatusRow;
class TitleButtons;
class ValuesPanel;
class WadPanel;
class WindowButtons;

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

// The main window: a frame around its panels. It lays them out, owns the shortcuts, and opens the other
// windows.
class FmSFX : public TitledWindow, private SessionObserver, private WindowMemory
{
    Q_OBJECT

public:
    FmSFX(FmSFXContext context, const StartedSession& started);
    FmSFX(const FmSFX&) = delete;
    FmSFX& operator=(const FmSFX&) = delete;
    ~FmSFX() override;

    // Reads the catalogue and its register, and selects the first sound.
    void load();

    Session& session() { return m_session; }
    const SoundCatalogue& catalogue() const { return m_session.catalogue(); }
    const ProgramSettings& settings() const { return m_session.settings(); }

    // What an earlier window had not applied, once it has loaded; and whether another has the same file open.
    void offerRecovery();

    // Lets the user choose what to put back as it was installed, over the window that offers it.
    void openRestore(QWidget* parent);
    // When that window has closed: a restored sounds.txt is not the one that was loaded.
    // False when the user declines.
    bool reloadIfReplaced();

    // The system is about to end the program, and may still change its mind: what could not be recovered is
    // kept.
    void keepValues();
    // It does end it: no questions, and all that is not applied stays to be recovered.
    void closeForSystem();

protected:
    void reject() override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool nativeEvent(const QByteArray& eventType, void* message, qintptr* result) override;
    HelpTopic helpTopic() const override;
    void showHelp(const HelpTopic& topic) override;
    WindowMemory* memory() override { return this; }

private:
    // WindowMemory
    std::optional<QSize> sizeOf(const QString& window) const override;
    void keepSize(const QString& window, QSize size) override;

    // SessionObserver
    void reloaded() override;
    void linesChanged(const std::vector<std::size_t>& /*numbers*/) override { refreshTools(); }
    void linesMoved() override { refreshTools(); }
    void registerChanged() override { refreshTools(); }
    void wadChanged() override;
    void historyChanged() override;

    void makePanels();
    void layOut();
    void addShortcuts();
    void connectPanels();
    void orderTabs();
    void acceptAndGoOn();
    // F6, from one panel to the next.
    void goToPanel(int step);
    std::vector<QWidget*> panelsInOrder() const;
    void addShortcut(const QKeySequence& keys, std::function<void()> command);
    void showLanguage();
    void showTitle();
    void showPanels();
    void say(const BilingualText& text);
    void refreshTools();

    // Files (FmSFXFiles.cpp)
    bool loadSession(const std::optional<LevelEditorChoice>& editor);
    void tellRegisterNotices();
    bool reload();
    std::string chooseOtherLevelEditor();
    bool mayLoadOther();
    void editSounds();
    void viewSounds();
    void editInNotepad();
    bool mayClose();
    bool mayCloseWithoutRegister();
    void saveSettings(const Title& title);
    void goWhereItWas();
    void rememberPlace();

    // Findings (FmSFXChecks.cpp)
    void openChecks();
    void openLevels();
    bool readOtherwise(std::vector<LineReadOtherwise> lines);
    void tellFileErrors();
    bool acceptsErrors(const CurrentWad& wad);
    void showMarks();

    // Other windows (FmSFXWindows.cpp)
    // With a letter for a new reference.
    void openRegister(const std::string& letter = {});
    void chooseObject();
    std::optional<std::string> chooseSample();
    void checkSamplesFolder();
    void offerSamplesCheck();
    SamplesContext samplesContext();
    void goTo(std::size_t sound);
    void importList(WadListKind kind);
    void showUnknownSamples(const std::vector<std::string>& names);
    void viewWadLists();
    void openExport();
    void openImport();
    ExchangeContext exchangeContext();
    void openStatistics();
    void openPreferences();
    void followProtectedOption(bool reloadDeclined);
    void switchLanguage(Language language);
    void openColours(QWidget& parent);
    void paintColours(const ColourPair& pair);
    void openDoubles(QWidget& parent);
    VersionsContext versionsContext();
    bool changeLines(std::vector<SoundCatalogue::LineChange> changes, const BilingualText& label);
    void reviewChanges();
    void showChanges();
    void compareWith();
    bool compareWithFile(const std::filesystem::path& file);
    void openVersions();

    // Recovery (FmSFXRecovery.cpp)
    void recoverDiscarded();
    void bringBack(const FoundRecovery& found);
    void discard(const FoundRecovery& found, bool isOfFile);

    // Generation (FmSFXGenerate.cpp)
    void generate();
    void lookForResults();

    FmSFXContext m_context;
    bool m_settingsDamaged;
    Session m_session;
    Selection m_selection;
    SfxGeneration m_generation;
    QTimer m_results;                       // TmSFX
    std::unique_ptr<StatusProgress> m_busy; // a command that must not be left is under way
    bool m_saidUnrecoverable = false;
    bool m_systemEnds = false;

    // Owned by the window.
    StatusRow* m_status;
    TitleButtons* m_titleButtons = nullptr;
    WindowButtons* m_windowButtons = nullptr;
    FunctionPanels* m_functions = nullptr;
    SoundListPanel* m_sounds = nullptr;
    ValuesPanel* m_values = nullptr;
    SamplesPanel* m_samples = nullptr;
    LineLettersPanel* m_letters = nullptr;
    WadPanel* m_wads = nullptr;
    LineTextPanel* m_texts = nullptr;
    std::vector<MainPanel*> m_panels;
    std::unique_ptr<CheckWatch> m_watch;
    QPointer<FmChecks> m_checks; // while they are open
    QPointer<FmLevels> m_levels;
    std::shared_ptr<WaveformCache> m_waveforms;
    std::array<FoldingPanel*, panelCount> m_folding{};
};

} // namespace tavrel
