#include "transfer/CVTransferCSV.h"

#include "model/CVTransaction.h"
#include "transfer/CVTransferNames.h"
#include "transfer/CVTransferValues.h"

namespace {

constexpr qsizetype kUsualRow = 80;

void appendCell(QByteArray& text, QByteArray cell) {
    const bool needsQuotes = cell.contains(',') || cell.contains('"') || cell.contains('\n') || cell.contains('\r');
    text += needsQuotes ? '"' + cell.replace('"', "\"\"") + '"' : cell;
}

QByteArray yesOrEmpty(bool flag) {
    return flag ? "yes" : QByteArray();
}

template <typename Cells>
void appendRow(QByteArray& text, const Cells& cells) {
    bool isFirst = true;
    for (const auto& cell : cells) {
        if (!isFirst)
            text += ',';
        appendCell(text, cell);
        isFirst = false;
    }
    text += "\r\n";
}

} // namespace

std::optional<QByteArray> CVTransferCSV(const CVDocument& document, const CVTransactions& transactions,
                                        const CVTransferProgress& progress) {
    using namespace CVTransferValues;
    const CVTransferNames names(document);
    QByteArray text;
    text.reserve(kUsualRow * static_cast<qsizetype>(transactions.size() + 1));
    appendRow(text, kCVTransferColumns);
    std::size_t done = 0;
    for (const auto& each : transactions) {
        appendRow(text, std::array<QByteArray, kCVTransferColumns.size()>{
                            textOfDay(each->effectiveDate()), textOfAmount(each->amount()), names.categoryOf(*each),
                            each->payTo().toUtf8(), each->xfor().toUtf8(), yesOrEmpty(each->taxFlag()),
                            yesOrEmpty(each->userFlag()), names.setOf(*each)});
        if (++done % kCVBetweenTransferReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    return text;
}
