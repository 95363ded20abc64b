#include "importing/budgets/CVReadBudgetFileKind.h"

#include <QFile>
#include <QFileInfo>

CVBudgetFileKind CVReadBudgetFileKind(const QString& path) {
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(path).isFile())
        return CVBudgetFileKind::None;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? CVKindOfBudgetFile(file.read(kCVTellingBytes)) : CVBudgetFileKind::None;
}
