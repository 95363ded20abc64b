#pragma once

#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"

#include <QCoreApplication>
#include <QString>

class CVImportRows;

/// The columns of the table with the lines of a statement.
namespace CVImportColumns {
enum Column { Checked, Date, Amount, ToFrom, For, Category, Into, Note, ColumnCount };
}

/// Writes the lines of a statement for the screen, in the locale that was in force when the object was made. References
/// the lines, which outlive it.
class CVImportLineText final {
    Q_DECLARE_TR_FUNCTIONS(CVImportLineText)

public:
    explicit CVImportLineText(const CVImportRows& lines) : mLines(&lines) {}

    /// The heading of a column, in the user's language; that of the boxes is empty.
    [[nodiscard]] static QString title(int column);

    /// The names of the sets that money out and money in go into.
    void setNamesOfSets(const QString& out, const QString& in);
    [[nodiscard]] const QString& nameOfSet(bool isIncome) const { return isIncome ? mNameIn : mNameOut; }

    [[nodiscard]] QString string(std::size_t line, int column) const;
    /// What a screen reader says.
    [[nodiscard]] QString spoken(std::size_t line, int column) const;
    /// How sure a proposed category is and which transactions it comes from, and what was recorded already; empty where
    /// there is nothing to tell.
    [[nodiscard]] QString toolTip(std::size_t line, int column) const;

    /// In currency units, and back.
    [[nodiscard]] static double amountOf(qint64 hundredths);
    [[nodiscard]] static qint64 hundredthsOf(double amount);

private:
    [[nodiscard]] QString note(std::size_t line) const;

    const CVImportRows* mLines;
    QBDateFormatter mDates;
    QBMoneyFormatter mMoney;
    QString mNameOut;
    QString mNameIn;
};
