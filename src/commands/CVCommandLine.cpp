#include "commands/CVCommandLine.h"

#include "commands/CVDataOptions.h"
#include "commands/CVStandardStreams.h"
#include "commands/CVToolkitOptions.h"

#include <QCoreApplication>

#include <array>
#include <utility>

namespace {

using Action = CVCommandLine::Action;

struct CommandLineText {
    Q_DECLARE_TR_FUNCTIONS(CVCommandLine)
};

/// Parses the arguments of a command that takes only a data file.
template <Action action>
CVCommandLine parseDataFile(const QStringList& arguments) {
    CVCommandLine line{.action = action};
    if (const auto options = CVDataOptions::parse(arguments, line.problem)) {
        line.dataFile = options->dataFile;
        if (options->help)
            line.action = Action::ShowHelp;
    } else {
        line.action = Action::Refuse;
    }
    return line;
}

CVCommandLine parseVersions(const QStringList& arguments) {
    CVCommandLine line = parseDataFile<Action::Versions>(arguments);
    if (line.action == Action::Versions && line.dataFile == QLatin1String(CVStandardStreams::kName)) {
        line.action = Action::Refuse;
        line.problem = CommandLineText::tr("standard input has no earlier versions; --data needs the name of a file");
    }
    return line;
}

/// Parses the arguments of a command that has its own type of request.
template <typename Request, Action action, Request CVCommandLine::*member>
CVCommandLine parseRequest(const QStringList& arguments) {
    CVCommandLine line{.action = action};
    if (const auto request = Request::parse(arguments, line.problem)) {
        line.*member = *request;
        if (request->help)
            line.action = Action::ShowHelp;
    } else {
        line.action = Action::Refuse;
    }
    return line;
}

struct Command {
    const char* name;
    CVCommandLine (*parse)(const QStringList& arguments);
};

constexpr std::array<Command, 7> kCommands{
    {{"check", parseDataFile<Action::Check>},
     {"sets", parseDataFile<Action::Sets>},
     {"diff", parseRequest<CVDiffRequest, Action::Diff, &CVCommandLine::diffRequest>},
     {"versions", parseVersions},
     {"export", parseRequest<CVExportRequest, Action::Export, &CVCommandLine::exportRequest>},
     {"report", parseRequest<CVReportRequest, Action::Report, &CVCommandLine::reportRequest>},
     {"import", parseRequest<CVImportRequest, Action::Import, &CVCommandLine::importRequest>}}};

struct LoneOption {
    QLatin1StringView name;
    Action action = Action::Refuse;
};

/// The options that are allowed only alone, on a command line without a command.
constexpr std::array<LoneOption, 4> kLoneOptions{{{QLatin1StringView("--version"), Action::ShowVersion},
                                                  {QLatin1StringView("-v"), Action::ShowVersion},
                                                  {QLatin1StringView("--help"), Action::ShowHelp},
                                                  {QLatin1StringView("-h"), Action::ShowHelp}}};

/// Refuses an option that the toolkit does not know either, because the toolkit would look for a display first.
CVCommandLine parseWindow(const QStringList& arguments) {
    const QStringList rest = CVToolkitOptions::take(arguments).rest;
    for (const LoneOption& option : kLoneOptions) {
        if (rest == QStringList{option.name})
            return {.action = option.action};
        if (rest.contains(option.name))
            return {.action = Action::Refuse, .problem = CommandLineText::tr("%1 stands alone").arg(option.name)};
    }
    for (const QString& argument : rest) {
        if (argument.startsWith(u'-'))
            return {.action = Action::Refuse,
                    .problem = CommandLineText::tr("there is no option \"%1\"").arg(argument)};
    }
    return {.files = rest};
}

} // namespace

CVCommandLine CVCommandLine::parse(const QStringList& arguments) {
    const QStringList rest = arguments.mid(1);
    for (const Command& command : kCommands) {
        if (rest.isEmpty() || rest.constFirst() != QLatin1String(command.name))
            continue;
        CVCommandLine line = command.parse(rest);
        line.command = rest.constFirst();
        return line;
    }
    return parseWindow(rest);
}
