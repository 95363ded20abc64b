#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>

class QLocalSocket;

/// The connection of one that calls this program: reads one small message and hangs up on whoever is another user, says
/// something else or too much, or takes too long. Owns the socket and deletes itself at the end.
class CVIncomingCall final : public QObject {
    Q_OBJECT

public:
    /// What a second start says, and what it is answered.
    static constexpr const char* kShow = "show\n";
    static constexpr const char* kShown = "shown\n";
    static constexpr qint64 kLongestMessage = 64;

    CVIncomingCall(QLocalSocket* socket, std::chrono::milliseconds patience, QObject* parent);

    void hangUp();

signals:
    /// The user has started the program once more. The caller is answered when the receivers have returned.
    void showRequested();

private:
    void read();

    QLocalSocket* mSocket;
    QTimer mPatience;
    QByteArray mMessage;
    bool mIsMet = false;
};
