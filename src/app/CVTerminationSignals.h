#pragma once

#include <QObject>

#include <array>

/// SIGTERM, SIGINT and SIGHUP, brought into the event loop. Those that were ignored at the start stay so. At most one
/// object at a time; when it goes, the signals end the program as usual again.
class CVTerminationSignals final : public QObject {
    Q_OBJECT

public:
    CVTerminationSignals();
    ~CVTerminationSignals() override;

signals:
    void received();

private:
    void drain();

    /// What a handler writes and the event loop reads.
    std::array<int, 2> mPipe{-1, -1};
};
