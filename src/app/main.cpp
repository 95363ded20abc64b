#include "app/CVAppDelegate.h"
#include "app/CVDisplayRefusal.h"
#include "app/CVEnding.h"
#include "base/CVBundle.h"
#include "base/QBUserDefaults.h"
#include "commands/CVCheckCommand.h"
#include "commands/CVCommandLine.h"
#include "commands/CVErrorLine.h"
#include "commands/CVOffscreenApplication.h"
#include "commands/CVSetsCommand.h"
#include "commands/CVStandardStreams.h"
#include "commands/CVToolkitOptions.h"
#include "commands/CVUsageText.h"
#include "commands/CVVersionsCommand.h"
#include "files/CVRuntimeFolder.h"
#include "help/CVHelp.h"
#include "model/CVDocument.h"
#include "start/CVClaimInstance.h"
#include "start/CVRunningInstance.h"
#include "start/CVStartMessages.h"
#include "start/CVTerminationSignals.h"
#include "storage/CVStandardDataFile.h"
#include "widgets/CVAlertPanel.h"
#include "widgets/CVDesktopPrograms.h"
#include "widgets/CVFileDialogs.h"
#include "widgets/CVPlaceholderColour.h"
#include "widgets/fields/CVAccessibleComboBox.h"
#include "workspace/printing/CVCupsQueue.h"
#include "workspace/printing/CVPrintDialogs.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

constexpr int kFailure = 1;
constexpr int kUsageError = 2;
/// The time that a program that is already running has to show itself.
constexpr std::chrono::seconds kPatience(5);

void nameApplication() {
    QCoreApplication::setOrganizationName(QString::fromLatin1(CVBundle::kOrganization));
    QCoreApplication::setApplicationName(QString::fromLatin1(CVBundle::kName));
    QCoreApplication::setApplicationVersion(CVBundle::versionText());
}

int refuse(QTextStream& errors, const QString& problem, const QString& command = {}) {
    CVWriteErrorLine(errors, problem);
    errors << CVUsageText(command) << Qt::flush;
    return kUsageError;
}

/// Drops the toolkit's messages, because the commands promise at most one line on standard error. Fatal ones are still
/// written.
void dropRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg)
        std::fputs(qUtf8Printable(qFormatLogMessage(type, context, message) + u'\n'), stderr);
}

int runWithoutWindow(const CVCommandLine& line) {
    QTextStream errors(stderr);
    switch (line.action) {
    case CVCommandLine::Action::ShowVersion:
        return CVStandardStreams::write(
            (QString::fromLatin1(CVBundle::kName) + u' ' + QCoreApplication::applicationVersion() + u'\n').toUtf8(), {},
            errors);
    case CVCommandLine::Action::ShowHelp:
        return CVStandardStreams::write(CVUsageText(line.command).toUtf8(), {}, errors);
    case CVCommandLine::Action::Check:
        return CVRunCheck(line.dataFile, errors);
    case CVCommandLine::Action::Sets:
        return CVRunSets(line.dataFile, errors);
    case CVCommandLine::Action::Diff:
        return CVRunDiff(line.diffRequest, errors);
    case CVCommandLine::Action::Versions:
        return CVRunVersions(line.dataFile, errors);
    case CVCommandLine::Action::Export:
        return CVRunExport(line.exportRequest, errors);
    case CVCommandLine::Action::Report:
        return CVRunReport(line.reportRequest, errors);
    case CVCommandLine::Action::Import:
        return CVRunImport(line.importRequest, errors);
    default:
        return refuse(errors, line.problem, line.command);
    }
}

QString ownDataFile() {
    const CVStandardFolders folders = CVStandardFolders::ofUser();
    const QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    auto own = CVMissingDataFile(defaults);
    if (!own)
        own = CVFindDataFile(folders, defaults);
    if (!own)
        own = CVPathForSaving(folders, defaults);
    return own.value_or(QString());
}

/// Refuses arguments that are files, which for instance a file manager wants opened, or a misspelt command.
void refuseFiles(const QStringList& files) {
    QTextStream errors(stderr);
    const QString named = u'"' + files.join(QStringLiteral("\", \"")) + u'"';
    const QString refusal =
        files.size() == 1
            ? QCoreApplication::translate("main", "%1 is not opened: Corvella opens your own data file only, \"%2\"")
            : QCoreApplication::translate("main", "%1 are not opened: Corvella opens your own data file only, \"%2\"");
    CVWriteErrorLine(errors, refusal.arg(named, QDir::toNativeSeparators(ownDataFile())));
}

/// `why`, followed by a hint at the commands that need no display.
QString withoutDisplay(const QString& why) {
    return QCoreApplication::translate("main", "%1; the commands that \"corvella --help\" lists need none").arg(why);
}

