#include "CVMemoryProbe.h"

#include "generator/CVDetachedDocument.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <unistd.h>

#include <cstdio>

namespace {

constexpr const char* kProbeOption = "--memory-probe";

QByteArray contents(const char* path) {
    QFile file{QLatin1String(path)};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double residentPeak() {
    for (const QByteArray& line : contents("/proc/self/status").split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6, line.size() - 6 - 2).trimmed().toDouble() * 1024;
    }
    return 0;
}

int probe(const QString& file, const QString& copy) {
    CVDetachedDocument document;
    CVDocumentFile dataFile({}, document.userDefaults());
    const double before = CVReadResidentMemory();
    if (dataFile.readFromURL(*document, file).outcome != CVLoadReport::Outcome::Loaded)
        return 1;
    document->sortTransactionsByDate();
    document->updateDates();
    const double loaded = CVReadResidentMemory() - before;
    const double peak = residentPeak() - before;
    if (!CVWriteDocumentText(copy, CVDocumentXMLRepresentation(*document)).ok())
        return 1;
    const double saved = CVReadResidentMemory() - before;
    std::printf("%.0f %.0f %.0f", loaded, peak, saved);
    return 0;
}

} // namespace

double CVReadResidentMemory() {
    const QList<QByteArray> pages = contents("/proc/self/statm").split(' ');
    return pages.value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE));
}

std::optional<CVMemoryUse> CVProbeMemory(const QString& file, const QString& copy) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(kProbeOption), file, copy});
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return std::nullopt;
    const QList<QByteArray> values = process.readAllStandardOutput().split(' ');
    if (values.size() != 3)
        return std::nullopt;
    return CVMemoryUse{values[0].toDouble(), values[1].toDouble(), values[2].toDouble()};
}

std::optional<int> CVRunMemoryProbe(const QStringList& arguments) {
    if (arguments.size() != 4 || arguments[1] != QLatin1String(kProbeOption))
        return std::nullopt;
    return probe(arguments[2], arguments[3]);
}
