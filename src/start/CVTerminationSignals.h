#pragma once

#include <QObject>

#include <array>

/// Delivers SIGTERM, SIGINT and SIGHUP through the event loop. Signals that were ignored at the start stay ignored. At
/// most one object exists at a time; after its destruction the signals end the program as usual.
class CVTerminationSignals final : public QObject {
    Q_OBJECT

public:
    CVTerminationSignals();
    ~CVTerminationSignals() override;

signals:
    void received();

private:
    void drain();

    /// The pipe that the signal handler writes to and the event loop reads.
    std::array<int, 2> mPipe{-1, -1};
};
