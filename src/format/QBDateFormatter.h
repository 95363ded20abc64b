#pragma once

#include "base/QBDate.h"
#include "format/QBLocale.h"
#include "format/QBLocaleDigits.h"

#include <QList>
#include <QString>

#include <optional>

/// Days in the short date format of its locale, or in another of that kind, written and read.
class QBDateFormatter final {
public:
    /// In the locale's short format.
    explicit QBDateFormatter(const QLocale& locale = QBDateLocaleInForce());
    /// In a format such as `shortDateFormat` gives, or a part of one.
    explicit QBDateFormatter(const QString& format, const QLocale& locale = QBDateLocaleInForce());

    /// The short format: runs of d, M and y, which stand for day, month and year, and the text between them.
    [[nodiscard]] static QString shortDateFormat(const QLocale& locale = QBDateLocaleInForce());

    /// A year that two digits would not bring back is written out, also where the locale writes two digits.
    [[nodiscard]] QString string(const QBDate& date) const;
    /// Writes the same behind `text`, without allocating where there is room for it.
    void append(QString& text, const QBDate& date) const;

    /// The day that `text` names: day, day and month, or day, month and year in the locale's order (or the year first,
    /// when it has four digits), with any usual separators. A missing month or year is the present one; two digits name
    /// a year from 79 back to 20 ahead. Absent for anything else, for a year of three digits, which is a slip, and for
    /// a day that does not exist.
    [[nodiscard]] std::optional<QBDate> parse(QStringView text) const;

    /// How many characters of `text` can be in no date at all: neither digits nor separators.
    [[nodiscard]] qsizetype strangersIn(QStringView text) const;

    /// What stands between day and month, without blanks.
    [[nodiscard]] const QString& dateSeparator() const { return mSeparator; }

private:
    enum class Field { Day, Month, Year };
    struct Piece {
        Field field;
        /// 2 digits show a year in short.
        int width;
        /// The text that follows the field.
        QString literal;
    };

    [[nodiscard]] static QList<Piece> pieces(const QString& format);
    static void widen(Piece& piece);
    void appendYear(QString& text, qint64 year, int width) const;
    [[nodiscard]] QList<Field> fields(qsizetype count, int digitsOfFirst) const;
    [[nodiscard]] bool isSeparator(char32_t character) const;

    QBLocaleDigits mDigits;
    /// That of when the formatter was made: the clock is too slow to be asked for each date of a table.
    qint64 mLatestYear;
    QList<Piece> mPieces;
    QString mSeparator;
};
