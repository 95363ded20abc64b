#pragma once

#include "base/CVFileResult.h"

#include <QByteArray>
#include <QIODevice>

/// Bytes on their way into an open file, or into whatever else takes them (a pipe, a terminal). Remembers the first
/// failure, whoever ignores it, and writes nothing after it: `finish` cannot report success for less than everything.
/// References the descriptor, which is not closed.
class CVFileSink final : public QIODevice {
public:
    explicit CVFileSink(int descriptor);

    /// Writes what is still held back and brings all of it to the disk, as far as there is one.
    [[nodiscard]] CVFileResult finish();

    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char* bytes, qint64 size) override;
    qint64 writeData(const char* bytes, qint64 size) override;

private:
    bool drain(const char* bytes, qint64 size);
    bool drainHeld();

    int mDescriptor;
    /// Small pieces, until there are enough of them.
    QByteArray mHeld;
    CVFileResult mResult;
};
