#include "transfer/CVReadTransfer.h"

#include "transfer/CVReadTransferCSV.h"
#include "transfer/CVReadTransferJSON.h"
#include "transfer/CVTransferFaults.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct ReadTransferText {
    Q_DECLARE_TR_FUNCTIONS(CVReadTransfer)
};

/// Spreadsheets put the mark before what they save.
QByteArrayView withoutMark(const QByteArray& bytes) {
    constexpr QByteArrayView kFirst("\xEF\xBB\xBF");
    const QByteArrayView text(bytes);
    return text.startsWith(kFirst) ? text.sliced(kFirst.size()) : text;
}

/// The first line, from 1, that is not valid UTF-8.
int lineOfInvalidText(QByteArrayView text) {
    int line = 1;
    qsizetype first = 0;
    for (qsizetype end = text.indexOf('\n'); end >= 0; end = text.indexOf('\n', first)) {
        if (!text.sliced(first, end - first).isValidUtf8())
            return line;
        first = end + 1;
        ++line;
    }
    return line;
}

} // namespace

bool CVIsTransfer(const QByteArray& bytes) {
    const QByteArrayView text = withoutMark(bytes);
    return CVIsTransferCSV(text) || CVIsTransferJSON(text);
}

CVTransferredBudget CVReadTransfer(const QByteArray& bytes, const std::function<bool()>& stop) {
    const QByteArrayView text = withoutMark(bytes);
    const bool isCSV = CVIsTransferCSV(text);
    if (!isCSV && !CVIsTransferJSON(text))
        return {.problem = ReadTransferText::tr("The file has no transactions that Corvella has exported.")};
    if (!text.isValidUtf8())
        return {.problem =
                    CVTransferFaults::ofLine(lineOfInvalidText(text), ReadTransferText::tr("it is no UTF-8 text"))};
    return isCSV ? CVReadTransferCSV(text, stop) : CVReadTransferJSON(text, stop);
}
