#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QFile>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace {

bool syncFolder(const QByteArray& path) {
    const int folder = ::open(path.left(path.lastIndexOf('/')).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return false;
    const bool synced = ::fsync(folder) == 0;
    ::close(folder);
    return synced;
}

enum class Folder { NotSynced, Synced };

/// The least work that replaces a file without a moment at which no file is there. Unless the folder is synced, a crash
/// soon afterwards can bring the old file back.
bool replaceBare(const QByteArray& path, const QByteArray& bytes, Folder folder) {
    const QByteArray fresh = path + ".new";
    const int file = ::open(fresh.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    const bool written = ::write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size();
    const bool synced = ::fsync(file) == 0;
    ::close(file);
    return written && synced && std::rename(fresh.constData(), path.constData()) == 0 &&
           (folder == Folder::NotSynced || syncFolder(path));
}

void measureSave(benchmark::State& state, std::size_t transactions, Folder folder) {
    CVBudgetFixture fixture(transactions);
    const CVDocumentText text = CVDocumentXMLRepresentation(fixture.document());
    const QByteArray bytes = text.joined();
    const CVScratchFolder scratch;
    const QString path = scratch.file("safe.corvella");
    const QByteArray barePath = QFile::encodeName(scratch.file("bare.corvella"));
    bool saved = true;
    CVComparison comparison;
    comparison.clock = CVClock::Wall;
    // Finishes earlier writes, which would slow down the next measurement.
    comparison.reset = [] { ::sync(); };
    comparison.yardstick = [&] { saved = replaceBare(barePath, bytes, folder) && saved; };
    comparison.subject = [&] { saved = CVWriteDocumentText(path, text).ok() && saved; };
    comparison.run(state);
    if (!saved)
        state.SkipWithError("a file could not be written");
}

} // namespace

void CVMeasureSaveAgainstBare(benchmark::State& state, std::size_t transactions) {
    measureSave(state, transactions, Folder::NotSynced);
}

void CVMeasureSaveAgainstSynced(benchmark::State& state, std::size_t transactions) {
    measureSave(state, transactions, Folder::Synced);
}
