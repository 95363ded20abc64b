#include "importing/CVNotesFile.h"

#include "files/CVFileAccess.h"
#include "files/CVFileSignature.h"
#include "files/CVMoveFile.h"
#include "files/CVReplaceFile.h"
#include "importing/CVNotesJSON.h"
#include "versions/CVKeptCopy.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

struct NotesFileText {
    Q_DECLARE_TR_FUNCTIONS(CVNotesFile)
};

/// Far more than the notes of a life take.
constexpr qint64 kLargestNotes = qint64{32} * 1024 * 1024;

/// Moves what stands at a path aside.
CVKeptCopy keepAside(const QString& path, CVKeptReason reason, const QDateTime& now) {
    auto kept = CVKeptCopy::keepFormer(path, path, reason, now);
    // It stands there still.
    if (kept.path == path)
        kept.path.clear();
    return kept;
}

} // namespace

CVNotesFile::CVNotesFile(const QString& dataFile) : mDataFile(CVFollowLinks(dataFile)) {
    if (!mDataFile.isEmpty())
        mPath = mDataFile + QStringLiteral(".import");
}

auto CVNotesFile::read() const -> Reading {
    Reading reading;
    const auto content = bytes(reading.problem);
    if (!content || !reading.problem.isEmpty())
        return reading;
    if (auto notes = CVNotesOfJSON(*content))
        reading.notes = std::move(*notes);
    else
        reading.problem = NotesFileText::tr("it does not hold what Corvella has written");
    return reading;
}

std::optional<QByteArray> CVNotesFile::bytes(QString& problem) const {
    if (mPath.isEmpty())
        return std::nullopt;
    const CVPathStatus status = CVPathStatus::of(mPath);
    problem = status.error;
    if (!status.signature)
        return std::nullopt;
    QFile file(mPath);
    // Opening a pipe would wait.
    if (!QFileInfo(mPath).isFile())
        problem = NotesFileText::tr("it is not a file");
    else if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        problem = file.errorString();
    else if (status.signature->size > kLargestNotes)
        problem = NotesFileText::tr("it is too large");
    if (!problem.isEmpty())
        return std::nullopt;
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    problem = CVCopyBytes(file.handle(), content).error;
    return content.data();
}

auto CVNotesFile::write(const CVImportNotes& notes, const QDateTime& now) const -> Writing {
    if (mPath.isEmpty())
        return {{NotesFileText::tr("the links to the data file lead nowhere")}};
    Writing writing;
    if (!read().problem.isEmpty()) {
        const CVKeptCopy kept = keepAside(mPath, CVKeptReason::Unreadable, now);
        if (kept.path.isEmpty())
            return {kept.result};
        writing.kept = kept.path;
    }
    writing.error = writeBytes(CVJSONOfNotes(notes)).error;
    return writing;
}

CVFileResult CVNotesFile::writeBytes(const QByteArray& bytes) const {
    CVReplaceResult replacing = CVReplaceFile(
        mPath, [&bytes](QIODevice& output) { return output.write(bytes) == bytes.size(); },
        CVFileAccess::of(mDataFile));
    return {std::move(replacing.error)};
}

CVFileResult CVNotesFile::moveTo(const CVNotesFile& other, const QDateTime& now) const {
    if (mPath == other.mPath || mPath.isEmpty() || other.mPath.isEmpty())
        return {};
    QString problem;
    const auto content = bytes(problem);
    const CVPathStatus there = CVPathStatus::of(other.mPath);
    if (!problem.isEmpty() || !there.error.isEmpty())
        return {problem.isEmpty() ? there.error : problem};
    if (there.signature) {
        const CVKeptCopy kept = keepAside(other.mPath, CVKeptReason::ReplacedWhenMoved, now);
        if (kept.path.isEmpty())
            return kept.result;
    }
    if (!content)
        return {};
    CVFileResult writing = other.writeBytes(*content);
    if (!writing.ok())
        return writing;
    QFile file(mPath);
    return file.remove() ? CVFileResult() : CVFileResult{file.errorString()};
}
