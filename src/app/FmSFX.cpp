// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmSFX.h"

#include "app/FunctionPanels.h"
#include "app/HelpWindow.h"
#include "app/LineLettersPanel.h"
#include "app/LineTextPanel.h"
#include "app/Mnemonics.h"
#include "app/SamplesPanel.h"
#include "app/SoundListPanel.h"
#include "app/StatusProgress.h"
#include "app/StatusRow.h"
#include "app/TitleButtons.h"
#include "app/ValuesPanel.h"
#include "app/WadPanel.h"
#include "base/Titles.h"
#include "checks/CheckWatch.h"
#include "checks/FmChecks.h"
#include "checks/FmLevels.h"
#include "checks/SessionChecks.h"
#include "samples/WaveformCache.h"
#include "ui/Controls.h"
#include "ui/FoldingPanel.h"
#include "ui/Text.h"
#include "ui/WindowButtons.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr QSize usualSize(1272, 712);
constexpr int functionColumnWidth = 316;
constexpr int widestWads = 480;

std::vector<std::filesystem::path> droppedFiles(const QDropEvent& event)
{
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : event.mimeData()->urls()) {
        const QFileInfo file(url.toLocalFile());
        if (url.isLocalFile() && file.isFile()) {
            files.push_back(std::filesystem::path(file.filePath().toStdU16String()).make_preferred());
        }
    }
    return files;
}

QVBoxLayout* makeColumn()
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(controlGap);
    return column;
}

bool takesTab(const QWidget& control)
{
    return (control.focusPolicy() & Qt::TabFocus) != 0;
}

// Where F6 arrives: in the panel's list, else at its first control that can be used, and at the title of a
// folded panel.
QWidget* homeOf(QWidget& panel)
{
    if (const auto* const folding = qobject_cast<FoldingPanel*>(&panel); folding && !folding->isOpen()) {
        return &folding->title();
    }
    for (QListView* const list : panel.findChildren<QListView*>()) {
        if (list->isVisible() && list->window() == panel.window()) { // a combo box has one, too
            return list;
        }
    }
    for (QWidget* const control : panel.findChildren<QWidget*>()) {
        if (control->isVisible() && control->isEnabled() && takesTab(*control)) {
            return control;
        }
    }
    return panel.findChild<QPlainTextEdit*>("TxModif");
}

} // namespace

FmSFX::FmSFX(FmSFXContext context, const StartedSession& started)
    : m_context(std::move(context)), m_settingsDamaged(started.settingsDamaged),
      m_session(m_context.programFolder, started.settings), m_selection(m_session),
      m_generation(m_context.batches, m_context.dialogs), m_status(new StatusRow(*this)),
      m_watch(std::make_unique<CheckWatch>([this](Progress& progress) {
          return m_session.isLoaded() ? checkSession(m_session, m_session.wad(), progress) : CheckReport();
      })),
      m_waveforms(std::make_shared<WaveformCache>())
{
    setObjectName("FmSFX");
    m_session.addObserver(*this);
    m_session.keepRecoverable();
    makePanels();
    layOut();
    connectPanels();
    orderTabs();
    addShortcuts();
    showPanels();
    paintColours(settings().colours.slots[ColourScheme::mainWindowSlot]);
    showLanguage();
    m_status->showFolder(fromCodePage(settings().LevelEditorFolder));
    m_results.setObjectName("TmSFX");
    m_results.setSingleShot(true);
    m_results.setTimerType(Qt::PreciseTimer); // a coarse one comes too early
    connect(&m_results, &QTimer::timeout, this, &FmSFX::lookForResults);
    connect(m_watch.get(), &CheckWatch::marksChanged, this, &FmSFX::showMarks);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &FmSFX::keepValues);
    setAcceptDrops(true);
    offerMaximising();
    resize(usualSize);
    goWhereItWas();
}

FmSFX::~FmSFX()
{
    m_session.removeObserver(*this);
    for (MainPanel* const panel : m_panels) {
        delete dynamic_cast<QWidget*>(panel); // before the session that they follow
    }
}

