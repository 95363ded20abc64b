#pragma once

#include "model/CVDocument.h"
#include "reports/CVPrintedColumns.h"

#include <QCoreApplication>
#include <QStringList>

class CVSummaryTable;

/// A line of a report: the texts of its columns from the left; those missing at the right stay empty.
struct CVReportLine {
    enum class Kind {
        Main,
        Blank,
        /// Its first text is set like a heading.
        Total
    };

    QStringList texts;
    Kind kind = Kind::Main;
    /// Shows the mark of a taxed transaction.
    bool isTaxed = false;
};

/// What a printed report says, without pages and fonts: title, headings and lines of texts. It owns what it says, or
/// shares the ownership, and is made for one printing: it shows the figures of the moment it was made, in the formats
/// of the locale then in force. Every text fits on one line.
class CVReport {
    Q_DECLARE_TR_FUNCTIONS(CVReport)

public:
    /// All of these transactions in their order.
    [[nodiscard]] static std::unique_ptr<const CVReport> initWithTransactions(CVDocument::Transactions transactions);
    /// The categories' rows of a table, whose rows they are, with the first `columns` columns, at most
    /// `kMostSummaryColumns`.
    [[nodiscard]] static std::unique_ptr<const CVReport>
    initWithSummaryTable(const CVSummaryTable& table, const CVDocument::Categories& categories, int columns);
    /// "Catgory" is missing its letter in the names of all four. This one prints the averages last computed for the
    /// categories; the others compute theirs from the transactions in the range of days, in one walk.
    [[nodiscard]] static std::unique_ptr<const CVReport>
    initWithCatgoryAverages(const CVDocument::Categories& categories, const QBDate& startDate, const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<const CVReport>
    initWithCatgoryTotals(const CVDocument::Categories& categories, const CVDocument::Transactions& transactions,
                          const QBDate& startDate, const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<const CVReport>
    initWithCatgoryPercents(const CVDocument::Categories& categories, const CVDocument::Transactions& transactions,
                            const QBDate& startDate, const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<const CVReport>
    initWithCatgoryTax(const CVDocument::Categories& categories, const CVDocument::Transactions& transactions,
                       const QBDate& startDate, const QBDate& endDate);

    virtual ~CVReport() = default;
    CVReport(const CVReport&) = delete;
    CVReport& operator=(const CVReport&) = delete;

    [[nodiscard]] CVReportType type() const { return mReportType; }
    /// Without the page.
    [[nodiscard]] const QString& title() const { return mTitle; }
    /// What the print job and the file are called: the kind and today, without a figure, as everyone at the printer
    /// reads it, and with nothing that cannot stand in the name of a file.
    [[nodiscard]] const QString& name() const { return mName; }
    /// "Page 1" for the first.
    [[nodiscard]] static QString pageText(int page);
    /// As many as there are headings.
    [[nodiscard]] std::span<const CVPrintedColumn> columns() const { return mColumns; }
    [[nodiscard]] const QStringList& labels() const { return mLabels; }

    /// The transactions or categories, one line each.
    [[nodiscard]] virtual std::size_t arrayCount() const = 0;
    /// All lines: those, and what the report adds at its end.
    [[nodiscard]] virtual std::size_t lineCount() const = 0;
    /// Counted from 0.
    [[nodiscard]] virtual CVReportLine line(std::size_t index) const = 0;

protected:
    CVReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels);

    /// A text as it stands on one line: line breaks and tabulators in it become blanks.
    [[nodiscard]] static QString onOneLine(const QString& text);

private:
    CVReportType mReportType;
    QString mTitle;
    QString mName;
    std::span<const CVPrintedColumn> mColumns;
    QStringList mLabels;
};
