#pragma once

#include "commands/CVOptions.h"
#include "importing/statements/CVStatementMapping.h"

#include <QString>

#include <optional>

/// The options that say how a statement is read: what the program would otherwise guess or ask.
struct CVStatementOptions {
    CVStatementMapping mapping = {};

    static void declare(QCommandLineParser& parser);
    /// Takes the values that the parser has found. Returns a sentence when a value is not understood, else an empty
    /// text.
    [[nodiscard]] QString read(const QCommandLineParser& parser);
};
