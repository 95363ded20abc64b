#include "app/CVDisplayRefusal.h"

#include "commands/CVErrorLine.h"

#include <QByteArrayList>
#include <QMutex>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

/// The state of CVDisplayRefusal, which is global because the toolkit's message handler takes no context.
struct State {
    QString sentence;
    int status = 0;
    std::function<void()> cleanUp;
    QByteArrayList remarks;
    QtMessageHandler former = nullptr;
    /// The toolkit also writes messages from its own threads.
    QMutex mutex;
};

State& theState() {
    static State state;
    return state;
}

void keepOrEnd(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    State& state = theState();
    const QMutexLocker lock(&state.mutex);
    if (type != QtFatalMsg) {
        state.remarks.append(qFormatLogMessage(type, context, message).toLocal8Bit());
        return;
    }
    if (!state.sentence.isEmpty()) {
        QTextStream errors(stderr);
        CVWriteErrorLine(errors, state.sentence);
    }
    qInstallMessageHandler(state.former);
    state.cleanUp();
    // The process ends without destructors, because the toolkit is only half constructed.
    std::_Exit(state.status);
}

} // namespace

CVDisplayRefusal::CVDisplayRefusal(const QString& sentence, int status, std::function<void()> cleanUp) {
    State& state = theState();
    state.sentence = sentence;
    state.status = status;
    state.cleanUp = std::move(cleanUp);
    state.former = qInstallMessageHandler(keepOrEnd);
}

CVDisplayRefusal::~CVDisplayRefusal() {
    State& state = theState();
    qInstallMessageHandler(state.former);
    const QMutexLocker lock(&state.mutex);
    for (const QByteArray& remark : std::as_const(state.remarks))
        std::fprintf(stderr, "%s\n", remark.constData());
    state.remarks.clear();
}
