#pragma once

#include "base/QBDate.h"
#include "model/CVCollections.h"
#include "reports/CVPrintedColumn.h"
#include "reports/CVReportValue.h"

#include <QCoreApplication>
#include <QStringList>

class CVSummaryTable;

/// A line of a report: the texts of its columns from the left; columns without a text stay empty.
struct CVReportLine {
    enum class Kind {
        Main,
        Blank,
        /// The first text has the font of a heading.
        Total
    };

    QStringList texts;
    Kind kind = Kind::Main;
    /// Shows the mark of a taxed transaction.
    bool isTaxed = false;
};

/// The texts of a printed report, without pages and fonts: title, headings and lines. Owns its contents or shares their
/// ownership. Made for one printing: it shows the figures of the moment when it was made, in the formats of the locale
/// that was in force then. No text holds a line break.
class CVReport {
    Q_DECLARE_TR_FUNCTIONS(CVReport)

public:
    /// Reports these transactions in their order.
    [[nodiscard]] static std::unique_ptr<CVReport> initWithTransactions(CVTransactions transactions);
    /// Reports the first `columns` columns, at most `kMostSummaryColumns`, of a table whose rows are `categories`.
    [[nodiscard]] static std::unique_ptr<CVReport> initWithSummaryTable(const CVSummaryTable& table,
                                                                        const CVCategories& categories, int columns);
    /// "Catgory" is misspelt in four of these names. This report prints the averages that were last computed for the
    /// categories; the others compute their figures from the transactions in the range of days, in one walk.
    [[nodiscard]] static std::unique_ptr<CVReport>
    initWithCatgoryAverages(const CVCategories& categories, const QBDate& startDate, const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<CVReport> initWithCatgoryTotals(const CVCategories& categories,
                                                                         const CVTransactions& transactions,
                                                                         const QBDate& startDate,
                                                                         const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<CVReport> initWithCatgoryPercents(const CVCategories& categories,
                                                                           const CVTransactions& transactions,
                                                                           const QBDate& startDate,
                                                                           const QBDate& endDate);
    [[nodiscard]] static std::unique_ptr<CVReport> initWithCatgoryTax(const CVCategories& categories,
                                                                      const CVTransactions& transactions,
                                                                      const QBDate& startDate, const QBDate& endDate);

    virtual ~CVReport() = default;
    CVReport(const CVReport&) = delete;
    CVReport& operator=(const CVReport&) = delete;

    [[nodiscard]] CVReportType type() const { return mReportType; }
    /// The title, without the page number.
    [[nodiscard]] const QString& title() const { return mTitle; }
    /// Says in the title that the report is of all sets.
    void sayAllSets();
    /// The name of the print job and of the file: the kind of report and today's date. It holds no figure, because
    /// everyone at the printer can read it, and no character that a file name must not have.
    [[nodiscard]] const QString& name() const { return mName; }
    /// The page number as it is printed, such as "Page 1".
    [[nodiscard]] static QString pageText(int page);
    /// The columns, one for each heading.
    [[nodiscard]] std::span<const CVPrintedColumn> columns() const { return mColumns; }
    [[nodiscard]] const QStringList& labels() const { return mLabels; }

    /// The number of transactions or categories, which have one line each.
    [[nodiscard]] virtual std::size_t arrayCount() const = 0;
    /// The number of all lines: those of `arrayCount` and those that the report adds at its end.
    [[nodiscard]] virtual std::size_t lineCount() const = 0;
    /// The line of that index, from 0 on.
    [[nodiscard]] virtual CVReportLine line(std::size_t index) const = 0;
    /// The values of that line, for other programs; none for a blank one.
    [[nodiscard]] virtual CVReportValues values(std::size_t index) const = 0;

protected:
    CVReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels);

    /// The text in one line: line breaks and tabulators become blanks.
    [[nodiscard]] static QString onOneLine(const QString& text);

private:
    CVReportType mReportType;
    QString mTitle;
    QString mName;
    std::span<const CVPrintedColumn> mColumns;
    QStringList mLabels;
};
