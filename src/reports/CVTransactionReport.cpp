#include "model/CVTransaction.h"
#include "reports/CVReport.h"
#include "shared/base/QBMoney.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/format/QBMoneyFormatter.h"

#include <utility>

namespace {

/// Shares the ownership of its transactions and writes a line when it is asked for: there can be very many.
class CVTransactionReport final : public CVReport {
public:
    explicit CVTransactionReport(CVDocument::Transactions transactions)
        : CVReport(CVReportType::Transactions, titleOf(transactions), CVPrintedColumns(CVReportType::Transactions),
                   CVPrintedLabels(CVPrintedColumns(CVReportType::Transactions)))
        , mTransactionArray(std::move(transactions)) {}

    [[nodiscard]] std::size_t arrayCount() const override { return mTransactionArray.size(); }
    [[nodiscard]] std::size_t lineCount() const override { return mTransactionArray.size(); }

    [[nodiscard]] CVReportLine line(std::size_t index) const override {
        const CVTransaction& transaction = *mTransactionArray[index];
        const auto date = transaction.effectiveDate();
        return {{QString::number(index + 1), date ? mDateFormatter.string(*date) : QString(),
                 mMoneyFormatter.string(transaction.amount()), onOneLine(transaction.payTo()),
                 onOneLine(transaction.xfor()), onOneLine(transaction.categoryName())},
                CVReportLine::Kind::Main,
                transaction.taxFlag()};
    }

private:
    /// The total is that of the whole report, on every page.
    [[nodiscard]] static QString titleOf(const CVDocument::Transactions& transactions) {
        double total = 0;
        for (const auto& transaction : transactions)
            total += transaction->amount();
        return tr("Transaction Report for: %1  Total=%2")
            .arg(QBDateFormatter().string(QBDate::date()), QBMoneyFormatter().string(RoundDoubleToTwoPlaces(total)));
    }

    CVDocument::Transactions mTransactionArray;
    QBDateFormatter mDateFormatter;
    QBMoneyFormatter mMoneyFormatter;
};

} // namespace

std::unique_ptr<const CVReport> CVReport::initWithTransactions(CVDocument::Transactions transactions) {
    return std::make_unique<CVTransactionReport>(std::move(transactions));
}
