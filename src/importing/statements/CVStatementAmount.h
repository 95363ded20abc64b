#pragma once

#include <QChar>
#include <QStringView>

#include <optional>

/// An amount of a statement as its text says it.
struct CVStatementAmount {
    /// Negative with a minus sign or in brackets.
    qint64 hundredths = 0;
    /// Whether a sign or brackets stand at the number.
    bool isSigned = false;
    /// What a CR or DR at the number says: 1 money in, -1 money out, else 0.
    int marker = 0;

    friend bool operator==(const CVStatementAmount&, const CVStatementAmount&) = default;
};

/// The amount that `text` is, with or without signs, currency and groups, where `mark` ('.' or ',') stands before the
/// decimals. Rounded half away from zero. Absent for any other text, for groups in the wrong places and for a number
/// beyond 15 digits.
[[nodiscard]] std::optional<CVStatementAmount> CVReadStatementAmount(QStringView text, QChar mark);

/// What a text says about the decimal mark.
struct CVMarkEvidence {
    /// Whether the text is an amount with that decimal mark.
    bool point = false;
    bool comma = false;
    /// Whether both are possible and give different amounts: "1.000".
    bool differs = false;

    [[nodiscard]] bool isAmount() const { return point || comma; }
};
[[nodiscard]] CVMarkEvidence CVMarkEvidenceOf(QStringView text);

/// Whether `text` names a currency: a code, a symbol or a usual abbreviation.
[[nodiscard]] bool CVIsCurrencyName(QStringView text);
