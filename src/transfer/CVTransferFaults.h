#pragma once

#include <QCoreApplication>

/// Why a line of a transfer cannot be read.
struct CVTransferFaults {
    Q_DECLARE_TR_FUNCTIONS(CVTransferFaults)

public:
    /// The sentence that names the line, from 1; `why` follows a colon.
    [[nodiscard]] static QString ofLine(int line, const QString& why);
    [[nodiscard]] static QString noDay(const QString& text);
    [[nodiscard]] static QString noAmount(const QString& text);
    [[nodiscard]] static QString notStorable();
    /// A text of the file, between quotation marks, that is cut off where it is long.
    [[nodiscard]] static QString quoted(const QString& text);
};