void FmSFX::makePanels()
{
    const PanelContext context{m_session, m_selection, m_context.dialogs, m_context.player, *m_status};
    m_titleButtons = new TitleButtons(
        context,
        {[this](Language language) { switchLanguage(language); },
         [this] { showHelp({}); },
         [this] { openPreferences(); },
         [this] { close(); },
         {{"AcReview", titles::reviewChanges, QKeySequence(Qt::CTRL | Qt::Key_D),
           [this] { reviewChanges(); }},
          {"AcChecks", titles::checkProject, QKeySequence(Qt::Key_F7), [this] { openChecks(); }},
          {"AcLevels", titles::levels, {}, [this] { openLevels(); }},
          {"AcCompare", {"Compare with...", "Comparer avec..."}, {}, [this] { compareWith(); }},
          {"AcVersions", {"Earlier versions...", "Versions précédentes..."}, {}, [this] { openVersions(); }},
          {"AcRecover", {"Recover...", "Récupérer..."}, {}, [this] { recoverDiscarded(); }}}});
    m_functions = new FunctionPanels(
        context,
        {[this] { generate(); }, [this](WadListKind kind) { importList(kind); }, [this] { viewWadLists(); },
         [this] { openRegister(); }, [this] { openStatistics(); }, [this] { checkSamplesFolder(); },
         [this] { openImport(); }, [this] { openExport(); }, [this] { editSounds(); },
         [this] { m_sounds->showOrHideGlobals(); }, [this] { showChanges(); },
         [this](const std::filesystem::path& file) { return compareWithFile(file); }});
    m_sounds = new SoundListPanel(context);
    m_values = new ValuesPanel(context);
    m_samples = new SamplesPanel(context, m_waveforms, [this] { return chooseSample(); });
    m_letters = new LineLettersPanel(context);
    m_wads =
        new WadPanel(context, m_context.systemLikesMotion,
                     {[this] { chooseObject(); }, [this] { showHelp(helpOnFirstUse(settings().language)); }});
    m_texts = new LineTextPanel(context);
    m_panels = {m_titleButtons, m_functions, m_sounds, m_values, m_samples, m_letters, m_wads, m_texts};

    for (const Panel which :
         {Panel::WadFunctions, Panel::ProgramFunctions, Panel::Modifications, Panel::EditFunctions}) {
        m_folding[static_cast<std::size_t>(which)] = &m_functions->panel(which);
    }
    m_folding[static_cast<std::size_t>(Panel::Wads)] = m_letters;
    m_folding[static_cast<std::size_t>(Panel::LettersObjects)] = m_wads;
    m_folding[static_cast<std::size_t>(Panel::Samples)] = m_samples;
    m_folding[static_cast<std::size_t>(Panel::Line)] = m_texts;
    for (std::size_t i = 0; i < panelCount; ++i) {
        connect(m_folding[i], &FoldingPanel::openChanged, this,
                [this, i](bool open) { m_session.settings().panels[i] = open; });
    }
}

void FmSFX::layOut()
{
    m_windowButtons = new WindowButtons(*this);
    titleRow().addWidget(m_titleButtons);
    titleRow().addWidget(m_windowButtons);
    m_functions->setFixedWidth(functionColumnWidth);

    auto* const samplesColumn = makeColumn();
    samplesColumn->addWidget(m_values);
    samplesColumn->addWidget(m_samples, 1);
    samplesColumn->addStretch(0);
    auto* const wadsColumn = makeColumn();
    wadsColumn->addWidget(m_letters, 1);
    wadsColumn->addWidget(m_wads);
    wadsColumn->addStretch(0);
    for (QWidget* const panel : std::initializer_list<QWidget*>{m_letters, m_wads}) {
        panel->setMaximumWidth(widestWads); // their texts are short; list and picture of samples are not
    }
    auto* const sound = new QHBoxLayout;
    sound->setSpacing(2 * controlGap);
    sound->addWidget(m_sounds, 3); // only as far as its columns need
    sound->addLayout(samplesColumn, 1);
    sound->addLayout(wadsColumn, 1);
    // The line runs below list and values, for it is long.
    auto* const work = makeColumn();
    work->addLayout(sound, 1);
    work->addWidget(m_texts);

    auto* const columns = new QHBoxLayout;
    columns->setSpacing(2 * controlGap);
    columns->addWidget(m_functions);
    columns->addLayout(work, 1);
    content().setContentsMargins(2 * controlGap, controlGap, 2 * controlGap, controlGap);
    content().setSpacing(controlGap);
    content().addLayout(columns, 1);
    content().addWidget(m_status);
}

