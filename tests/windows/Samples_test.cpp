// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of a line in the main window, the sample chooser, and the check of a folder.
#include "MainWindow.h"
#include "demo/WavFile.h"
#include "samples/FmCheck.h"
#include "samples/FmSamp.h"
#include "samples/SampleFormat.h"
#include "samples/WaveformView.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

using namespace tavrel;

namespace {

class MainWindowSamplesTest : public MainWindowTest
{
protected:
    MainWindowSamplesTest()
    {
        for (const char* name : {"foot01", "foot02", "foot03", "foot04", "rico_01", "rico_02", "extra"}) {
            writeBytes(samplesFolder / (std::string(name) + ".wav"), wavBytes({.seconds = 0.01}));
        }
        writeBytes(samplesFolder / "wrong.wav", wavBytes({.channels = 2, .seconds = 0.01}));
    }

    QListWidget& samples() { return control<QListWidget>("LiSamp"); }
    void clickSample(int row)
    {
        QTest::mouseClick(samples().viewport(), Qt::LeftButton, {},
                          samples().visualItemRect(samples().item(row)).center());
    }

    std::filesystem::path samplesFolder = folders.levelEditor / "sound" / "Samples";
};

} // namespace

TEST_F(MainWindowSamplesTest, changesReachTheLineAtOnce)
{
    open();
    clickRow(10);
    type("TxSamp", "extra");
    click("CdAddSmp");
    const std::string added = "LARA_RICOCHET:\t\trico_01 rico_02 extra\t\tVOL60\tP V\tCH10\tPIT30\tRAD13\t#g";
    EXPECT_EQ(window->catalogue().currentLine(10), added);
    EXPECT_EQ(samples().currentRow(), 2);
    EXPECT_EQ(control<QLabel>("LbPending").text(), "Modifications not yet applied");

    clickSample(0);
    EXPECT_EQ(text("TxSamp"), "rico_01");
    type("TxSamp", "foot01");
    control("CdRename").setFocus();
    QTest::keyClick(&control("CdRename"), Qt::Key_Space);
    EXPECT_EQ(samples().item(0)->text(), "foot01");
    EXPECT_TRUE(control("CdRename").hasFocus());
    type("TxSamp", "");
    click("CdRename");
    EXPECT_EQ(text("TxSamp"), "foot01") << "an empty name brings the selected one back";

    dialogs.prepareAnswer(Answer::Yes);
    clickSample(1);
    click("CdDelSmp");
    EXPECT_EQ(window->catalogue().currentLine(10),
              "LARA_RICOCHET:\t\tfoot01 extra\t\t\tVOL60\tP V\tCH10\tPIT30\tRAD13\t#g");
    EXPECT_EQ(samples().currentRow(), 0);

    type("TxSamp", "waiting");
    type("TxVOL", "61");
    click("CdValidW");
    EXPECT_EQ(text("TxSamp"), "waiting") << "accepting values leaves the samples alone";

    type("TxSamp", "wrong");
    click("CdAddSmp");
    EXPECT_EQ(dialogs.said().back().kind, "exclamation");
    EXPECT_EQ(text("TxSamp"), "wrong");
    EXPECT_TRUE(control("TxSamp").hasFocus());
    EXPECT_EQ(samples().count(), 2);
    dialogs.prepareAnswer(Answer::Yes);
    window->close();
}

