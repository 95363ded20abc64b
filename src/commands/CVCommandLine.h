#pragma once

#include "commands/CVExportCommand.h"
#include "commands/CVReportCommand.h"

#include <QStringList>

#include <optional>

/// What the program was asked to do on its command line.
struct CVCommandLine {
    enum class Action { OpenWindow, ShowVersion, ShowHelp, Check, Sets, Export, Report, Refuse };

    Action action = Action::OpenWindow;
    /// The file that `check` and `sets` read; absent: the user's own; "-": standard input.
    std::optional<QString> dataFile = std::nullopt;
    /// The command that is asked for, understood or not; empty without one.
    QString command = {};
    /// Why the arguments are refused.
    QString problem = {};
    /// What the window is to open: files, or what was meant to be a command.
    QStringList files = {};
    /// What `export` is to write.
    CVExportRequest exportRequest = {};
    /// What `report` is to write.
    CVReportRequest reportRequest = {};

    /// `arguments` begin with the program's name. Options that belong to the toolkit are left to it: they open the
    /// window.
    [[nodiscard]] static CVCommandLine parse(const QStringList& arguments);
};
