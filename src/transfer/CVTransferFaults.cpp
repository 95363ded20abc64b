#include "transfer/CVTransferFaults.h"

QString CVTransferFaults::ofLine(int line, const QString& why) {
    return tr("Line %1 cannot be read: %2.").arg(QString::number(line), why);
}

QString CVTransferFaults::noDay(const QString& text) {
    return tr("%1 is no day of the form 2026-11-22").arg(quoted(text));
}

QString CVTransferFaults::noAmount(const QString& text) {
    return tr("%1 is no amount").arg(quoted(text));
}

QString CVTransferFaults::notStorable() {
    return tr("a text has a character that a budget cannot hold");
}

QString CVTransferFaults::quoted(const QString& text) {
    constexpr qsizetype kMost = 40;
    return tr("“%1”").arg(text.size() > kMost ? text.left(kMost) + u'…' : text);
}
