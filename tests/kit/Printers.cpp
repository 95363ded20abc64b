#include "kit/Printers.h"

#include "base/QBDate.h"

#include <QByteArrayView>
#include <QString>

#include <ostream>

void PrintTo(const QString& text, std::ostream* out) {
    if (text.isNull())
        *out << "(null)";
    else
        *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QByteArray& bytes, std::ostream* out) {
    PrintTo(QByteArrayView(bytes), out);
}

void PrintTo(const QByteArrayView& bytes, std::ostream* out) {
    *out << '"' << std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())) << '"';
}

void PrintTo(const QBDate& date, std::ostream* out) {
    *out << date.corvellaXMLRepresentation().constData();
}