TEST_F(MainWindowSamplesTest, playsTheSelectedSample)
{
    open();
    clickRow(0);
    clickSample(2);
    click("CdPlay");
    EXPECT_TRUE(samples().hasFocus());
    click("CdPlay2");
    EXPECT_TRUE(sounds().hasFocus());
    const auto& waveform = control<WaveformView>("PbWaveform");
    EXPECT_TRUE(waveform.isPlaying()) << "whoever started it";
    EXPECT_EQ(player.played, (std::vector{samplesFolder / "foot03.wav", samplesFolder / "foot03.wav"}));
    click("CdStopS");
    EXPECT_TRUE(samples().hasFocus());
    click("CdStopS2");
    EXPECT_TRUE(sounds().hasFocus());
    EXPECT_FALSE(waveform.isPlaying());
    EXPECT_EQ(player.stops, 2);
    player.problem = Failure{{"No sound: none", "Pas de son : rien"}};
    click("CdPlay");
    EXPECT_EQ(control<QLabel>("LbInfo").text(), "No sound: none");
    EXPECT_TRUE(dialogs.said().empty()) << "no box where a machine has no sound";
    player.problem.reset();
    click("CdPlay");
    EXPECT_EQ(control<QLabel>("LbInfo").text(), "");
    type("TxSamp", "typed");
    clickSample(2);
    EXPECT_EQ(text("TxSamp"), "foot03") << "a click on the selected entry brings its name back";
    samples().clearSelection();
    for (const char* name : {"CdPlay", "CdPlay2", "CdStopS", "CdStopS2", "CdRename"}) {
        EXPECT_FALSE(enabled(name)) << name;
    }
    EXPECT_TRUE(enabled("CdAddSmp"));
}

TEST_F(MainWindowSamplesTest, theChooserFillsTheNameBox)
{
    writeBytes(samplesFolder / "CAPITALS.WAV", wavBytes({.seconds = 0.01}));
    writeBytes(samplesFolder / "extra.wav", wavBytes({.seconds = 5}));
    open();
    whenOpened<FmSamp>([this](FmSamp& chooser) {
        auto& list = *chooser.findChild<QListWidget*>("LiSamp");
        ASSERT_EQ(list.count(), 9);
        auto& ok = *chooser.findChild<QPushButton*>("CdOK");
        EXPECT_EQ(list.currentRow(), 0) << "in the order of names";
        QTest::mouseClick(&ok, Qt::LeftButton);
        EXPECT_TRUE(chooser.isVisible());
        EXPECT_EQ(dialogs.said().back().text,
                  BilingualText("Select a .wav file", "Sélectionnez un fichier .wav"));
        list.setCurrentRow(1);
        QTest::mouseClick(chooser.findChild<QPushButton*>("CdPlay"), Qt::LeftButton);
        EXPECT_EQ(player.played.back(), samplesFolder / "extra.wav");
        QApplication::setActiveWindow(&chooser);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Space);
        EXPECT_EQ(player.stops, 1) << "Space stops what plays";
        QTest::mouseClick(chooser.findChild<QPushButton*>("CdCopyList"), Qt::LeftButton);
        EXPECT_TRUE(QApplication::clipboard()->text().startsWith("CAPITALS.WAV\nextra.wav\nfoot01.wav\n"));
        const auto& facts = *chooser.findChild<QLabel*>("LbFacts");
        EXPECT_TRUE(QTest::qWaitFor([&] { return facts.text().startsWith("WAV, PCM, 22050 Hz"); }));
        QTest::mouseClick(&ok, Qt::LeftButton);
    });
    click("CdChSamp");
    EXPECT_EQ(text("TxSamp"), "extra");
    EXPECT_FALSE(window->session().pending()) << "a chosen name is not yet added";
}

TEST_F(MainWindowSamplesTest, theCheckOpensOnTheSamplesFolder)
{
    open();
    whenOpened<FmCheck>([this](FmCheck& check) {
        EXPECT_EQ(check.findChild<QLabel*>("LbRep")->text().toStdString(), (samplesFolder / "").string());
    });
    click("CdSmpCheck");
}

namespace {

class FmCheckTest : public testing::Test
{
protected:
    FmCheckTest()
    {
        writeBytes(folder / "good.wav", wavBytes({.seconds = 0.01}));
        writeBytes(folder / "stereo.wav", wavBytes({.channels = 2, .seconds = 0.01}));
        writeBytes(folder / "other.txt", "");
    }

