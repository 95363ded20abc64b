#include "contents/CVTransactionList.h"
#include "contents/CVTransactionText.h"
#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "reports/CVReport.h"

#include <utility>

namespace {

/// Shares the ownership of its transactions and writes a line only when it is asked for, because there can be very
/// many.
class CVTransactionReport final : public CVReport {
public:
    explicit CVTransactionReport(CVTransactions transactions)
        : CVReport(CVReportType::Transactions, titleOf(transactions), CVColumnsOfReport(CVReportType::Transactions),
                   CVHeadingsOfColumns(CVColumnsOfReport(CVReportType::Transactions)))
        , mTransactionArray(std::move(transactions)) {}

    [[nodiscard]] std::size_t arrayCount() const override { return mTransactionArray.size(); }
    [[nodiscard]] std::size_t lineCount() const override { return mTransactionArray.size(); }

    [[nodiscard]] CVReportLine line(std::size_t index) const override {
        const CVTransaction& transaction = *mTransactionArray[index];
        using enum CVTransactionColumns::Column;
        QStringList texts{QString::number(index + 1)};
        for (const int column : {Date, Amount, ToFrom, For, Category})
            texts.append(onOneLine(mText.string(transaction, column)));
        return {texts, CVReportLine::Kind::Main, transaction.taxFlag()};
    }

    [[nodiscard]] CVReportValues values(std::size_t index) const override {
        const CVTransaction& transaction = *mTransactionArray[index];
        return {static_cast<double>(index + 1),
                transaction.effectiveDate(),
                transaction.amount(),
                transaction.payTo(),
                transaction.xfor(),
                transaction.categoryName()};
    }

private:
    /// Every page shows the total of the whole report.
    [[nodiscard]] static QString titleOf(const CVTransactions& transactions) {
        const double total = CVTransactionList::Totals::of(transactions).amount;
        return CVReport::tr("Transaction Report for: %1  Total=%2")
            .arg(QBDateFormatter().string(QBDate::date()), QBMoneyFormatter().string(total));
    }

    CVTransactions mTransactionArray;
    CVTransactionText mText;
};

} // namespace

std::unique_ptr<CVReport> CVReport::initWithTransactions(CVTransactions transactions) {
    return std::make_unique<CVTransactionReport>(std::move(transactions));
}
