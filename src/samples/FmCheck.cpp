// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmCheck.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "samples/SampleList.h"
#include "samples/SampleUsers.h"
#include "samples/WaveformView.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t colourSlot = 2;

// A title line over the list, in the columns of its rows.
QLabel* makeListTitle(const char* name)
{
    auto* const label = named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    label->setFont(fixedPitchFont());
    constexpr int offsetOfRows = 7; // frame and padding of the list's rows
    label->setIndent(offsetOfRows);
    return label;
}

QLabel* makeWrappedText(const char* name)
{
    auto* const label = named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

FmCheck::FmCheck(QWidget* parent, const SamplesContext& context)
    : TitledWindow(parent), m_context(context), m_folder(context.samplesFolder),
      m_folderLabel(makeElidedLabel("LbRep")), m_chooseFolder(makeButton("CdChSamp", Glyph::ChooseFile)),
      m_openFolder(makeButton("CdOpenFolder", Glyph::OpenFile)),
      m_visualize(makeButton("CdLireSmp", Glyph::ShowGlobals)),
      m_checkButton(makeButton("CdLook", Glyph::CheckSamples)), m_infoTitle(makeHeading("LbInfoTitle")),
      m_infoText(makeWrappedText("LbInfoText")), m_proceed(makeButton("ImPlus", Glyph::Proceed)),
      m_infoPanel(makeInfoPanel()), m_title(makeListTitle("LbCheckL")), m_columns(makeListTitle("LbCheckL2")),
      m_list(makeFixedPitchList("LiCheck")), m_indication(makePaperLabel("LbIndic")),
      m_lookedAt(named(new QLabel, "LbLookedAt")), m_progress(named(new QProgressBar, "PbCheck")),
      m_cancelCheck(makeButton("CdCancelCheck", Glyph::Close)), m_tip(makeWrappedText("LbTip1")),
      m_waveform(new WaveformView("PbWave", context.player, waveformsOf(context))),
      m_facts(makeElidedLabel("LbFacts")), m_users(makeElidedLabel("LbUsers")),
      m_soundInfo(makePaperLabel("LbInfo")), m_repair(makeButton("CdRepair", Glyph::Accept)),
      m_putBack(makeButton("CdPutBack", Glyph::RestoreLine)),
      m_copyList(makeButton("CdCopyList", Glyph::CopyLine)),
      m_goToSound(makeButton("CdGoToSound", Glyph::Proceed)), m_play(makeButton("CdPlay", Glyph::Play)),
      m_stop(makeButton("CdStopS", Glyph::Stop)), m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmCheck");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut();
    paintWith(*m_list, m_context.colours.slots[colourSlot]);
    paintWith(*m_waveform, m_context.colours.slots[colourSlot]);
    connectControls();
    connectList();
    showCaptions();
    showFolder();
    selectionChanged();
}

QWidget* FmCheck::makeInfoPanel()
{
    auto* const panel = named(new QWidget, "PnInfo");
    panel->setAutoFillBackground(true);
    QPalette palette = panel->palette();
    palette.setColor(QPalette::Window, theme::panel);
    panel->setPalette(palette);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(controlGap);
    texts->addWidget(m_infoTitle);
    texts->addWidget(m_infoText);
    auto* const row = new QHBoxLayout(panel);
    row->setSpacing(2 * controlGap);
    row->addLayout(texts, 1);
    row->addWidget(m_proceed, 0, Qt::AlignBottom);
    panel->hide();
    return panel;
}

