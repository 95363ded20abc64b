#pragma once

#include "versions/CVVersionName.h"

/// An earlier version of the data file, a plain data file beside it.
struct CVVersion {
    QString path;
    CVVersionName name;
    /// In bytes.
    qint64 size = 0;
};