    void open(Language language = Language::English)
    {
        SamplesContext context{language, ColourScheme(), folder, dialogs, player};
        context.catalogue = &catalogue;
        context.references = &references;
        context.showSound = [this](std::size_t sound) { shownSound = sound; };
        window = std::make_unique<FmCheck>(nullptr, context);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        QApplication::setActiveWindow(window.get());
    }
    void run(const char* button)
    {
        click(button);
        if (find<QWidget>("PnInfo").isVisible()) { // the first time
            click("ImPlus");
        }
        EXPECT_TRUE(QTest::qWaitFor([this] { return !find<QProgressBar>("PbCheck").isVisible(); }));
    }
    template <typename Control>
    Control& find(const char* name)
    {
        return *window->findChild<Control*>(name);
    }
    void click(const char* name) { QTest::mouseClick(&find<QPushButton>(name), Qt::LeftButton); }
    std::string label(const char* name) { return find<QLabel>(name).text().toStdString(); }
    QListWidget& list() { return find<QListWidget>("LiCheck"); }
    QColor indicationColour() { return find<QLabel>("LbIndic").palette().color(QPalette::WindowText); }

    TemporaryFolder root;
    std::filesystem::path folder = root / "Samples";
    SoundCatalogue catalogue;
    ReferenceRegister references;
    std::optional<std::size_t> shownSound;
    ScriptedDialogs dialogs;
    RecordedPlayer player;
    std::unique_ptr<FmCheck> window;
};

} // namespace

TEST_F(FmCheckTest, saysEverythingInBothLanguages)
{
    writeBytes(folder / "long.wav", wavBytes({.listChunk = true}));
    writeBytes(folder / "another.wav", "");
    struct Case
    {
        const char* button;
        const char* label;
        BilingualText text;
    };
    const Case cases[] = {
        {"CdLook", "LbInfoTitle", {"INFO - CHECK", "INFO - CONTROLER"}},
        {"CdLook",
         "LbInfoText",
         {"This tool checks if all the wave files of the selected directory are in the right format. If the list "
          "below is not empty, convert the listed files to the right format Windows PCM 22050hz 16 bits mono w/o "
          "header informations.",
          "Cet outil contôle le format de tous les fichiers wav contenus dans le répertoire sélectionné. Si la liste "
          "ci-dessous n'est pas vide, convertissez chaque fichier listé au bon format Windows PCM 22050hz 16 bits "
          "mono sans informations d'en-tête."}},
        {"CdLook",
         "LbCheckL",
         {"List of wrong samples        ----------- ANOMALIES -----------",
          "Liste des mauvais samples    ----------- ANOMALIES ------------"}},
        {"CdLook",
         "LbCheckL2",
         {"File name                    Mono     PCM      22050Khz Header",
          "Nom fichier                  Mono     PCM      22050Khz En-tête"}},
        {"CdLook", "LbIndic", {"3 file(s) found", "3 fichier(s) trouvé(s)"}},
        {"CdLook",
         "LbTip1",
         {"Run NG_CENTER v1.2.2.7, go to [Tools3] panel, then click on [Audio converter] button to convert each wrong "
          "sample",
          "Lancez NG_CENTER v1.2.2.7, allez sur [Tools3] puis cliquez sur [Audio converter] pour convertir chaque "
          "sample"}},
        {"CdLireSmp", "LbInfoTitle", {"INFO - VISUALIZE", "INFO - VISUALISER"}},
        {"CdLireSmp",
         "LbInfoText",
         {"This function simply lists all the samples contained in the selected directory. You can play each sample by "
          "clicking on it, then 'play'. Press 'down'/'up' key to go to the next/previous sample.",
          "Cette fonction liste simplement les samples contenus dans le répertoire sélectionné. Vous pouvez jouer "
          "chaque sample en cliquant dessus puis sur 'Jouer'. Appuyer sur les flèches 'bas'/'haut' pour passer au "
          "sample suivant/précédent."}},
        {"CdLireSmp", "LbCheckL", BilingualText::same("                          S A M P L E S")},
        {"CdLireSmp", "LbCheckL2", {"File name", "Nom du fichier"}},
        {"CdLireSmp", "LbIndic", {"4 file(s) listed", "4 fichier(s) listé(s)"}},
    };
    for (const Language language : {Language::English, Language::French}) {
        open(language);
        const char* done = "";
        for (const Case& c : cases) {
            SCOPED_TRACE(c.text.in(language));
            if (std::string(done) != c.button) {
                run(c.button);
                done = c.button;
            }
            EXPECT_EQ(label(c.label), c.text.in(language));
        }
        EXPECT_EQ(indicationColour(), QColor(64, 64, 64)) << "grey again after a failed check";
        EXPECT_FALSE(find<QLabel>("LbTip1").isVisible());
    }
}

