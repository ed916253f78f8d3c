// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmCheck.h"

#include "base/CodePage.h"
#include "base/Titles.h"
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
      m_folderLabel(named(new QLabel, "LbRep")), m_chooseFolder(makeButton("CdChSamp", Glyph::ChooseFile)),
      m_visualize(makeButton("CdLireSmp", Glyph::ShowGlobals)),
      m_checkButton(makeButton("CdLook", Glyph::CheckSamples)), m_infoTitle(makeHeading("LbInfoTitle")),
      m_infoText(makeWrappedText("LbInfoText")), m_proceed(makeButton("ImPlus", Glyph::Proceed)),
      m_infoPanel(makeInfoPanel()), m_title(makeListTitle("LbCheckL")), m_columns(makeListTitle("LbCheckL2")),
      m_list(makeFixedPitchList("LiCheck")), m_indication(makePaperLabel("LbIndic")),
      m_progress(named(new QProgressBar, "PbCheck")),
      m_cancelCheck(makeButton("CdCancelCheck", Glyph::Close)), m_tip(makeWrappedText("LbTip1")),
      m_soundInfo(makePaperLabel("LbInfo")), m_play(makeButton("CdPlay", Glyph::Play)),
      m_stop(makeButton("CdStopS", Glyph::Stop)), m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmCheck");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut();
    paintWith(*m_list, m_context.colours.slots[colourSlot]);
    connectControls();
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
    m_folderLabel->setTextFormat(Qt::PlainText);
    m_folderLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setTextVisible(false);
    m_progress->setFixedSize(140, 14);
    auto* const folderRow = rowOf({makeHeading("LbRepTitle"), m_folderLabel, m_chooseFolder});
    folderRow->setStretch(1, 1);
    auto* const modes = rowOf({m_visualize, m_checkButton});
    modes->addStretch(1);
    auto* const indication = rowOf({m_indication, m_progress, m_cancelCheck});
    indication->setStretch(0, 1);
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
    content().addWidget(m_soundInfo);
    content().addLayout(buttons);
    for (QWidget* const hidden :
         std::initializer_list<QWidget*>{m_progress, m_cancelCheck, m_tip, m_soundInfo}) {
        hidden->hide();
    }
    resize(680, 600);
}

void FmCheck::connectControls()
{
    connect(m_chooseFolder, &QPushButton::clicked, this, &FmCheck::chooseFolder);
    connect(m_visualize, &QPushButton::clicked, this, [this] { offer(Mode::Visualize); });
    connect(m_checkButton, &QPushButton::clicked, this, [this] { offer(Mode::Check); });
    connect(m_proceed, &QPushButton::clicked, this, &FmCheck::proceed);
    connect(m_cancelCheck, &QPushButton::clicked, this, [this] { endCheck(true); });
    connect(&m_checkTimer, &QTimer::timeout, this, &FmCheck::checkSome);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &FmCheck::selectionChanged);
    connect(m_list, &QListWidget::itemClicked, this, &FmCheck::selectionChanged);
    connect(m_list, &QListWidget::itemDoubleClicked, m_play, &QPushButton::click);
    connect(m_play, &QPushButton::clicked, this, &FmCheck::play);
    connect(m_stop, &QPushButton::clicked, this, [this] { StopSample(m_context.player); });
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const space = new QShortcut(QKeySequence(Qt::Key_Space), m_list);
    space->setContext(Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, m_play, &QPushButton::click);
}

void FmCheck::showCaptions()
{
    const BilingualText chooseDirectory("Choose directory", "Choisir le répertoire");
    const BilingualText playSample("Play Sample", "Jouer le Sample");
    const BilingualText stopSample("Stop Sample", "Stopper le Sample");
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbRepTitle", {"Directory name", "Nom du Répertoire"}, {}},
        {"CdChSamp", chooseDirectory, chooseDirectory},
        {"CdLireSmp",
         {"Visualize", "Visualiser"},
         {"List all samples of the directory", "Lister tous les samples du répertoire"}},
        {"CdLook",
         {"Check'", "Contrôler"},
         {"List the samples in a wrong format", "Lister les samples au mauvais format"}},
        {"ImPlus", {"Proceed", "Lancer"}, {"Proceed", "Lancer"}},
        {"LiCheck",
         {},
         {"Samples; Space plays the selected one", "Samples ; Espace joue celui qui est choisi"}},
        {"CdCancelCheck", {"Cancel", "Annuler"}, {"End the check here", "Arrêter le contrôle ici"}},
        {"LbTip1",
         {"Run NG_CENTER v1.2.2.7, go to [Tools3] panel, then click on [Audio converter] button to convert each "
          "wrong sample",
          "Lancez NG_CENTER v1.2.2.7, allez sur [Tools3] puis cliquez sur [Audio converter] pour convertir "
          "chaque sample"},
         {}},
        {"CdPlay", playSample, playSample},
        {"CdStopS", stopSample, stopSample},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::checkSamples, m_context.language));
}

