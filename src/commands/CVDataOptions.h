#pragma once

#include "commands/CVOptions.h"

#include <QStringList>

#include <optional>

/// What all commands that read a data file have in common.
struct CVDataOptions {
    /// Its help is asked for; nothing else was read then.
    bool help = false;
    /// Absent: the user's own. "-": standard input.
    std::optional<QString> dataFile = std::nullopt;

    /// Reads the arguments of a command that has these options alone, behind its name, which is the first. Absent when
    /// they cannot be understood: `problem` then says why.
    [[nodiscard]] static std::optional<CVDataOptions> parse(const QStringList& arguments, QString& problem);

    static void declare(QCommandLineParser& parser);
    /// Takes what the parser has found of them; a sentence when that cannot be understood, else an empty text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);
    [[nodiscard]] static bool asksForHelp(const QCommandLineParser& parser);
};