TEST_F(FmCheckTest, listsWrongFilesByName)
{
    writeBytes(folder / "long.wav", wavBytes({.listChunk = true}));
    writeBytes(folder / "another.wav", "");
    open();
    run("CdLook");
    ASSERT_EQ(list().count(), 3);
    int row = 0;
    for (const char* name : {"another.wav", "long.wav", "stereo.wav"}) {
        EXPECT_EQ(list().item(row++)->text().toStdString(),
                  anomalyRow(name, CheckSampleFormatDetailed(folder / name), Language::English));
    }
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(label("LbLookedAt"), "4 files checked");
    EXPECT_EQ(indicationColour(), QColor(192, 0, 0));
    EXPECT_TRUE(find<QLabel>("LbTip1").isVisible());
    for (const char* name : {"stereo", "long", "another"}) {
        std::filesystem::remove(folder / (std::string(name) + ".wav"));
    }
    run("CdLook");
    EXPECT_EQ(label("LbIndic"), "No problem found");
    EXPECT_EQ(indicationColour(), QColor(64, 64, 64));
    EXPECT_FALSE(find<QLabel>("LbTip1").isVisible());
    EXPECT_EQ(list().count(), 0);
}

TEST_F(FmCheckTest, visualizesAndPlaysByKeys)
{
    open(Language::French);
    run("CdLireSmp");
    EXPECT_EQ(list().currentRow(), 0);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Space);
    ASSERT_EQ(player.played.size(), 1U);
    EXPECT_EQ(player.played[0].filename().string(), list().item(1)->text().toStdString());
    click("CdStopS");
    EXPECT_EQ(player.stops, 1);
    click("CdLook");
    EXPECT_FALSE(find<QPushButton>("CdPlay").isEnabled()) << "another list is about to come";
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_EQ(player.played.size(), 1U);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualItemRect(list().item(1)).center());
    EXPECT_TRUE(find<QPushButton>("CdPlay").isEnabled());

    std::filesystem::remove(player.played[0]);
    click("CdPlay");
    EXPECT_EQ(dialogs.said().back().title.french, "Jouer");
}

TEST_F(FmCheckTest, worksOnTheFolderOfAnyChosenName)
{
    open();
    writeBytes(folder / "sub" / "only.wav", wavBytes({.seconds = 0.01}));
    dialogs.prepareFile(folder / "sub" / "temp");
    click("CdChSamp");
    EXPECT_EQ(dialogs.fileQuestions()[0].proposedName, "temp");
    EXPECT_FALSE(dialogs.fileQuestions()[0].fileMustExist);
    EXPECT_EQ(label("LbRep"), (folder / "sub" / "").string());
    run("CdLireSmp");
    EXPECT_EQ(label("LbIndic"), "1 file(s) listed");

    std::filesystem::remove_all(folder / "sub");
    run("CdLook");
    EXPECT_EQ(dialogs.said().back().kind, "exclamation");
}

TEST_F(FmCheckTest, aLongCheckListensAndCanBeCancelled)
{
    for (int i = 0; i < 3000; ++i) {
        writeBytes(folder / (std::to_string(i) + ".wav"), "");
    }
    open();
    // Comes to its turn between two slices of the check.
    const auto meanwhile = [this](const std::function<void()>& start, const std::function<void()>& act) {
        bool acted = false;
        QTimer::singleShot(0, window.get(), [&] {
            EXPECT_TRUE(find<QProgressBar>("PbCheck").isVisible());
            EXPECT_FALSE(find<QPushButton>("CdLireSmp").isEnabled());
            EXPECT_NE(QApplication::overrideCursor(), nullptr);
            act();
            acted = true;
        });
        start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return acted; }));
        EXPECT_LT(list().count(), 3001);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    };
    click("CdLook");
    meanwhile([this] { click("ImPlus"); }, [this] { click("CdCancelCheck"); });
    EXPECT_TRUE(label("LbIndic").starts_with("Check not finished - ")) << label("LbIndic");
    EXPECT_TRUE(find<QPushButton>("CdLireSmp").isEnabled());
    meanwhile([this] { click("CdLook"); }, [this] { window->close(); });
    EXPECT_FALSE(window->isVisible()) << "a close ends the check first";
}

