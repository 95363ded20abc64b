#pragma once

#include "generator/CVScaleBudget.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

/// What the command line of corvella-sample asks for.
struct CVSampleOptions {
    Q_DECLARE_TR_FUNCTIONS(CVSampleOptions)

public:
    /// The purpose of the command line: to make a file or to show the usage, or `Wrong` for a faulty one.
    enum class Wish { Make, Help, Wrong };

    Wish wish = Wish::Make;
    /// The text to show for `Help` and `Wrong`.
    QString message;

    QString output;
    QBDate today = QBDate::date();
    /// The size of the budget; absent for the household sample.
    std::optional<CVScaleBudget> scale;

    /// `arguments` begins with the name of the program.
    [[nodiscard]] static CVSampleOptions parse(const QStringList& arguments);
};
