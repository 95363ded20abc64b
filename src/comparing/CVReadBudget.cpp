#include "comparing/CVReadBudget.h"

#include "model/CVDocumentText.h"
#include "storage/CVDocumentReader.h"

#include <new>

CVReadBudget CVReadBudget::of(CVDocumentReader& reader, const CVDocumentText& text) {
    try {
        const auto budget = std::make_shared<CVDetachedDocument>();
        if (reader.readFromData(**budget, text.joined(), QLatin1String(CVDocumentReader::kXMLDocumentType)))
            return {budget, {}};
    } catch (const std::bad_alloc&) {
        return {nullptr, tooLittleMemory()};
    }
    return {nullptr, tr("it holds no budget that Corvella can read")};
}

CVReadBudget CVReadBudget::of(CVDocumentReader& reader, const QString& path) {
    try {
        const auto budget = std::make_shared<CVDetachedDocument>();
        const CVLoadReport report = reader.readFromURL(**budget, path);
        if (report.outcome == CVLoadReport::Outcome::Loaded)
            return {budget, {}};
        return {nullptr, report.reason.isEmpty() ? tr("it holds no budget that Corvella can read") : report.reason};
    } catch (const std::bad_alloc&) {
        return {nullptr, tooLittleMemory()};
    }
}