void FmCheck::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_folderLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_progress->setTextVisible(false);
    m_progress->setFixedSize(140, 14);
    auto* const folderRow = rowOf({makeHeading("LbRepTitle"), m_folderLabel, m_chooseFolder, m_openFolder});
    folderRow->setStretch(1, 1);
    auto* const modes = rowOf({m_visualize, m_checkButton});
    modes->addStretch(1);
    auto* const indication = rowOf({m_indication, m_lookedAt, m_progress, m_cancelCheck});
    indication->setStretch(0, 1);
    auto* const changes = rowOf({m_repair, m_putBack, m_copyList, m_goToSound});
    changes->addStretch(1);
    auto* const buttons = rowOf({m_play, m_stop, m_close});
    buttons->insertStretch(2, 1);

    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addLayout(folderRow);
    content().addLayout(modes);
    content().addWidget(m_infoPanel);
    content().addSpacing(controlGap);
    content().addWidget(m_title);
    content().addWidget(m_columns);
    content().addWidget(m_list, 1);
    content().addLayout(indication);
    content().addWidget(m_tip);
    content().addLayout(changes);
    content().addSpacing(controlGap);
    content().addWidget(m_waveform);
    content().addWidget(m_facts);
    content().addWidget(m_users);
    content().addWidget(m_soundInfo);
    content().addLayout(buttons);
    for (QWidget* const hidden :
         std::initializer_list<QWidget*>{m_progress, m_cancelCheck, m_tip, m_soundInfo}) {
        hidden->hide();
    }
    m_goToSound->setVisible(static_cast<bool>(m_context.showSound));
    m_users->setVisible(m_context.catalogue != nullptr);
    resize(720, 720);
}

void FmCheck::connectControls()
{
    connect(m_chooseFolder, &QPushButton::clicked, this, &FmCheck::chooseFolder);
    connect(m_visualize, &QPushButton::clicked, this, [this] { offer(Mode::Visualize); });
    connect(m_checkButton, &QPushButton::clicked, this, [this] { offer(Mode::Check); });
    connect(m_proceed, &QPushButton::clicked, this, &FmCheck::proceed);
    connect(m_cancelCheck, &QPushButton::clicked, this, [this] {
        if (m_run) {
            m_run->cancel();
        } else {
            endCheck(true);
        }
    });
    connect(&m_checkTimer, &QTimer::timeout, this, &FmCheck::checkSome);
    connect(&m_runTimer, &QTimer::timeout, this, &FmCheck::watchRun);
    connect(m_openFolder, &QPushButton::clicked, this, [this] { openFolder(m_folder); });
    connect(m_repair, &QPushButton::clicked, this, &FmCheck::repair);
    connect(m_putBack, &QPushButton::clicked, this, &FmCheck::putBack);
    connect(m_goToSound, &QPushButton::clicked, this, &FmCheck::goToSound);
    connect(m_play, &QPushButton::clicked, this, &FmCheck::play);
    connect(m_stop, &QPushButton::clicked, m_waveform, &WaveformView::stop);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
}

void FmCheck::connectList()
{
    connect(m_list, &QListWidget::itemSelectionChanged, this, &FmCheck::selectionChanged);
    connect(m_list, &QListWidget::currentRowChanged, this, &FmCheck::selectionChanged);
    connect(m_list, &QListWidget::itemClicked, this, &FmCheck::selectionChanged);
    connect(m_list, &QListWidget::itemDoubleClicked, m_play, &QPushButton::click);
    connect(m_copyList, &QPushButton::clicked, this, [this] { copyAllRows(*m_list); });
    connect(m_waveform, &WaveformView::loaded, this, &FmCheck::showFacts);
    connect(m_waveform, &WaveformView::told, this, &FmCheck::tell);
    onSpace(*m_list, [this] { playOrStop(); });
    copySelectionByKey(*m_list);
}

