#include "workspace/CVTransactionExport.h"

#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "shared/base/CVOutputFile.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/format/QBMoneyFormatter.h"

#include <QIODevice>

namespace {

constexpr qsizetype kUsualLine = 60;
constexpr std::size_t kBetweenReports = 4096;

} // namespace

std::optional<QByteArray> CVExportedTransactions(const CVDocument::Transactions& transactions,
                                                 const std::function<bool(std::size_t done)>& progress) {
    const QBDateFormatter dates;
    const QBMoneyFormatter money;
    QByteArray text;
    text.reserve(kUsualLine * static_cast<qsizetype>(transactions.size()));
    std::size_t done = 0;
    for (const auto& transaction : transactions) {
        if (const auto& date = transaction->effectiveDate())
            text += dates.string(*date).toUtf8();
        text += '\t';
        text += money.string(transaction->amount()).toUtf8();
        text += transaction->taxFlag() ? "\tX\t" : "\t\t";
        text += transaction->payTo().toUtf8();
        text += '\t';
        text += transaction->xfor().toUtf8();
        text += '\t';
        text += transaction->categoryName().toUtf8();
        text += '\n';
        if (++done % kBetweenReports == 0 && progress && !progress(done))
            return std::nullopt;
    }
    return text;
}

std::optional<QString> CVWriteExport(const QString& path, const QByteArray& text, const QStringList& spared) {
    return CVWriteOutputFile(
        path, [&text](QIODevice& output) { return output.write(text) == text.size(); }, spared);
}
