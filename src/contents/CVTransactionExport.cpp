#include "contents/CVTransactionExport.h"

#include "contents/CVTransactionText.h"
#include "files/CVWriteOutputFile.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "transfer/CVTransferCSV.h"
#include "transfer/CVTransferJSON.h"

#include <QIODevice>

namespace {

constexpr qsizetype kUsualLine = 60;
constexpr std::size_t kBetweenReports = 4096;

} // namespace

std::optional<QByteArray> CVMakeExportText(const CVTransactions& transactions,
                                           const std::function<bool(std::size_t done)>& progress) {
    using enum CVTransactionColumns::Column;
    const CVTransactionText texts;
    QByteArray text;
    text.reserve(kUsualLine * static_cast<qsizetype>(transactions.size()));
    std::size_t done = 0;
    for (const auto& transaction : transactions) {
        for (const int column : {Date, Amount, Tax, ToFrom, For, Category}) {
            if (column != Tax)
                text += texts.string(*transaction, column).toUtf8();
            else if (transaction->taxFlag())
                text += 'X';
            text += column == Category ? '\n' : '\t';
        }
        if (++done % kBetweenReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    return text;
}

std::optional<QByteArray> CVMakeExport(CVExportFormat format, const CVDocument& document,
                                       const CVTransactions& transactions,
                                       const std::function<bool(std::size_t done)>& progress) {
    switch (format) {
    case CVExportFormat::CSV:
        return CVTransferCSV(document, transactions, progress);
    case CVExportFormat::JSON:
        return CVTransferJSON(document, transactions, progress);
    case CVExportFormat::List:
        break;
    }
    return CVMakeExportText(transactions, progress);
}

std::optional<QString> CVWriteExport(const QString& path, const QByteArray& text, const QStringList& spared) {
    return CVWriteOutputFile(
        path, [&text](QIODevice& output) { return output.write(text) == text.size(); }, spared);
}
