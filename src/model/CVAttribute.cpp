#include "model/CVAttribute.h"

#include "base/QBWholeNumber.h"
#include "model/CVExpenseFrequency.h"

#include <string_view>

namespace CVAttribute {

namespace {

/// What this program writes for a date or a frequency that it does not have.
constexpr std::string_view kNull = "(null)";

void noteUnlessNull(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const std::string_view value = attribute[1];
    if (!value.empty() && value != kNull)
        delegate.notePartly(CVPartly::Value, attribute[0], attribute[1]);
}

} // namespace

quint32 toUnsigned(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const auto [number, isWhole] = QBWholeNumber::readUnsigned(attribute[1]);
    if (!isWhole)
        delegate.notePartly(CVPartly::Value, attribute[0], attribute[1]);
    return number;
}

double toMoney(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const auto [number, isWhole] = QBWholeNumber::readMoney(attribute[1]);
    if (!isWhole)
        delegate.notePartly(CVPartly::Value, attribute[0], attribute[1]);
    return number;
}

bool toFlag(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const char* const value = attribute[1];
    const bool isWhole = value[0] == '\0' || ((value[0] == '0' || value[0] == '1') && value[1] == '\0');
    if (!isWhole)
        delegate.notePartly(CVPartly::Value, attribute[0], value);
    return value[0] == '1';
}

std::optional<QBDate> toDate(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const auto date = QBDate::optimizedDateWithCStringXMLFormat(attribute[1]);
    if (!date)
        noteUnlessNull(delegate, attribute);
    return date;
}

qint64 toFrequency(CVParsingDelegate& delegate, CVXMLAttributes attribute) {
    const qint64 code = CVExpenseFrequency::codeOfName(attribute[1]);
    if (code == CVExpenseFrequency::kUnknown)
        noteUnlessNull(delegate, attribute);
    return code;
}

void noteUnknown(CVParsingDelegate& delegate, CVXMLAttributes attributes) {
    for (; attributes && *attributes; attributes += 2)
        delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
}

} // namespace CVAttribute