void FmCheck::showFolder()
{
    const QString folder = QString::fromStdString(displayPath(m_folder / ""));
    m_folderLabel->setText(folder);
    m_folderLabel->setToolTip(folder);
}

void FmCheck::showIndication(const BilingualText& text, bool alarming)
{
    setPaperText(*m_indication, inLanguage(text, m_context.language), alarming);
}

// Only the folder counts: any file in it may be opened, and a new name as well.
void FmCheck::chooseFolder()
{
    const OpenFileQuestion question{
        titles::selectSamplesFolder, {"WAV file", "fichier WAV"}, {"*.WAV"}, m_folder, "temp", false};
    if (const std::optional<std::filesystem::path> file = m_context.dialogs.chooseFile(question)) {
        m_folder = file->parent_path();
        showFolder();
        emptyLists({}, {}); // the rows were another folder's
    }
}

void FmCheck::offer(Mode mode)
{
    m_pending = mode;
    m_play->setEnabled(false);
    m_stop->setEnabled(false);
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
    return std::move(*files);
}

void FmCheck::emptyLists(const BilingualText& title, const BilingualText& columns)
{
    m_title->setText(inLanguage(title, m_context.language));
    m_columns->setText(inLanguage(columns, m_context.language));
    m_list->clear();
    m_files.clear();
    m_tip->hide();
    showIndication({});
}

void FmCheck::addRow(const std::string& row, const std::string& file)
{
    m_list->addItem(fromCodePage(row));
    m_files.push_back(file);
}

void FmCheck::visualize()
{
    emptyLists(BilingualText::same("                          S A M P L E S"),
               {"File name", "Nom du fichier"});
    const std::optional<std::vector<SampleFile>> files = listing();
    if (!files) {
        return;
    }
    for (const SampleFile& file : *files) {
        addRow(file.name, file.name);
    }
    showIndication(BilingualText::same(std::to_string(files->size())) +
                   BilingualText(" file(s) listed", " fichier(s) listé(s)"));
    m_list->setFocus();
}

void FmCheck::startCheck()
{
    emptyLists(anomalyTitle(), anomalyColumns());
    std::optional<std::vector<SampleFile>> files = listing();
    if (!files) {
        return;
    }
    m_check.emplace(std::move(*files));
    m_progress->setRange(0, static_cast<int>(m_check->count()));
    m_progress->setValue(0);
    m_progress->show();
    m_cancelCheck->show();
    enableModes(false);
    QApplication::setOverrideCursor(Qt::BusyCursor);
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
            addRow(anomalyRow(file.name, verdict, m_context.language), file.name);
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
    m_checkTimer.stop();
    m_check.reset();
    QApplication::restoreOverrideCursor();
    m_progress->hide();
    m_cancelCheck->hide();
    enableModes(true);
    const BilingualText found = anomalyCount(m_files.size());
    const BilingualText cutShort(" - check not finished", " - contrôle non terminé");
    showIndication(cancelled ? found + cutShort : found, !m_files.empty());
    m_tip->setVisible(!m_files.empty());
    m_list->setFocus();
}

void FmCheck::enableModes(bool enable)
{
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_chooseFolder, m_visualize, m_checkButton, m_list}) {
        control->setEnabled(enable);
    }
}

void FmCheck::selectionChanged()
{
    const bool selected = !m_list->selectedItems().empty();
    m_play->setEnabled(selected);
    m_stop->setEnabled(selected);
}

void FmCheck::play()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    if (selected.empty()) {
        return;
    }
    const std::string& file = m_files.at(static_cast<std::size_t>(m_list->row(selected.front())));
    const Problem problem = PlaySample(m_context.player, m_folder, sampleNameOf(file), m_context.dialogs);
    setPaperText(*m_soundInfo, problem ? inLanguage(problem->text, m_context.language) : QString());
    m_soundInfo->setVisible(problem.has_value());
}

void FmCheck::reject()
{
    endCheck(true);
    TitledWindow::reject();
}

} // namespace tavrel