void FmCheck::showCaptions()
{
    const BilingualText chooseDirectory("Choose directory", "Choisir le répertoire");
    const BilingualText playSample("Play Sample", "Jouer le Sample");
    const BilingualText stopSample("Stop Sample", "Stopper le Sample");
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbRepTitle", {"Directory name", "Nom du Répertoire"}, {}},
        {"CdChSamp",
         chooseDirectory,
         {"Open any file of the directory, or leave the name [temp]: only the directory counts",
          "Ouvrez un fichier quelconque du répertoire, ou laissez le nom [temp] : seul le répertoire compte"}},
        {"CdOpenFolder",
         {"Open the folder", "Ouvrir le répertoire"},
         {"Show the directory in the file manager",
          "Montrer le répertoire dans le gestionnaire de fichiers"}},
        {"CdLireSmp",
         {"Visualize", "Visualiser"},
         {"List all samples of the directory", "Lister tous les samples du répertoire"}},
        {"CdLook",
         {"Check'", "Contrôler"},
         {"List the samples in a wrong format", "Lister les samples au mauvais format"}},
        {"ImPlus", {"Proceed", "Lancer"}, {"Proceed", "Lancer"}},
        {"LiCheck",
         {},
         {"Samples; Space plays the selected one and stops it",
          "Samples ; Espace joue celui qui est choisi et l'arrête"}},
        {"CdCancelCheck", {"Cancel", "Annuler"}, {"End the check here", "Arrêter le contrôle ici"}},
        {"LbTip1",
         {"Run NG_CENTER v1.2.2.7, go to [Tools3] panel, then click on [Audio converter] button to convert each "
          "wrong sample",
          "Lancez NG_CENTER v1.2.2.7, allez sur [Tools3] puis cliquez sur [Audio converter] pour convertir "
          "chaque sample"},
         {}},
        {"CdRepair",
         {"Repair", "Réparer"},
         {"Convert the selected samples, or all wrong ones, to the right format; the originals are kept",
          "Convertir les samples choisis, ou tous les mauvais, au bon format ; les originaux sont conservés"}},
        {"CdPutBack",
         {"Put originals back", "Remettre les originaux"},
         {"Bring the originals of the selected samples back", "Ramener les originaux des samples choisis"}},
        {"CdCopyList",
         {"Copy the list", "Copier la liste"},
         {"Copy the list to clipboard", "Copier la liste dans le presse-papiers"}},
        {"CdGoToSound",
         {"Go to the sound", "Aller au son"},
         {"Select the sound that uses the sample", "Sélectionner le son qui utilise le sample"}},
        {"CdPlay", playSample, playSample},
        {"CdStopS", stopSample, stopSample},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    m_waveform->setLanguage(m_context.language);
    setWindowTitle(inLanguage(titles::checkSamples, m_context.language));
}

void FmCheck::showFolder()
{
    m_folderLabel->setText(QString::fromStdString(displayPath(m_folder / "")));
}

void FmCheck::showIndication(const BilingualText& text, bool alarming)
{
    setPaperText(*m_indication, inLanguage(text, m_context.language), alarming);
}

// Only the folder counts: any file in it may be opened, and a new name as well.
void FmCheck::chooseFolder()
{
    const OpenFileQuestion question{titles::selectSamplesFolder,
                                    {"WAV file (*.WAV)", "fichier WAV (*.WAV)"},
                                    {"*.WAV"},
                                    m_folder,
                                    "temp",
                                    false};
    if (const std::optional<std::filesystem::path> file = m_context.dialogs.chooseFile(question)) {
        m_folder = file->parent_path();
        showFolder();
        emptyLists({}, {}); // the rows were another folder's
    }
}

// The first time with an explanation.
void FmCheck::offer(Mode mode)
{
    m_pending = mode;
    if (m_explained.contains(mode)) {
        proceed();
        return;
    }
    m_play->setEnabled(false);
    m_stop->setEnabled(false);
    explain(mode);
}

void FmCheck::explain(Mode mode)
{
    const bool visualizes = mode == Mode::Visualize;
    const BilingualText panelTitle = visualizes ? BilingualText("INFO - VISUALIZE", "INFO - VISUALISER")
                                                : BilingualText("INFO - CHECK", "INFO - CONTROLER");
    const BilingualText description =
        visualizes
            ? BilingualText(
                  "This function simply lists all the samples contained in the selected directory. You can play "
                  "each sample by clicking on it, then 'play'. Press 'down'/'up' key to go to the next/previous "
                  "sample.",
                  "Cette fonction liste simplement les samples contenus dans le répertoire sélectionné. Vous "
                  "pouvez jouer chaque sample en cliquant dessus puis sur 'Jouer'. Appuyer sur les flèches "
                  "'bas'/'haut' pour passer au sample suivant/précédent.")
            : BilingualText(
                  "This tool checks if all the wave files of the selected directory are in the right format. If "
                  "the list below is not empty, convert the listed files to the right format Windows PCM 22050hz "
                  "16 bits mono w/o header informations.",
                  "Cet outil contôle le format de tous les fichiers wav contenus dans le répertoire sélectionné. "
                  "Si la liste ci-dessous n'est pas vide, convertissez chaque fichier listé au bon format Windows "
                  "PCM 22050hz 16 bits mono sans informations d'en-tête.");
    m_infoTitle->setText(inLanguage(panelTitle, m_context.language));
    m_infoText->setText(inLanguage(description, m_context.language));
    m_infoPanel->show();
    m_proceed->setFocus();
}

