#include "app/CVAppDelegate.h"
#include "app/CVCheckCommand.h"
#include "app/CVCommandLine.h"
#include "shared/base/CVBundle.h"
#include "shared/base/QBUserDefaults.h"
#include "shared/widgets/CVAccessibleComboBox.h"
#include "shared/widgets/CVAlertPanel.h"
#include "shared/widgets/CVFileDialogs.h"
#include "storage/CVStandardDataFile.h"

#include <QApplication>
#include <QSettings>
#include <QTextStream>

namespace {

constexpr int kUsageError = 2;

void nameApplication() {
    const auto version = CVBundle::version();
    QCoreApplication::setOrganizationName(QString::fromLatin1(CVBundle::kOrganization));
    QCoreApplication::setApplicationName(QString::fromLatin1(CVBundle::kName));
    QCoreApplication::setApplicationVersion(QString::fromUtf8(version.data(), static_cast<qsizetype>(version.size())));
}

int refuse(QTextStream& errors, const QString& problem) {
    errors << "corvella: " << problem << '\n' << CVCommandLine::usage() << Qt::flush;
    return kUsageError;
}

int runWithoutWindow(const CVCommandLine& line) {
    QTextStream output(stdout);
    QTextStream errors(stderr);
    switch (line.action) {
    case CVCommandLine::Action::ShowVersion:
        output << CVBundle::kName << ' ' << QCoreApplication::applicationVersion() << Qt::endl;
        return 0;
    case CVCommandLine::Action::ShowHelp:
        output << CVCommandLine::usage() << Qt::flush;
        return 0;
    case CVCommandLine::Action::Check:
        return CVRunCheck(line.dataFile, output, errors);
    case CVCommandLine::Action::Export:
        return CVRunExport(line.exportRequest, errors);
    default:
        return refuse(errors, line.problem);
    }
}

int runWindow(int& argc, char** argv) {
    QApplication application(argc, argv);
    // What the toolkit has not taken for itself is a file, say, that a file manager wants opened.
    if (QCoreApplication::arguments().size() > 1) {
        QTextStream errors(stderr);
        return refuse(
            errors, QCoreApplication::translate("main", "\"%1\" is not opened: Corvella opens your own data file only")
                        .arg(QCoreApplication::arguments().at(1)));
    }
    CVAccessibleComboBox::install();
    CVAlertPanel alerts;
    CVFileDialogs panels;
    CVAppDelegate delegate(QBUserDefaults::standardStore(), CVStandardFolders::ofUser(), alerts, panels);
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    nameApplication();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CVCommandLine line = CVCommandLine::parse(arguments);
    if (line.action == CVCommandLine::Action::OpenWindow)
        return runWindow(argc, argv);
    const QCoreApplication application(argc, argv);
    return runWithoutWindow(line);
}
