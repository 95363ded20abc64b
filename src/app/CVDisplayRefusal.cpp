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
struct Refusal {
    QString sentence;
    int status = 0;
    std::function<void()> cleanUp;
    QByteArrayList remarks;
    QtMessageHandler former = nullptr;
    /// The toolkit also writes messages from its own threads.
    QMutex mutex;
};

Refusal& refusal() {
    static Refusal only;
    return only;
}

void keepOrEnd(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    Refusal& asked = refusal();
    const QMutexLocker lock(&asked.mutex);
    if (type != QtFatalMsg) {
        asked.remarks.append(qFormatLogMessage(type, context, message).toLocal8Bit());
        return;
    }
    if (!asked.sentence.isEmpty()) {
        QTextStream errors(stderr);
        CVWriteErrorLine(errors, asked.sentence);
    }
    qInstallMessageHandler(asked.former);
    asked.cleanUp();
    // The process ends without destructors, because the toolkit is only half constructed.
    std::_Exit(asked.status);
}

} // namespace

CVDisplayRefusal::CVDisplayRefusal(const QString& sentence, int status, std::function<void()> cleanUp) {
    Refusal& asked = refusal();
    asked.sentence = sentence;
    asked.status = status;
    asked.cleanUp = std::move(cleanUp);
    asked.former = qInstallMessageHandler(keepOrEnd);
}

CVDisplayRefusal::~CVDisplayRefusal() {
    Refusal& asked = refusal();
    qInstallMessageHandler(asked.former);
    const QMutexLocker lock(&asked.mutex);
    for (const QByteArray& remark : std::as_const(asked.remarks))
        std::fprintf(stderr, "%s\n", remark.constData());
    asked.remarks.clear();
}
