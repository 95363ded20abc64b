#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVExaminedSource.h"
#include "storage/CVStorageLog.h"

#include <QByteArrayView>
#include <QFile>

#include <utility>

/// The part of the parser that examines bytes and files before anything is parsed.

namespace {

constexpr qsizetype kVectorCharacters = 24;

constexpr QByteArrayView kSaltStart("<Salt><Specified>");
constexpr QByteArrayView kSaltEnd("</Specified>");
constexpr QByteArrayView kCipherStart("<CipherValue>");
constexpr QByteArrayView kCipherEnd("</CipherValue>");

CVFileExamination examinedStart(QByteArrayView bytes) {
    CVFileExamination start;
    start.add(bytes.first(std::min(bytes.size(), CVFileExamination::kFewestBytes)));
    return start;
}

QString tooShortMessage() {
    return CVDocumentParserDelegate::tr("the file is shorter than %1 bytes").arg(CVFileExamination::kFewestBytes);
}

QByteArray decoded(QByteArrayView text) {
    return QByteArray::fromBase64(text.toByteArray());
}

} // namespace

bool CVDocumentParserDelegate::prepareFromData(QByteArray bytes) {
    const CVFileExamination start = examinedStart(bytes);
    if (start.isTooShort()) {
        mErrorMessage = tooShortMessage();
        return false;
    }
    if (start.looksEncrypted()) {
        readEncryptedParts(bytes);
        return true;
    }
    return keepPlainBytes(std::move(bytes));
}

bool CVDocumentParserDelegate::prepareFromDevice(QIODevice& device) {
    auto source = std::make_unique<CVExaminedSource>(device, mProgress);
    source->examineStart();
    if (breakOff(*source))
        return false;
    if (source->examination().isTooShort()) {
        mErrorMessage = tooShortMessage();
        return false;
    }
    if (!source->examination().looksEncrypted()) {
        mSource = std::move(source);
        return true;
    }
    const QByteArray bytes = source->readAll();
    if (breakOff(*source))
        return false;
    readEncryptedParts(bytes);
    return true;
}

/// Notes why the reading ended if the reason says nothing about the file; returns whether that is so.
bool CVDocumentParserDelegate::breakOff(const CVExaminedSource& source) {
    const CVExaminedSource::Stop stop = source.stop();
    mWasCancelled = stop == CVExaminedSource::Stop::Cancelled;
    const bool isOutOfMemory = mGaveUp && stop == CVExaminedSource::Stop::None;
    mWasBrokenOff = mWasCancelled || isOutOfMemory || stop == CVExaminedSource::Stop::ReadError;
    if (mWasCancelled)
        mErrorMessage = tr("the reading was cancelled");
    else if (isOutOfMemory)
        mErrorMessage = tr("there was not enough memory to read the file");
    else
        mErrorMessage = source.readError();
    return mWasBrokenOff;
}

bool CVDocumentParserDelegate::prepareFromFile(const QString& path, CVReadError* error) {
    CVReadError ignored;
    CVReadError& problem = error ? *error : ignored;
    problem.path = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem.code = CVReadError::kNoSuchFile;
        problem.message = file.errorString();
        return false;
    }
    QByteArray bytes = file.size() <= CVExaminedSource::kLargestFile ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError) {
        problem.code = CVReadError::kUnknownRead;
        problem.message = file.errorString();
        qCWarning(lcStorage, "Error loading document: %s", qUtf8Printable(problem.message));
        return false;
    }
    if (examinedStart(bytes).looksEncrypted()) {
        if (bytes.isValidUtf8() && readEncryptedParts(bytes))
            return true;
        problem.code = CVReadError::kCorruptFile;
        problem.message = tr("the file is encrypted and damaged");
        return false;
    }
    if (file.size() <= CVExaminedSource::kLargestFile)
        return keepPlainBytes(std::move(bytes));
    problem.code = CVReadError::kUnknownRead;
    problem.message = tr("the file is larger than 2 GiB");
    return false;
}

bool CVDocumentParserDelegate::keepPlainBytes(QByteArray bytes) {
    if (bytes.size() > CVExaminedSource::kLargestFile) {
        mErrorMessage = tr("the file is larger than 2 GiB");
        return false;
    }
    _co_decrypted_data = std::move(bytes);
    return true;
}

/// False when the end of the cipher is missing. The parts are kept but never used, because the program decrypts
/// nothing.
bool CVDocumentParserDelegate::readEncryptedParts(QByteArrayView text) {
    _co_encrypted = true;
    mErrorMessage = tr("the file is encrypted, and Corvella cannot open encrypted files");
    const qsizetype saltStart = text.indexOf(kSaltStart);
    if (saltStart < 0) {
        qCWarning(lcStorage, "Error loading document: Could not find start of Password Salt.");
        return true;
    }
    const qsizetype salt = saltStart + kSaltStart.size();
    const qsizetype saltEnd = text.indexOf(kSaltEnd, salt);
    if (saltEnd < 0) {
        qCWarning(lcStorage, "Error loading document: Could not find end of Password Salt.");
        return true;
    }
    _co_salt_data = decoded(text.sliced(salt, saltEnd - salt));
    const qsizetype cipherStart = text.indexOf(kCipherStart, saltEnd);
    if (cipherStart < 0) {
        qCWarning(lcStorage, "Error loading encrypted document: could not find start of encrypted data");
        return true;
    }
    const qsizetype vector = cipherStart + kCipherStart.size();
    const qsizetype vectorEnd = std::min(vector + kVectorCharacters, text.size());
    _co_iv_data = decoded(text.sliced(vector, vectorEnd - vector));
    const qsizetype cipherEnd = text.lastIndexOf(kCipherEnd);
    if (cipherEnd < 0) {
        qCWarning(lcStorage, "Error loading encrypted document: could not find end of encrypted data");
        return false;
    }
    if (cipherEnd >= vectorEnd)
        _co_encrypted_data = decoded(text.sliced(vectorEnd, cipherEnd - vectorEnd));
    return true;
}
