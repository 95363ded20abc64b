#pragma once

#include <QtGlobal>

class QBUserDefaults;

constexpr qint64 kCVMegabyte = 1024 * 1024;
/// How many megabytes the earlier versions may take as long as the user has not said otherwise.
constexpr int kCVUsualVersionMegabytes = 1024;

/// How many bytes the earlier versions may take; 0 when the user wants none to be kept.
[[nodiscard]] qint64 CVVersionLimit(const QBUserDefaults& defaults);
/// Stores that limit, in whole megabytes; 0 switches the keeping off.
void CVSetVersionLimit(QBUserDefaults& defaults, int megabytes);