TEST_F(FmCheckTest, repairsAllOrTheSelectedAndPutsOriginalsBack)
{
    writeBytes(folder / "eight.wav", wavBytes({.bitsPerSample = 8, .seconds = 0.01}));
    writeBytes(folder / "text.wav", "no sound");
    open();
    run("CdLook");
    const auto work = [this](const char* button, Answer answer, Answer toTheReport) {
        const std::size_t before = dialogs.said().size();
        dialogs.prepareAnswer(answer);
        dialogs.prepareAnswer(toTheReport);
        click(button);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialogs.said().size() == before + 2; }));
        EXPECT_EQ(dialogs.said().back().otherChoice, BilingualText("Copy", "Copier"));
        return dialogs.said()[before];
    };
    const ScriptedDialogs::Said all = work("CdRepair", Answer::Other, Answer::Other);
    EXPECT_TRUE(all.text.english.starts_with("Convert 1 sample to the right format?\n"));
    EXPECT_EQ(all.otherChoice, BilingualText("All 2 wrong ones", "Tous les mauvais (2)"));
    EXPECT_EQ(label("LbIndic"), "1 sample repaired, 1 not");
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("1 sample repaired, 1 not\nThe originals"));
    EXPECT_TRUE(CheckSampleFormat(folder, "stereo"));
    EXPECT_EQ(list().item(0)->text().trimmed(), "stereo") << "the row stays, without marks";
    EXPECT_EQ(readBytes(folder / "eight.wav"), wavBytes({.bitsPerSample = 8, .seconds = 0.01}))
        << "all are all wrong ones";

    list().setCurrentRow(0);
    work("CdPutBack", Answer::Yes, Answer::Ok);
    EXPECT_EQ(readBytes(folder / "stereo.wav"), wavBytes({.channels = 2, .seconds = 0.01}));
    EXPECT_FALSE(std::filesystem::exists(root / "Samples_originals"));
    click("CdPutBack");
    EXPECT_EQ(dialogs.said().back().kind, "information") << "nothing is kept any more";

    run("CdLireSmp");
    list().setCurrentRow(0);
    work("CdRepair", Answer::Yes, Answer::Ok);
    EXPECT_EQ(readBytes(folder / "eight.wav").size(), 44U + 2 * 220) << "a selected one becomes 16-bit";
    dialogs.prepareAnswer(Answer::No);
    click("CdRepair");
    EXPECT_EQ(readBytes(root / "Samples_originals" / "eight.wav").size(), 44U + 220);
}

TEST_F(FmCheckTest, tellsAboutTheSelectedSample)
{
    catalogue.append("OTHER:\t\tgood\t\tVOL60\t\t\t\t\t#g", "", 1);
    catalogue.append("BELL:\t\t\tSTEREO x\t\tVOL60\t\t\t\t\t#oa", "", 2);
    writeBytes(folder / "text.wav", "no sound");
    open(Language::French);
    run("CdLook");
    const auto facts = [this](const std::string& wanted) {
        return QTest::qWaitFor([&] { return label("LbFacts").find(wanted) != std::string::npos; });
    };
    EXPECT_TRUE(facts("WAV, PCM, 22050 Hz, stéréo, 16 bits, 0,01 s")) << label("LbFacts");
    EXPECT_NE(label("LbUsers").find("Utilisé par 1 BELL (#oa"), std::string::npos) << label("LbUsers");
    EXPECT_EQ(label("LbUsers").find("OTHER"), std::string::npos);
    list().setCurrentRow(1);
    EXPECT_TRUE(facts("n'est pas un son")) << label("LbFacts");
    EXPECT_EQ(label("LbUsers"), "Aucun son ne l'utilise.");
    EXPECT_FALSE(find<QPushButton>("CdGoToSound").isEnabled());
    list().setCurrentRow(0);
    click("CdGoToSound");
    EXPECT_EQ(shownSound, 1U);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FmCheckTest, copiesTheListOrTheSelectedRows)
{
    open();
    run("CdLireSmp");
    click("CdCopyList");
    EXPECT_EQ(QApplication::clipboard()->text(), "good.wav\nstereo.wav");
    list().setCurrentRow(1);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "stereo.wav");
}

