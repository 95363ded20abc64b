#pragma once

#include "files/CVFileResult.h"

#include <QByteArray>
#include <QIODevice>

/// Writes bytes to an open file, a pipe or a terminal. Remembers the first failure and writes nothing after it: even
/// when the caller ignores a failure, `finish` reports success only if every byte was written. Does not close the
/// descriptor.
class CVFileSink final : public QIODevice {
public:
    explicit CVFileSink(int descriptor);

    /// Writes the bytes that are still held back and syncs a file to the disk.
    [[nodiscard]] CVFileResult finish();

    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char* bytes, qint64 size) override;
    qint64 writeData(const char* bytes, qint64 size) override;

private:
    bool drain(const char* bytes, qint64 size);
    bool drainHeld();

    int mDescriptor;
    /// Collects small pieces, so that they cost few system calls.
    QByteArray mHeld;
    CVFileResult mResult;
};
