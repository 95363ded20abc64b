#include "storage/SampleFile.h"

#include "base/CVBundle.h"
#include "storage/ScratchFiles.h"

QByteArray sampleFile() {
    QByteArray bytes = readFile(QStringLiteral(CORVELLA_SOURCE_DIR "/tests/storage/data/budget.corvella"));
    if (bytes.isEmpty())
        qFatal("data/budget.corvella is missing");
    const auto version = CVBundle::version();
    const QByteArray present(version.data(), static_cast<qsizetype>(version.size()));
    return bytes.replace(R"( app_version="1.0.0")", " app_version=\"" + present + '"');
}