TEST(WaveformView, showsAndPlaysItsFile)
{
    const TemporaryFolder folder;
    writeBytes(folder / "short.wav", wavBytes({.seconds = 0.1}));
    writeBytes(folder / "long.wav",
               wavBytes({.seconds = 0}).replace(40, 4, 4, '\xFF')); // as long as the file
    std::filesystem::resize_file(folder / "long.wav", 600 * 22050 * 2);
    writeBytes(folder / "text.wav", "no sound");
    RecordedPlayer player;
    const auto cache = std::make_shared<WaveformCache>();
    WaveformView view("PbWave", player, cache);
    view.resize(200, 64);
    view.show();
    const auto isEmpty = [&view] {
        const QImage picture = view.grab().toImage();
        const QRgb ground = picture.pixel(0, 0);
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, picture.height() / 2) != ground) {
                return false;
            }
        }
        return true;
    };
    QElapsedTimer clock;
    clock.start();
    view.showFile(folder / "long.wav");
    EXPECT_LT(clock.elapsed(), 100);
    EXPECT_TRUE(isEmpty());
    view.showFile(folder / "short.wav"); // the long one is given up
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.isReadable(); }));
    EXPECT_FALSE(isEmpty());
    EXPECT_NE(cache->get(folder / "short.wav"), nullptr) << "kept";

    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(player.played.back(), folder / "short.wav");
    EXPECT_TRUE(view.isPlaying());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isPlaying(); })) << "the line ends with the sound";
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(player.stops, 1);

    view.showFile(folder / "text.wav");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.facts().empty(); }));
    EXPECT_FALSE(view.isReadable());
    view.showFile({});
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(player.played.size(), 2U) << "nothing to play";
    writeBytes(folder / "short.wav", wavBytes({.seconds = 0.2}));
    EXPECT_EQ(cache->get(folder / "short.wav"), nullptr) << "read again when it has changed";
}

TEST_F(MainWindowSamplesTest, SoundFilesComeInByTheButtonAndByDroppingThem)
{
    const std::filesystem::path chosen = folders.root / "Le vent.wav";
    const std::filesystem::path dropped = folders.root / "rain.wav";
    for (const std::filesystem::path& file : {chosen, dropped}) {
        writeBytes(file, wavBytes({.channels = 2, .sampleRate = 44100}));
    }
    open();
    clickRow(1);
    dialogs.prepareFile(chosen);
    dialogs.prepareFile(samplesFolder / "wind.wav"); // the name of the sample
    click("CdAddFile");
    auto& list = control<QListWidget>("LiSamp");
    EXPECT_EQ(list.currentItem()->text(), "wind");
    EXPECT_TRUE(CheckSampleFormatDetailed(samplesFolder / "wind.wav").valid());

    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QString::fromStdString(dropped.string()))});
    QDragEnterEvent enter(QPoint(600, 300), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(600, 300), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    dialogs.prepareFile(samplesFolder / "rain.wav");
    QApplication::sendEvent(window.get(), &drop);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.currentItem()->text(), "rain");
    EXPECT_TRUE(CheckSampleFormatDetailed(samplesFolder / "rain.wav").valid());

    window->session().undo();
    EXPECT_EQ(list.count(), 2) << "one step each";
    EXPECT_TRUE(std::filesystem::exists(samplesFolder / "rain.wav")) << "files are no part of it";

    QMimeData text;
    text.setText("no file");
    QDragEnterEvent other(QPoint(600, 300), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    other.ignore();
    QApplication::sendEvent(window.get(), &other);
    EXPECT_FALSE(other.isAccepted());
}
