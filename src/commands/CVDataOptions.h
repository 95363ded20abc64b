#pragma once

#include "commands/CVOptions.h"

#include <QStringList>

#include <optional>

/// The options that all commands that read a data file have in common.
struct CVDataOptions {
    /// Whether the command's help is asked for; the other options are then not read.
    bool help = false;
    /// Absent: the user's own. "-": standard input.
    std::optional<QString> dataFile = std::nullopt;

    /// Reads the arguments of a command that has only these options; the first argument is the command's name. Absent
    /// when they are not understood; `problem` then says why.
    [[nodiscard]] static std::optional<CVDataOptions> parse(const QStringList& arguments, QString& problem);

    static void declare(QCommandLineParser& parser);
    /// Takes the values that the parser has found. Returns a sentence when a value is not understood, else an empty
    /// text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);
    [[nodiscard]] static bool asksForHelp(const QCommandLineParser& parser);
};
