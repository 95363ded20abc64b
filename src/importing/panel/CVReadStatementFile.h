#pragma once

#include "base/CVLatestWork.h"

#include <QByteArray>
#include <QString>

#include <utility>

/// The bytes of a statement's file, or why they cannot be read, in one sentence. The file is only read. Stops without
/// either once the bytes are no longer wanted.
[[nodiscard]] std::pair<QByteArray, QString> CVReadStatementFile(const QString& path,
                                                                 const CVLatestWork::IsWanted& isWanted);
