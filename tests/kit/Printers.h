#pragma once

#include <iosfwd>

class QBDate;
class QByteArray;
class QByteArrayView;
class QString;

/// How failed assertions print values: texts in quotation marks, a null text as "(null)", dates in the form of the data
/// file.
void PrintTo(const QString& text, std::ostream* out);
void PrintTo(const QByteArray& bytes, std::ostream* out);
void PrintTo(const QByteArrayView& bytes, std::ostream* out);
void PrintTo(const QBDate& date, std::ostream* out);
