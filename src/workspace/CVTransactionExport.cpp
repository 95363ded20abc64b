#include "workspace/CVTransactionExport.h"

#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/format/QBMoneyFormatter.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

namespace {

constexpr qsizetype kUsualLine = 60;
constexpr std::size_t kBetweenReports = 4096;

} // namespace

std::optional<QByteArray> CVExportedTransactions(std::span<CVTransaction* const> transactions,
                                                 const std::function<bool(std::size_t done)>& progress) {
    const QBDateFormatter dates;
    const QBMoneyFormatter money;
    QByteArray text;
    text.reserve(kUsualLine * static_cast<qsizetype>(transactions.size()));
    std::size_t done = 0;
    for (const CVTransaction* const transaction : transactions) {
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

namespace {

/// What is no file (a pipe, a terminal, another device) is written to as it stands there.
std::optional<QString> writeThrough(const QString& path, const QByteArray& text) {
    QFile target(path);
    const bool written = target.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::ExistingOnly) &&
                         target.write(text) == text.size();
    return written ? std::nullopt : std::optional(target.errorString());
}

} // namespace

std::optional<QString> CVWriteExport(const QString& path, const QByteArray& text) {
    if (const QFileInfo target(path); target.exists() && !target.isFile())
        return writeThrough(path, text);
    QSaveFile file(path);
    // Flushed and synced here, because commit() may drop the errors of its own flush.
    const bool written = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() &&
                         ::fsync(file.handle()) == 0;
    if (written && file.commit())
        return std::nullopt;
    return file.errorString();
}
