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

/// The least that replaces a file without a moment in which none is there.
bool replaceBare(const QByteArray& path, const QByteArray& bytes) {
    const QByteArray fresh = path + ".new";
    const int file = ::open(fresh.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    const bool written = ::write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size();
    const bool synced = ::fsync(file) == 0;
    ::close(file);
    return written && synced && std::rename(fresh.constData(), path.constData()) == 0;
}

} // namespace

void CVMeasureSave(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    const CVDocumentText text = CVDocumentXMLRepresentation(fixture.document());
    const QByteArray bytes = text.joined();
    const CVScratchFolder scratch;
    const QString path = scratch.file("safe.corvella");
    const QByteArray barePath = QFile::encodeName(scratch.file("bare.corvella"));
    bool saved = true;
    CVComparison comparison;
    comparison.clock = CVClock::Wall;
    // Finishes earlier writes to the disk, which would slow down the next one.
    comparison.reset = [] { ::sync(); };
    comparison.yardstick = [&] { saved = replaceBare(barePath, bytes) && saved; };
    comparison.subject = [&] {
        saved = CVWriteDocumentText(path, text, CVFileSignature::of(path), CVFormerFile::Dropped).ok() && saved;
    };
    comparison.run(state);
    if (!saved)
        state.SkipWithError("a file could not be written");
}
