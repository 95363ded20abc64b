#pragma once

#include "storage/CVFileExamination.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>
#include <limits>
#include <optional>

class QIODevice;

/// The bytes of a data file on their way to the parser: reads them from a file, a pipe or memory in pieces, and
/// examines each piece before it is handed out. References the device, which is open and outlives the source.
class CVExaminedSource final {
    Q_DECLARE_TR_FUNCTIONS(CVExaminedSource)

public:
    /// Why the source gives no more bytes although the device may have more.
    enum class Stop {
        None,
        Cancelled,
        /// The device failed, or has more than `kLargestFile` bytes.
        ReadError,
        /// The next piece holds an element that would take the parser hours.
        AbsurdElement
    };

    /// In bytes. More are refused, because the parser counts in ints.
    static constexpr qint64 kLargestFile = std::numeric_limits<int>::max();
    /// In bytes. Small enough that a reading is cancelled at once, and large enough that the calls to the device cost
    /// nothing.
    static constexpr qsizetype kPieceSize = qsizetype(64) * 1024;

    /// Reads from the present position of the device. `progress` (or none) is called before each piece but the first
    /// with the part that the parser has taken so far, from 0 to 1, and cancels by answering false. It is not called
    /// for a pipe, whose size nobody knows.
    explicit CVExaminedSource(QIODevice& device, std::function<bool(double part)> progress = {});

    /// Reads ahead until the start of the bytes has been examined; these bytes are handed out later.
    void examineStart();
    /// Copies the next `size` bytes to `buffer` and returns their number: fewer only at the end, and 0 when the source
    /// has stopped. A pipe gives what it happens to hold; libxml2 takes such short pieces for the end of a tag.
    [[nodiscard]] qsizetype read(char* buffer, qsizetype size);
    /// All bytes that have not been handed out yet.
    [[nodiscard]] QByteArray readAll();
    /// Examines the bytes that have not been handed out and drops them: the parser may end before they do.
    void examineRest();

    [[nodiscard]] Stop stop() const { return mStop; }
    /// Why it stopped, for a person; empty without a read error.
    [[nodiscard]] const QString& readError() const { return mReadError; }
    /// The examination of all bytes read so far.
    [[nodiscard]] const CVFileExamination& examination() const { return mExamination; }
    /// The number of bytes that the device had at first; absent for a pipe.
    [[nodiscard]] const std::optional<qint64>& size() const { return mSize; }

private:
    void readNextPiece();
    void readPiece();
    [[nodiscard]] bool reportProgress() const;

    QIODevice& mDevice;
    std::function<bool(double part)> mProgress;
    std::optional<qint64> mSize;
    CVFileExamination mExamination;
    /// The bytes read from the device; those before `mTaken` have been handed out.
    QByteArray mPiece;
    qsizetype mTaken = 0;
    qint64 mRead = 0;
    bool mIsAtEnd = false;
    Stop mStop = Stop::None;
    QString mReadError;
};
