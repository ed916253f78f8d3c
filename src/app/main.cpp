// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmLanguage.h"
#include "app/FmSFX.h"
#include "app/HelpWindow.h"
#include "samples/SystemPlayer.h"
#include "session/StartUp.h"
#include "settings/ProgramFolder.h"
#include "ui/Icons.h"
#include "ui/Motion.h"
#include "ui/QtDialogs.h"
#include "ui/QtPrograms.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QTranslator>

namespace {

namespace fs = std::filesystem;

// The texts that Qt brings itself: file dialogs, the menus of text boxes.
void installTranslation(QTranslator& translator, tavrel::Language language)
{
    QCoreApplication::removeTranslator(&translator);
    if (language != tavrel::Language::French) {
        return;
    }
    for (const QString& folder :
         {QLibraryInfo::path(QLibraryInfo::TranslationsPath), QString(":/translations")}) {
        if (translator.load("qtbase_fr", folder)) {
            QCoreApplication::installTranslator(&translator);
            return;
        }
    }
}

fs::path programFolderFrom(const QCommandLineParser& parser, const QCommandLineOption& option)
{
    return parser.isSet(option) ? fs::absolute(parser.value(option).toStdU16String())
                                : tavrel::usualProgramFolder(tavrel::programPlaces());
}

std::optional<tavrel::Language> askForLanguage(const fs::path& programFolder)
{
    tavrel::FmLanguage window(
        [&programFolder](QWidget& parent, const tavrel::HelpTopic& topic, tavrel::Language language) {
            tavrel::showHelpWindow(&parent, programFolder, {}, language, topic);
        });
    return window.exec() == QDialog::Accepted ? std::optional(window.language()) : std::nullopt;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("Tavrel");
    QCoreApplication::setApplicationVersion(TAVREL_VERSION);
    QGuiApplication::setDesktopFileName("tavrel");
    QApplication::setWindowIcon(tavrel::programIcon());
    tavrel::applyTheme(application);

    QCommandLineParser parser;
    const QCommandLineOption programFolderOption(
        "program-folder",
        "Where the settings and working files are; usually the program's own folder, or one of the user's.",
        "dir");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(programFolderOption);
    parser.process(application);
    const fs::path programFolder = programFolderFrom(parser, programFolderOption);

    tavrel::QtDialogs dialogs;
    dialogs.setHelp(
        [&programFolder](QWidget& box, const tavrel::HelpTopic& topic, tavrel::Language language) {
            tavrel::showHelpWindow(&box, programFolder, {}, language, topic);
        });
    tavrel::QtPrograms programs;
    QTranslator translator;
    const auto speak = [&dialogs, &translator](tavrel::Language language) {
        dialogs.setLanguage(language);
        installTranslation(translator, language);
    };
    // Between the windows of the first start there are moments without any.
    QApplication::setQuitOnLastWindowClosed(false);
    const auto session =
        tavrel::startSession({programFolder, dialogs, programs,
                              [&programFolder] { return askForLanguage(programFolder); }, speak});
    if (!session) {
        return EXIT_SUCCESS;
    }
    QApplication::setQuitOnLastWindowClosed(true);

    const std::unique_ptr<tavrel::SamplePlayer> player = tavrel::makeSystemPlayer();
    const std::unique_ptr<tavrel::BatchRunner> batches = tavrel::makeSystemBatchRunner();
    tavrel::FmSFX window(
        {programFolder, dialogs, programs, *player, *batches, tavrel::systemLikesMotion(), speak}, *session);
    window.show();
    if (const auto warning = tavrel::writabilityWarning(window.session().places())) {
        dialogs.show(*warning);
    }
    window.load();
    window.offerRecovery();
    return QApplication::exec();
}
