#include "files/CVWriteOutputFile.h"

#include "files/CVFileSink.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct OutputFileText {
    Q_DECLARE_TR_FUNCTIONS(CVWriteOutputFile)
};

std::optional<QString> failureIn(const CVFileResult& result) {
    return result.ok() ? std::nullopt : std::optional(result.error);
}

std::optional<QString> writeThrough(const QString& path, const CVFileContent& write) {
    const int target = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (target < 0)
        return CVFileResult::ofLastCall().error;
    auto failure = CVWriteOutput(target, write);
    if (::close(target) != 0 && !failure)
        failure = CVFileResult::ofLastCall().error;
    return failure;
}

/// Why the path must not be written to; absent when it may be. Output would replace a budget or be appended to it.
std::optional<QString> refusal(const QString& path, const QStringList& spared) {
    for (const QString& file : spared) {
        if (CVIsSameFile(path, file))
            return OutputFileText::tr("it is the data file that holds a budget");
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> CVWriteOutputFile(const QString& path, const CVFileContent& write, const QStringList& spared,
                                         CVNewFile access) {
    if (auto reason = refusal(path, spared))
        return reason;
    if (const QFileInfo target(path); target.exists() && !target.isFile())
        return writeThrough(path, write);
    return failureIn(CVReplaceFile(path, write, access));
}

std::optional<QString> CVWriteOutput(int descriptor, const CVFileContent& write, const QStringList& spared) {
    if (auto reason = refusal(QStringLiteral("/proc/self/fd/%1").arg(descriptor), spared))
        return reason;
    CVFileSink sink(descriptor);
    // Bytes that were written before the writer gave up cannot be taken back.
    (void)write(sink);
    return failureIn(sink.finish());
}
