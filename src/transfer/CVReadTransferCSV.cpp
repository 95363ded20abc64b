#include "transfer/CVReadTransferCSV.h"

#include "transfer/CVTransferCSV.h"
#include "transfer/CVTransferFaults.h"
#include "transfer/CVTransferProgress.h"
#include "transfer/CVTransferRows.h"
#include "transfer/CVTransferValues.h"
#include "transfer/CVTransferredRecords.h"

#include <QCoreApplication>
#include <QStringDecoder>

#include <algorithm>

namespace {

struct ReadTransferCSVText {
    Q_DECLARE_TR_FUNCTIONS(CVReadTransferCSV)
};

/// In the order of the header.
enum Column { Day, Amount, Category, PayTo, For, Tax, Flagged, Set, ColumnCount };
static_assert(ColumnCount == kCVTransferColumns.size());

/// QString::fromUtf8 would take a byte-order mark away, which is a character of the text.
QString textOf(const QByteArray& cell) {
    using Flag = QStringConverter::Flag;
    return QStringDecoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom).decode(cell);
}

std::string_view viewOf(const QByteArray& cell) {
    return {cell.constData(), static_cast<std::size_t>(cell.size())};
}

/// Reads a flag. Returns why it cannot be read, else an empty text, as all functions here do that fill something.
QString readFlag(const QByteArray& cell, bool& flag) {
    flag = cell == "yes";
    return flag || cell.isEmpty()
               ? QString()
               : ReadTransferCSVText::tr("%1 is neither yes nor empty").arg(CVTransferFaults::quoted(cell));
}

QString readDay(const QByteArray& cell, std::optional<QBDate>& day) {
    day = CVTransferValues::dayOfText(viewOf(cell));
    return day || cell.isEmpty() ? QString() : CVTransferFaults::noDay(cell);
}

QString readAmount(const QByteArray& cell, double& amount) {
    const auto read = CVTransferValues::amountOfText(viewOf(cell));
    amount = read.value_or(0);
    return read ? QString() : CVTransferFaults::noAmount(cell);
}

QString readLine(const std::vector<QByteArray>& cells, CVTransferLine& line) {
    if (cells.size() != ColumnCount)
        return ReadTransferCSVText::tr("it has %1 cells in place of %2").arg(cells.size()).arg(int(ColumnCount));
    line.category = textOf(cells[Category]);
    line.payTo = textOf(cells[PayTo]);
    line.xfor = textOf(cells[For]);
    line.set = textOf(cells[Set]);
    for (const QString& fault : {readDay(cells[Day], line.day), readAmount(cells[Amount], line.amount),
                                 readFlag(cells[Tax], line.taxFlag), readFlag(cells[Flagged], line.userFlag)}) {
        if (!fault.isEmpty())
            return fault;
    }
    return line.isStorable() ? QString() : CVTransferFaults::notStorable();
}

} // namespace

bool CVIsTransferCSV(QByteArrayView text) {
    // A file may be one line without an end.
    constexpr qsizetype kLongestHeader = 200;
    CVTransferRows rows(text.first(std::min(text.size(), kLongestHeader)));
    return rows.next() &&
           std::equal(rows.cells().begin(), rows.cells().end(), kCVTransferColumns.begin(), kCVTransferColumns.end());
}

CVTransferredBudget CVReadTransferCSV(QByteArrayView text, const std::function<bool()>& stop) {
    CVTransferRows rows(text);
    CVTransferredRecords records;
    // The header.
    (void)rows.next();
    for (std::size_t done = 1; rows.next(); ++done) {
        if (done % kCVBetweenTransferReports == 0 && stop && stop())
            return {};
        CVTransferLine line;
        if (const QString fault = readLine(rows.cells(), line); !fault.isEmpty())
            return {.problem = CVTransferFaults::ofLine(rows.line(), fault)};
        records.add(line);
    }
    if (rows.isBroken())
        return {.problem =
                    CVTransferFaults::ofLine(rows.line(), ReadTransferCSVText::tr("a quotation mark is out of place"))};
    return {.budget = records.finish()};
}
