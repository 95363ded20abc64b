#include "workspace/transactions/CVExportKinds.h"

#include "model/CVDocument.h"

#include <QCoreApplication>

#include <array>

namespace {

struct ExportKindText {
    Q_DECLARE_TR_FUNCTIONS(CVExportKinds)
};

struct KindOfFile {
    const char* name;
    const char* suffix;
    CVExportFormat format;
    CVShownSets sets;
};

constexpr std::array<KindOfFile, 5> kKindsOfFiles{{
    {QT_TRANSLATE_NOOP("CVExportKinds", "Text"), "txt", CVExportFormat::List, CVShownSets::Current},
    {QT_TRANSLATE_NOOP("CVExportKinds", "CSV, the lines shown"), "csv", CVExportFormat::CSV, CVShownSets::Current},
    {QT_TRANSLATE_NOOP("CVExportKinds", "CSV, all sets"), "csv", CVExportFormat::CSV, CVShownSets::All},
    {QT_TRANSLATE_NOOP("CVExportKinds", "JSON, the lines shown"), "json", CVExportFormat::JSON, CVShownSets::Current},
    {QT_TRANSLATE_NOOP("CVExportKinds", "JSON, all sets"), "json", CVExportFormat::JSON, CVShownSets::All},
}};

} // namespace

QList<CVExportKind> CVExportKinds(const CVDocument& document) {
    QList<CVExportKind> kinds;
    for (const KindOfFile& each : kKindsOfFiles) {
        if (each.sets == CVShownSets::Current || document.countOfTransactionSets() > 1)
            kinds.append({{ExportKindText::tr(each.name), QString::fromLatin1(each.suffix)}, each.format, each.sets});
    }
    return kinds;
}
