#pragma once

#include "base/QBDate.h"

#include <QByteArray>
#include <QString>

#include <random>
#include <vector>

/// Transactions as a bank might write them, in a dialect that chance chooses.
struct RandomStatement {
    struct Line {
        QBDate day;
        /// Money out is negative.
        qint64 hundredths;
        QString payee;
    };
    std::vector<Line> lines;
    QByteArray bytes;
};

[[nodiscard]] RandomStatement makeRandomStatement(std::mt19937& chance);
