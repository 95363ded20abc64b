#include "transfer/CVTransferCells.h"

#include "transfer/CVTransferValues.h"

#include <cmath>

namespace CVTransferCells {

namespace {

constexpr int kHexadecimal = 16;

QByteArray cellOf(QByteArray text) {
    const bool needsQuotes = text.contains(',') || text.contains('"') || text.contains('\n') || text.contains('\r');
    return needsQuotes ? '"' + text.replace('"', "\"\"") + '"' : text;
}

} // namespace

void appendRow(QByteArray& text, std::span<const QByteArray> cells) {
    bool isFirst = true;
    for (const QByteArray& cell : cells) {
        if (!isFirst)
            text += ',';
        text += cellOf(cell);
        isFirst = false;
    }
    text += "\r\n";
}

QByteArray quotedInJSON(const QByteArray& text) {
    QByteArray quoted = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            quoted += '\\';
        if (code < ' ')
            quoted += "\\u" + QByteArray::number(code, kHexadecimal).rightJustified(4, '0');
        else
            quoted += c;
    }
    return quoted += '"';
}

QByteArray amountInJSON(double amount) {
    const QByteArray text = CVTransferValues::textOfAmount(amount);
    return std::isfinite(amount) ? text : quotedInJSON(text);
}

} // namespace CVTransferCells
