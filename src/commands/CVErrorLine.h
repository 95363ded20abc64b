#pragma once

#include <QTextStream>

/// One line for whoever reads the errors of a command, with the program's name before it.
inline void CVWriteErrorLine(QTextStream& errors, const QString& message) {
    errors << "corvella: " << message << Qt::endl;
}
