#pragma once

#include <QTextStream>

/// Writes one line of a command's errors, with the program's name before it.
inline void CVWriteErrorLine(QTextStream& errors, const QString& message) {
    errors << "corvella: " << message << Qt::endl;
}
