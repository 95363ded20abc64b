#pragma once

#include "commands/CVDiffCommand.h"
#include "commands/CVExportCommand.h"
#include "commands/CVImportCommand.h"
#include "commands/CVReportCommand.h"

#include <QStringList>

#include <optional>

/// The meaning of the program's command line.
struct CVCommandLine {
    enum class Action {
        OpenWindow,
        ShowVersion,
        ShowHelp,
        Check,
        Sets,
        Diff,
        Versions,
        Export,
        Report,
        Import,
        Refuse
    };

    Action action = Action::OpenWindow;
    /// The file that `check` and `sets` read and whose versions `versions` lists; absent: the user's own; "-": standard
    /// input.
    std::optional<QString> dataFile = std::nullopt;
    /// The name of the command, even when its arguments are refused; empty without one.
    QString command = {};
    /// Why the arguments are refused.
    QString problem = {};
    /// The arguments that are left for the window: files to open, or a misspelt command.
    QStringList files = {};
    CVDiffRequest diffRequest = {};
    CVExportRequest exportRequest = {};
    CVReportRequest reportRequest = {};
    CVImportRequest importRequest = {};

    /// `arguments` begin with the program's name. Options of the toolkit are passed over, because the toolkit reads
    /// them itself when the window opens.
    [[nodiscard]] static CVCommandLine parse(const QStringList& arguments);
};
