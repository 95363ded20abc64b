#include "importing/budgets/CVBudgetFileKind.h"

#include "transfer/CVReadTransfer.h"

#include <QXmlStreamReader>

namespace {

/// Reads only as far as the first element, so that nothing behind it matters.
bool isDataFile(const QByteArray& start) {
    QXmlStreamReader xml(start.left(kCVTellingBytes));
    while (!xml.atEnd() && !xml.hasError()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            return xml.name() == u"CorvellaDocument";
    }
    return false;
}

} // namespace

CVBudgetFileKind CVKindOfBudgetFile(const QByteArray& start) {
    if (isDataFile(start))
        return CVBudgetFileKind::DataFile;
    return CVIsTransfer(start.left(kCVTellingBytes)) ? CVBudgetFileKind::Transfer : CVBudgetFileKind::None;
}
