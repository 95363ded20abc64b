#pragma once

#include "generator/CVScaleBudget.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

/// What the command line of corvella-sample asks for.
struct CVSampleOptions {
    Q_DECLARE_TR_FUNCTIONS(CVSampleOptions)

public:
    /// How the command line was meant: to make a file, to show how it is used, or not to be understood.
    enum class Wish { Make, Help, Wrong };

    Wish wish = Wish::Make;
    /// The text to show for `Help` and `Wrong`.
    QString message;

    QString output;
    QBDate today = QBDate::date();
    /// Absent: the household sample.
    std::optional<CVScaleBudget> scale;

    /// `arguments` begin with the name of the program.
    [[nodiscard]] static CVSampleOptions parse(const QStringList& arguments);
};
