#include "transfer/CVTransferJSON.h"

#include "model/CVTransaction.h"
#include "transfer/CVTransferNames.h"
#include "transfer/CVTransferValues.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype kUsualObject = 160;
constexpr int kHexadecimal = 16;

bool needsEscape(char c) {
    return c == '"' || c == '\\' || (c >= 0 && c < ' ');
}

void appendEscaped(QByteArray& text, char c) {
    if (c == '"' || c == '\\')
        (text += '\\') += c;
    else
        text += "\\u" + QByteArray::number(int(c), kHexadecimal).rightJustified(4, '0');
}

void appendQuoted(QByteArray& text, const QByteArray& utf8) {
    text += '"';
    const char* const end = utf8.cend();
    for (const char* at = utf8.cbegin(); at != end;) {
        const char* const next = std::find_if(at, end, needsEscape);
        text.append(at, next - at);
        if (next != end)
            appendEscaped(text, *next);
        at = next == end ? end : next + 1;
    }
    text += '"';
}

void appendDay(QByteArray& text, const std::optional<QBDate>& day) {
    if (day)
        appendQuoted(text, CVTransferValues::textOfDay(day));
    else
        text += "null";
}

void appendAmount(QByteArray& text, double amount) {
    const QByteArray written = CVTransferValues::textOfAmount(amount);
    if (std::isfinite(amount))
        text += written;
    else
        appendQuoted(text, written);
}

void appendObject(QByteArray& text, const CVTransaction& transaction, const CVTransferNames& names) {
    appendDay(text += R"({"date":)", transaction.effectiveDate());
    appendAmount(text += R"(,"amount":)", transaction.amount());
    appendQuoted(text += R"(,"category":)", names.categoryOf(transaction));
    appendQuoted(text += R"(,"paidTo":)", transaction.payTo().toUtf8());
    appendQuoted(text += R"(,"for":)", transaction.xfor().toUtf8());
    text += R"(,"tax":)";
    text += transaction.taxFlag() ? "true" : "false";
    text += R"(,"flagged":)";
    text += transaction.userFlag() ? "true" : "false";
    appendQuoted(text += R"(,"set":)", names.setOf(transaction));
    text += '}';
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
        appendObject(text, *transaction, names);
        if (++done % kCVBetweenTransferReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    text += done == 0 ? "]\n" : "\n]\n";
    return text;
}
