#pragma once

#include <QByteArray>
#include <QIODevice>

#include <limits>

/// An open file or pipe, whose bytes are in memory, with the troubles of real ones.
class TroubledDevice final : public QIODevice {
public:
    struct Troubles {
        /// The most bytes that one call gives.
        qint64 most = std::numeric_limits<qint64>::max();
        /// The position from which on every call fails.
        qint64 failsAt = std::numeric_limits<qint64>::max();
        /// The size to which the file is cut after the first call.
        qint64 cutTo = std::numeric_limits<qint64>::max();
        /// A pipe has neither size nor position.
        bool isPipe = false;
        /// The bytes begin anew whenever they end.
        bool isEndless = false;
    };

    explicit TroubledDevice(QByteArray bytes) : TroubledDevice(std::move(bytes), Troubles()) {}
    TroubledDevice(QByteArray bytes, Troubles troubles);

    [[nodiscard]] bool isSequential() const override { return mTroubles.isPipe; }
    [[nodiscard]] qint64 size() const override { return mTroubles.isPipe ? 0 : mBytes.size(); }
    bool seek(qint64 offset) override;

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    QByteArray mBytes;
    Troubles mTroubles;
    qint64 mAt = 0;
};