int refuseWithoutDisplay() {
    QTextStream errors(stderr);
    CVWriteErrorLine(errors,
                     withoutDisplay(QCoreApplication::translate("main", "there is no display to show your budget on")));
    return kFailure;
}

int refuseToRunTwice() {
    QTextStream errors(stderr);
    CVWriteErrorLine(errors, QCoreApplication::translate(
                                 "main", "Corvella is running already and does not answer; your data file is "
                                         "not opened a second time. Try again, or end that one first."));
    return kFailure;
}

int runOnlyWindow(CVRunningInstance& running, CVAlerts& alerts) {
    CVFileDialogs panels;
    CVCupsQueue printQueue;
    CVPrintDialogs printPanels(printQueue);
    CVDesktopPrograms programs(alerts);
    QBUserDefaults defaults(QBUserDefaults::standardStore());
    CVHelp help(QCoreApplication::applicationDirPath(), alerts, defaults, programs);
    CVAppDelegate delegate(QBUserDefaults::standardStore(), CVStandardFolders::ofUser(), alerts, panels);
    const CVTerminationSignals terminations;
    QObject::connect(&running, &CVRunningInstance::showRequested, &delegate, &CVAppDelegate::comeToFront);
    QObject::connect(&terminations, &CVTerminationSignals::received, &delegate.ending(), &CVEnding::endWithoutAsking);
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &delegate.ending(), &CVEnding::keepEverything);
    delegate.setURLOpener(&programs);
    delegate.setHelp(&help);
    delegate.setPrintPanels(&printPanels);
    if (!delegate.applicationDidFinishLaunching())
        return 0;
    const int status = QApplication::exec();
    help.close();
    if (status != 0) {
        QTextStream errors(stderr);
        CVWriteErrorLine(errors, delegate.ending().whatIsNotSaved());
    }
    // What is destroyed here would wait for a disk that does not answer.
    if (!delegate.saves().waitUntilIdle(kPatience)) {
        delegate.document().userDefaults().synchronize();
        std::_Exit(status);
    }
    return status;
}

/// Ends the program when the named display does not answer.
std::unique_ptr<QApplication> connectToDisplay(int& argc, char** argv, bool isRefused) {
    std::optional<CVRuntimeFolder> runtimeFolder(std::in_place);
    const CVDisplayRefusal refusal(isRefused ? QString()
                                             : withoutDisplay(QCoreApplication::translate(
                                                   "main", "the display to show your budget on does not answer")),
                                   isRefused ? kUsageError : kFailure, [&runtimeFolder] { runtimeFolder.reset(); });
    return std::make_unique<QApplication>(argc, argv);
}

int runWindow(int& argc, char** argv, const QStringList& files) {
    const auto application = connectToDisplay(argc, argv, !files.isEmpty());
    CVAlertPanel alerts;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/corvella.png")));
    QGuiApplication::setDesktopFileName(QStringLiteral("corvella"));
    if (!files.isEmpty()) {
        // A user who has double-clicked the file sees no standard error.
        alerts.run(nullptr, CVStartMessages::notOpened(files, ownDataFile()));
        return kUsageError;
    }
    // An argument that is left here is an option of another platform than the one that the toolkit has chosen.
    if (const QStringList rest = QCoreApplication::arguments().mid(1); !rest.isEmpty()) {
        QTextStream errors(stderr);
        return refuse(errors, QCoreApplication::translate("main", "there is no option \"%1\"").arg(rest.constFirst()));
    }
    CVAccessibleComboBox::install();
    const CVPlaceholderColour placeholders(*application);
    CVRunningInstance running(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    switch (CVClaimInstance(running, alerts, kPatience)) {
    case CVRunningInstance::Outcome::First:
        return runOnlyWindow(running, alerts);
    case CVRunningInstance::Outcome::OtherShown:
        return 0;
    case CVRunningInstance::Outcome::OtherSilent:
        break;
    }
    return refuseToRunTwice();
}

} // namespace

int main(int argc, char** argv) {
    CVStandardStreams::openClosedStreams();
    nameApplication();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CVCommandLine line = CVCommandLine::parse(arguments);
    if (line.action == CVCommandLine::Action::OpenWindow) {
        if (!line.files.isEmpty())
            refuseFiles(line.files);
        if (CVToolkitOptions::take(arguments.mid(1)).hasDisplay())
            return runWindow(argc, argv, line.files);
        return line.files.isEmpty() ? refuseWithoutDisplay() : kUsageError;
    }
    qInstallMessageHandler(dropRemarks);
    if (line.action == CVCommandLine::Action::Report && line.reportRequest.needsFonts()) {
        const CVOffscreenApplication application(argc, argv);
        return runWithoutWindow(line);
    }
    const QCoreApplication application(argc, argv);
    return runWithoutWindow(line);
}
