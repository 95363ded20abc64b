#include "transfer/CVTransferJSON.h"

#include "model/CVTransaction.h"
#include "transfer/CVTransferCells.h"
#include "transfer/CVTransferNames.h"
#include "transfer/CVTransferValues.h"

using namespace CVTransferCells;

namespace {

constexpr qsizetype kUsualObject = 160;

QByteArray dayInJSON(const std::optional<QBDate>& day) {
    return day ? quotedInJSON(CVTransferValues::textOfDay(day)) : QByteArray("null");
}

QByteArray flagInJSON(bool flag) {
    return flag ? "true" : "false";
}

QByteArray objectOf(const CVTransaction& transaction, const CVTransferNames& names) {
    return R"({"date":)" + dayInJSON(transaction.effectiveDate()) + R"(,"amount":)" +
           amountInJSON(transaction.amount()) + R"(,"category":)" + quotedInJSON(names.categoryOf(transaction)) +
           R"(,"paidTo":)" + quotedInJSON(transaction.payTo().toUtf8()) + R"(,"for":)" +
           quotedInJSON(transaction.xfor().toUtf8()) + R"(,"tax":)" + flagInJSON(transaction.taxFlag()) +
           R"(,"flagged":)" + flagInJSON(transaction.userFlag()) + R"(,"set":)" +
           quotedInJSON(names.setOf(transaction)) + '}';
}

} // namespace

std::optional<QByteArray> CVTransferJSON(const CVDocument& document, const CVTransactions& transactions,
                                         const CVTransferProgress& progress) {
    const CVTransferNames names(document);
    QByteArray text;
    text.reserve(kUsualObject * static_cast<qsizetype>(transactions.size() + 1));
    text += '[';
    std::size_t done = 0;
    for (const auto& transaction : transactions) {
        text += done == 0 ? "\n" : ",\n";
        text += objectOf(*transaction, names);
        if (++done % kCVBetweenTransferReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    text += done == 0 ? "]\n" : "\n]\n";
    return text;
}
