#include "transfer/CVTransferCSV.h"

#include "model/CVTransaction.h"
#include "transfer/CVTransferCells.h"
#include "transfer/CVTransferNames.h"
#include "transfer/CVTransferValues.h"

#include <vector>

namespace {

constexpr qsizetype kUsualRow = 80;

QByteArray yesOrEmpty(bool flag) {
    return flag ? "yes" : QByteArray();
}

} // namespace

std::optional<QByteArray> CVTransferCSV(const CVDocument& document, const CVTransactions& transactions,
                                        const CVTransferProgress& progress) {
    using namespace CVTransferValues;
    const CVTransferNames names(document);
    QByteArray text;
    text.reserve(kUsualRow * static_cast<qsizetype>(transactions.size() + 1));
    const std::vector<QByteArray> header(kCVTransferColumns.begin(), kCVTransferColumns.end());
    CVTransferCells::appendRow(text, header);
    std::size_t done = 0;
    for (const auto& each : transactions) {
        CVTransferCells::appendRow(text,
                                   std::array<QByteArray, kCVTransferColumns.size()>{
                                       textOfDay(each->effectiveDate()), textOfAmount(each->amount()),
                                       names.categoryOf(*each), each->payTo().toUtf8(), each->xfor().toUtf8(),
                                       yesOrEmpty(each->taxFlag()), yesOrEmpty(each->userFlag()), names.setOf(*each)});
        if (++done % kCVBetweenTransferReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    return text;
}
