#pragma once

#include "app/CVExportCommand.h"
#include "app/CVReportCommand.h"

#include <QStringList>

#include <optional>

/// What the program was asked to do on its command line.
struct CVCommandLine {
    enum class Action { OpenWindow, ShowVersion, ShowHelp, Check, Export, Report, Refuse };

    Action action = Action::OpenWindow;
    /// The file that `check` reads; absent: the user's own.
    std::optional<QString> dataFile = std::nullopt;
    /// Why the arguments are refused.
    QString problem = {};
    /// What `export` is to write.
    CVExportRequest exportRequest = {};
    /// What `report` is to write.
    CVReportRequest reportRequest = {};

    /// `arguments` begin with the program's name. Options that belong to the toolkit are left to it: they open the
    /// window.
    [[nodiscard]] static CVCommandLine parse(const QStringList& arguments);
    [[nodiscard]] static QString usage();
};