void FmSFX::addShortcuts()
{
    addShortcut(QKeySequence(Qt::Key_F3), [this] { m_sounds->search(); });
    addShortcut(QKeySequence::Find, [this] { m_sounds->focusSearch(); });
    addShortcut(QKeySequence::Save, [this] { m_functions->apply(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), [this] { m_sounds->focusFilter(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_G), [this] { m_sounds->askForNumber(); });
    addShortcut(QKeySequence(Qt::ALT | Qt::Key_Down), [this] { m_sounds->goToModified(true); });
    addShortcut(QKeySequence(Qt::ALT | Qt::Key_Up), [this] { m_sounds->goToModified(false); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), [this] { acceptAndGoOn(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Enter), [this] { acceptAndGoOn(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { m_functions->copyValues(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V), [this] { m_functions->pasteValues(); });
    addShortcut(QKeySequence(Qt::Key_F6), [this] { goToPanel(1); });
    addShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), [this] { goToPanel(-1); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { m_titleButtons->quit(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { m_titleButtons->undo(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y), [this] { m_titleButtons->redo(); });
    addShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), [this] { m_titleButtons->redo(); });
    for (QLineEdit* const box : findChildren<QLineEdit*>()) {
        box->installEventFilter(this);
    }
}

// What one panel offers and another does.
void FmSFX::connectPanels()
{
    connect(m_letters, &LineLettersPanel::addWanted, m_wads, &WadPanel::addLetter);
    connect(m_letters, &LineLettersPanel::removeWanted, m_wads, &WadPanel::removeLetter);
    connect(m_sounds, &SoundListPanel::globalsShown, m_functions,
            [this](bool shown) { m_functions->showGlobalsHidden(!shown); });
    connect(m_sounds, &SoundListPanel::copyWanted, m_functions, &FunctionPanels::copyLines);
    connect(m_sounds, &SoundListPanel::pasteWanted, m_functions, &FunctionPanels::pasteLines);
}

std::vector<QWidget*> FmSFX::panelsInOrder() const
{
    return {m_sounds, m_values, m_samples, m_letters, m_wads, m_texts, m_functions, m_titleButtons};
}

// From panel to panel, and only where there is something to do.
void FmSFX::orderTabs()
{
    for (QLineEdit* const box : findChildren<QLineEdit*>()) {
        if (box->isReadOnly()) {
            box->setFocusPolicy(Qt::ClickFocus);
        }
    }
    for (const FoldingPanel* const panel : m_folding) {
        panel->title().setFocusPolicy(Qt::NoFocus);
    }
    for (QPlainTextEdit* const view : m_texts->findChildren<QPlainTextEdit*>()) {
        view->setFocusPolicy(Qt::ClickFocus);
    }
    QWidget* before = nullptr;
    for (QWidget* const panel : panelsInOrder()) {
        for (QWidget* const control : panel->findChildren<QWidget*>()) {
            if (!takesTab(*control) || control->window() != this) {
                continue;
            }
            if (before != nullptr) {
                setTabOrder(before, control);
            }
            before = control;
        }
    }
}

void FmSFX::goToPanel(int step)
{
    const std::vector<QWidget*> panels = panelsInOrder();
    const auto count = static_cast<int>(panels.size());
    const auto here = std::ranges::find_if(
        panels, [this](const QWidget* panel) { return panel->isAncestorOf(focusWidget()); });
    int place = here == panels.end() ? (step > 0 ? -1 : count) : static_cast<int>(here - panels.begin());
    for (int i = 0; i < count; ++i) {
        place = (place + step + count) % count;
        if (QWidget* const control = homeOf(*panels[static_cast<std::size_t>(place)])) {
            control->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

// Lines that nobody edited stay as they are on the way.
void FmSFX::acceptAndGoOn()
{
    if (!m_selection.edited() || m_functions->accept()) {
        m_sounds->goToNext();
    }
}

void FmSFX::addShortcut(const QKeySequence& keys, std::function<void()> command)
{
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, std::move(command));
}

// Sound files that are dropped anywhere become samples of the selected line.

void FmSFX::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFiles(*event).empty() && m_selection.canEditLine()) {
        event->acceptProposedAction();
    }
}

void FmSFX::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The questions come when the other program has its pointer back.
    QTimer::singleShot(0, this, [this, files = droppedFiles(*event)] { m_samples->addFiles(files); });
}

// Undo belongs to a text box as long as that has something to undo.
bool FmSFX::eventFilter(QObject* watched, QEvent* event)
{
    auto* const box = qobject_cast<QLineEdit*>(watched);
    if (box != nullptr && event->type() == QEvent::ShortcutOverride) {
        const auto& keys = static_cast<const QKeyEvent&>(*event);
        if ((keys.matches(QKeySequence::Undo) && !box->isUndoAvailable()) ||
            (keys.matches(QKeySequence::Redo) && !box->isRedoAvailable())) {
            event->ignore();
            return true;
        }
    }
    return TitledWindow::eventFilter(watched, event);
}

void FmSFX::showLanguage()
{
    const Language language = settings().language;
    m_context.languageChanged(language);
    m_status->showLanguage(language);
    m_windowButtons->showLanguage(language);
    for (MainPanel* const panel : m_panels) {
        panel->showLanguage(language);
    }
    if (m_checks) {
        m_checks->setLanguage(language);
    }
    if (m_levels) {
        m_levels->setLanguage(language);
    }
    showMnemonics(*this, language);
    showTitle();
}

void FmSFX::showTitle()
{
    setWindowTitle(inLanguage(titles::mainWindow, settings().language) +
                   fromCodePage(m_session.wad().wadName));
}

void FmSFX::showPanels()
{
    for (std::size_t i = 0; i < panelCount; ++i) {
        m_folding[i]->setOpen(settings().panels[i]);
    }
}

void FmSFX::paintColours(const ColourPair& pair)
{
    for (MainPanel* const panel : m_panels) {
        panel->paintWith(pair);
    }
}

void FmSFX::wadChanged()
{
    showTitle();
    refreshTools();
}

// The windows that stay open beside this one.
void FmSFX::refreshTools()
{
    m_watch->refresh();
    if (m_checks) {
        m_checks->refresh();
    }
    if (m_levels) {
        m_levels->refresh();
    }
}

void FmSFX::say(const BilingualText& text)
{
    m_status->say(text);
}

// Esc closes the secondary windows, never the program.
void FmSFX::reject()
{
    m_sounds->clearFilter();
}

void FmSFX::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        showTitle();
    }
    TitledWindow::changeEvent(event);
}

HelpTopic FmSFX::helpTopic() const
{
    return helpOnKeys(settings().language);
}

void FmSFX::showHelp(const HelpTopic& topic)
{
    showHelpWindow(QApplication::activeWindow(), m_context.programFolder, settings().colours,
                   settings().language, topic);
}

// Following

void FmSFX::reloaded()
{
    m_status->showFolder(fromCodePage(settings().LevelEditorFolder));
    historyChanged();
    showTitle();
    refreshTools();
    m_watch->restart();
}

void FmSFX::historyChanged()
{
    const Problem& problem = m_session.recoveryProblem();
    m_status->showPending(m_session.pending(), problem.has_value());
    if (problem && !std::exchange(m_saidUnrecoverable, true)) {
        // Behind the command that is under way.
        QTimer::singleShot(0, this, [this, text = problem->text] {
            m_context.dialogs.show(
                {MessageIcon::Exclamation, titles::recovery,
                 BilingualText(
                     "The changes that you have not applied cannot be kept for a recovery. You can go "
                     "on working, but apply your changes often.\n",
                     "Les modifications non appliquées ne peuvent pas être conservées pour une "
                     "récupération. Vous pouvez continuer, mais appliquez souvent vos "
                     "modifications.\n") +
                     text});
        });
    }
}

} // namespace tavrel
