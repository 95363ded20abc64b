#pragma once

#include <iosfwd>

class QBDate;
class QByteArray;
class QByteArrayView;
class QString;

/// How failed assertions show values: texts in quotes and a null one as "(null)", dates in the form of the data file.
void PrintTo(const QString& text, std::ostream* out);
void PrintTo(const QByteArray& bytes, std::ostream* out);
void PrintTo(const QByteArrayView& bytes, std::ostream* out);
void PrintTo(const QBDate& date, std::ostream* out);
