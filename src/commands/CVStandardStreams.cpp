#include "commands/CVStandardStreams.h"

#include "commands/CVErrorLine.h"
#include "files/CVWriteOutputFile.h"

#include <QCoreApplication>
#include <QIODevice>

#include <fcntl.h>
#include <unistd.h>

namespace CVStandardStreams {

namespace {

struct StandardStreamsText {
    Q_DECLARE_TR_FUNCTIONS(CVStandardStreams)
};

} // namespace

void openClosedStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) >= 0)
            continue;
        // ::open takes the lowest free number, which is that of the stream. The mode is the opposite of the stream's,
        // so that its use fails.
        if (::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
            return;
    }
}

int write(const CVFileContent& content, const QStringList& spared, QTextStream& errors) {
    return tellOutcome(CVWriteOutput(STDOUT_FILENO, content, spared), errors);
}

int write(const QByteArray& text, const QStringList& spared, QTextStream& errors) {
    return write([&text](QIODevice& output) { return output.write(text) == text.size(); }, spared, errors);
}

int tellOutcome(const std::optional<QString>& failure, QTextStream& errors) {
    if (!failure)
        return 0;
    CVWriteErrorLine(errors, StandardStreamsText::tr("standard output could not be written: %1").arg(*failure));
    return 1;
}

} // namespace CVStandardStreams
