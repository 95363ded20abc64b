#pragma once

#include "base/QBDate.h"
#include "model/CVParsing.h"

#include <optional>

/// Reads the value of one attribute, at which `attribute` points, as leniently as each kind of value is read, and tells
/// the parser when something else stood there than what was understood.
namespace CVAttribute {

[[nodiscard]] quint32 toUnsigned(CVParsingDelegate& delegate, CVXMLAttributes attribute);
[[nodiscard]] double toMoney(CVParsingDelegate& delegate, CVXMLAttributes attribute);
/// True when the value begins with "1".
[[nodiscard]] bool toFlag(CVParsingDelegate& delegate, CVXMLAttributes attribute);
/// Absent when the value has another form than year/month/day or names no day.
[[nodiscard]] std::optional<QBDate> toDate(CVParsingDelegate& delegate, CVXMLAttributes attribute);
/// The code of a frequency's name; `CVExpenseFrequency::kUnknown` for any other value.
[[nodiscard]] qint64 toFrequency(CVParsingDelegate& delegate, CVXMLAttributes attribute);

/// Tells the parser that each of these attributes is unknown.
void noteUnknown(CVParsingDelegate& delegate, CVXMLAttributes attributes);

} // namespace CVAttribute
