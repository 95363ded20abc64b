#pragma once

#include <QByteArray>

/// The bytes of data/budget.corvella, a small budget as this version of the program writes it.
[[nodiscard]] QByteArray sampleFile();
