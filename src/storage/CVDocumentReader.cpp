#include "storage/CVDocumentReader.h"

#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVExaminedSource.h"

#include <QFile>

#include <new>
#include <utility>

bool CVDocumentReader::isAccepted(const QString& type) {
    return type == QLatin1String(kDocumentType) || type == QLatin1String(kXMLDocumentType);
}

CVLoadReport CVDocumentReader::readFromURL(CVDocument& document, const QString& path) {
    // The signature is taken before reading, so that a file that changes meanwhile does not count as read.
    const auto signature = CVFileSignature::of(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {CVLoadReport::Outcome::NotRead, path, file.errorString()};
    CVLoadReport report = readFromOpenFile(document, file);
    report.path = path;
    if (report.outcome == CVLoadReport::Outcome::Loaded)
        report.signature = signature;
    return report;
}

CVLoadReport CVDocumentReader::readFromOpenFile(CVDocument& document, QIODevice& file) {
    // A file that is too large is not read at all.
    if (file.size() > CVExaminedSource::kLargestFile)
        return {CVLoadReport::Outcome::NotRead, {}, tr("the file is larger than 2 GiB")};
    CVLoadReport report{CVLoadReport::Outcome::Unreadable, {}, {}};
    if (mProgress && !mProgress(0)) {
        report.outcome = CVLoadReport::Outcome::Cancelled;
        return report;
    }
    bool read = false;
    mWasCancelled = false;
    mWasBrokenOff = true;
    try {
        CVDocumentParserDelegate parser(&document);
        parser.setProgress(mProgress);
        read = parse(parser, parser.prepareFromDevice(file));
        report.reason = mReason;
    } catch (const std::bad_alloc&) {
        report.reason = tr("there is not enough memory to read the file");
        document.abandonParsingData();
    }
    if (mWasCancelled)
        report.outcome = CVLoadReport::Outcome::Cancelled;
    else if (mWasBrokenOff)
        report.outcome = CVLoadReport::Outcome::NotRead;
    else if (read)
        report.outcome = mReason.isEmpty() ? CVLoadReport::Outcome::Loaded : CVLoadReport::Outcome::NoBudget;
    if (report.outcome == CVLoadReport::Outcome::Loaded)
        report.partly = mPartly;
    return report;
}

bool CVDocumentReader::readFromData(CVDocument& document, QByteArray bytes, const QString& type) {
    mReason.clear();
    if (!isAccepted(type))
        return false;
    CVDocumentParserDelegate parser(&document);
    parser.setProgress(mProgress);
    return parse(parser, parser.prepareFromData(std::move(bytes)));
}

bool CVDocumentReader::parse(CVDocumentParserDelegate& parser, bool isPrepared) {
    const bool read = isPrepared && !parser.isEncrypted() && parser.parseDocumentData();
    mReason = parser.errorMessage();
    mPartly = parser.partlyRead();
    mWasCancelled = parser.wasCancelled();
    mWasBrokenOff = parser.wasBrokenOff();
    if (read && !parser.foundRoot())
        mReason = tr("the file is XML but holds no Corvella budget");
    return read;
}
