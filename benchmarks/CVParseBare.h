#pragma once

#include <QByteArray>

/// The yardstick of reading a data file: the XML parser alone, with the reader's callbacks left empty. False when the
/// parser found a fault.
[[nodiscard]] bool CVParseBare(const QByteArray& bytes);