void FmCheck::proceed()
{
    m_infoPanel->hide();
    const std::optional<Mode> mode = std::exchange(m_pending, std::nullopt);
    if (mode) {
        m_explained.insert(*mode);
    }
    if (mode == Mode::Visualize) {
        visualize();
    } else if (mode == Mode::Check) {
        startCheck();
    }
}

std::optional<std::vector<SampleFile>> FmCheck::listing()
{
    Result<std::vector<SampleFile>> files = listSamples(m_folder);
    if (!files) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::checkSamples, files.failure().text});
        return std::nullopt;
    }
    std::ranges::sort(*files, {},
                      [](const SampleFile& file) { return std::pair(upperCase(file.name), file.name); });
    return std::move(*files);
}

void FmCheck::emptyLists(const BilingualText& title, const BilingualText& columns)
{
    m_title->setText(inLanguage(title, m_context.language));
    m_columns->setText(inLanguage(columns, m_context.language));
    m_list->clear();
    m_files.clear();
    m_tip->hide();
    m_lookedAt->clear();
    tell({});
    showIndication({});
    selectionChanged();
}

void FmCheck::addRow(const std::string& row, const SampleFile& file)
{
    m_files.push_back(file);
    m_list->addItem(fromCodePage(row));
}

void FmCheck::listIsFull()
{
    m_list->setFocus();
    m_list->setCurrentRow(0);
    selectionChanged();
}

void FmCheck::visualize()
{
    emptyLists(BilingualText::same("                          S A M P L E S"),
               {"File name", "Nom du fichier"});
    const std::optional<std::vector<SampleFile>> files = listing();
    if (!files) {
        return;
    }
    m_listed = Mode::Visualize;
    for (const SampleFile& file : *files) {
        addRow(file.name, file);
    }
    showIndication(BilingualText::same(std::to_string(files->size())) +
                   BilingualText(" file(s) listed", " fichier(s) listé(s)"));
    listIsFull();
}

void FmCheck::startCheck()
{
    emptyLists(anomalyTitle(), anomalyColumns());
    std::optional<std::vector<SampleFile>> files = listing();
    if (!files) {
        return;
    }
    m_listed = Mode::Check;
    m_check.emplace(std::move(*files));
    showWork(m_check->count());
    m_checkTimer.start(0);
}

// A slice of the check; between slices the window paints and listens.
void FmCheck::checkSome()
{
    constexpr qint64 sliceMilliseconds = 30;
    QElapsedTimer slice;
    slice.start();
    while (!m_check->finished() && slice.elapsed() < sliceMilliseconds) {
        const SampleFile file = m_check->next();
        const std::string name = utf8FromCodePage(file.name);
        showIndication({"Checking [" + name + "]...", "Contrôle de [" + name + "] en cours..."},
                       !m_files.empty());
        m_indication->repaint();
        showIndication({"Checking : " + name, "Contrôle de : " + name}, !m_files.empty());
        const SampleFormatVerdict verdict = m_check->checkNext();
        if (!verdict.valid()) {
            addRow(checkedRow(file.path, file.name, verdict, m_context.language), file);
        }
    }
    m_progress->setValue(static_cast<int>(m_check->checked()));
    if (m_check->finished()) {
        endCheck(false);
    }
}

void FmCheck::endCheck(bool cancelled)
{
    if (!m_check) {
        return;
    }
    const std::size_t checked = m_check->checked();
    m_checkTimer.stop();
    m_check.reset();
    endWork();
    const BilingualText found = anomalyCount(m_files.size());
    const BilingualText cutShort("Check not finished - ", "Contrôle non terminé - ");
    showIndication(cancelled ? cutShort + found : found, !m_files.empty());
    m_lookedAt->setText(inLanguage(
        counted(checked, {"file checked", "fichier contrôlé"}, {"files checked", "fichiers contrôlés"}),
        m_context.language));
    m_tip->setVisible(!m_files.empty());
    listIsFull();
}

