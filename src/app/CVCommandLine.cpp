#include "app/CVCommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVCommandLine", text);
}

CVCommandLine refuse(const QString& problem) {
    return {CVCommandLine::Action::Refuse, std::nullopt, problem};
}

CVCommandLine parseCheck(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption data(QStringLiteral("data"), QString(), QStringLiteral("FILE"));
    parser.addOption(data);
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return refuse(tr("check takes no argument \"%1\"").arg(parser.positionalArguments().constFirst()));
    CVCommandLine line{CVCommandLine::Action::Check, std::nullopt, {}};
    if (parser.isSet(data))
        line.dataFile = parser.value(data);
    if (line.dataFile && line.dataFile->isEmpty())
        return refuse(tr("--data needs the name of a file"));
    return line;
}

} // namespace

CVCommandLine CVCommandLine::parse(const QStringList& arguments) {
    const QStringList rest = arguments.mid(1);
    if (!rest.isEmpty() && rest.constFirst() == QLatin1String("check"))
        return parseCheck(rest);
    if (rest.contains(QLatin1String("--version")) || rest.contains(QLatin1String("-v")))
        return {Action::ShowVersion, std::nullopt, {}};
    if (rest.contains(QLatin1String("--help")) || rest.contains(QLatin1String("-h")))
        return {Action::ShowHelp, std::nullopt, {}};
    return {};
}

QString CVCommandLine::usage() {
    return tr("Usage: corvella                        open your budget\n"
              "       corvella check [--data FILE]    say what a data file holds, without a window\n"
              "       corvella --version | --help\n"
              "\n"
              "Without --data, check reads your own data file. It writes nothing and ends with status 0,\n"
              "or with status 1 and a line that says why the file could not be read.\n");
}
