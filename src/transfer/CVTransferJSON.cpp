#include "transfer/CVTransferJSON.h"

#include "model/CVTransaction.h"
#include "transfer/CVTransferNames.h"
#include "transfer/CVTransferValues.h"

#include <cmath>

namespace {

constexpr qsizetype kUsualObject = 160;
constexpr int kHexadecimal = 16;

QByteArray quoted(const QByteArray& utf8) {
    QByteArray text = "\"";
    for (const char c : utf8) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            text += '\\';
        if (code < ' ')
            text += "\\u" + QByteArray::number(code, kHexadecimal).rightJustified(4, '0');
        else
            text += c;
    }
    return text += '"';
}

QByteArray dayInJSON(const std::optional<QBDate>& day) {
    return day ? quoted(CVTransferValues::textOfDay(day)) : QByteArray("null");
}

QByteArray amountInJSON(double amount) {
    const QByteArray text = CVTransferValues::textOfAmount(amount);
    return std::isfinite(amount) ? text : quoted(text);
}

QByteArray flagInJSON(bool flag) {
    return flag ? "true" : "false";
}

QByteArray objectOf(const CVTransaction& transaction, const CVTransferNames& names) {
    return R"({"date":)" + dayInJSON(transaction.effectiveDate()) + R"(,"amount":)" +
           amountInJSON(transaction.amount()) + R"(,"category":)" + quoted(names.categoryOf(transaction)) +
           R"(,"paidTo":)" + quoted(transaction.payTo().toUtf8()) + R"(,"for":)" + quoted(transaction.xfor().toUtf8()) +
           R"(,"tax":)" + flagInJSON(transaction.taxFlag()) + R"(,"flagged":)" + flagInJSON(transaction.userFlag()) +
           R"(,"set":)" + quoted(names.setOf(transaction)) + '}';
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