// While files are looked at or changed, nothing else may happen to the list.
void FmCheck::showWork(std::size_t count)
{
    m_progress->setRange(0, static_cast<int>(count));
    m_progress->setValue(0);
    m_progress->show();
    m_cancelCheck->show();
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_chooseFolder, m_visualize, m_checkButton, m_list, m_repair,
                                         m_putBack, m_copyList, m_goToSound}) {
        control->setEnabled(false);
    }
    QApplication::setOverrideCursor(Qt::BusyCursor);
}

void FmCheck::endWork()
{
    QApplication::restoreOverrideCursor();
    m_progress->hide();
    m_cancelCheck->hide();
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_chooseFolder, m_visualize, m_checkButton, m_list}) {
        control->setEnabled(true);
    }
}

const SampleFile* FmCheck::selectedFile() const
{
    const std::vector<int> rows = selectedRows(*m_list);
    if (rows.empty()) {
        return nullptr;
    }
    const bool currentIsSelected = std::ranges::find(rows, m_list->currentRow()) != rows.end();
    const int row = currentIsSelected ? m_list->currentRow() : rows.front();
    return &m_files.at(static_cast<std::size_t>(row));
}

void FmCheck::selectionChanged()
{
    const SampleFile* const file = selectedFile();
    const bool idle = !m_check && !m_run;
    m_play->setEnabled(file != nullptr);
    m_stop->setEnabled(file != nullptr);
    m_repair->setEnabled(idle && m_list->count() > 0);
    m_putBack->setEnabled(idle && file != nullptr);
    m_copyList->setEnabled(idle && m_list->count() > 0);
    const std::filesystem::path path = file != nullptr ? file->path : std::filesystem::path();
    if (path != m_waveform->file()) {
        m_waveform->showFile(path);
    }
    showFacts();
}

void FmCheck::showFacts()
{
    const SampleFile* const file = selectedFile();
    m_facts->setText(inLanguage(m_waveform->facts(), m_context.language).replace('\n', ' '));
    m_goToSound->setEnabled(firstUser().has_value());
    const bool knowsUsers =
        file != nullptr && m_context.catalogue != nullptr && m_context.references != nullptr;
    const BilingualText users =
        knowsUsers ? usersText(*m_context.catalogue, *m_context.references, sampleNameOf(file->name))
                   : BilingualText();
    m_users->setText(inLanguage(users, m_context.language));
}

std::optional<std::size_t> FmCheck::firstUser() const
{
    const SampleFile* const file = selectedFile();
    if (file == nullptr || m_context.catalogue == nullptr) {
        return std::nullopt;
    }
    const std::vector<std::size_t> users = soundsUsing(*m_context.catalogue, sampleNameOf(file->name));
    return users.empty() ? std::nullopt : std::optional(users.front());
}

void FmCheck::goToSound()
{
    if (const std::optional<std::size_t> sound = firstUser()) {
        accept();
        m_context.showSound(*sound);
    }
}

void FmCheck::tell(const BilingualText& text)
{
    setPaperText(*m_soundInfo, inLanguage(text, m_context.language));
    m_soundInfo->setVisible(!text.empty());
}

void FmCheck::play()
{
    const SampleFile* const file = selectedFile();
    if (file == nullptr || !m_play->isEnabled()) {
        return;
    }
    const Problem problem =
        PlaySample(m_context.player, m_folder, sampleNameOf(file->name), m_context.dialogs);
    tell(problem ? problem->text : BilingualText());
}

void FmCheck::playOrStop()
{
    if (m_waveform->isPlaying()) {
        m_waveform->stop();
    } else {
        play();
    }
}

void FmCheck::reject()
{
    if (m_run) {
        m_run->cancel(); // the report comes first
        return;
    }
    endCheck(true);
    TitledWindow::reject();
}

} // namespace tavrel
