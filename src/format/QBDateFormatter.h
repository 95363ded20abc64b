#pragma once

#include "base/QBDate.h"
#include "format/QBLocale.h"
#include "format/QBLocaleDigits.h"

#include <QList>
#include <QString>

#include <optional>

/// Writes and reads days in the short date format of its locale or in a similar format.
class QBDateFormatter final {
public:
    /// Uses the locale's short format.
    explicit QBDateFormatter(const QLocale& locale = QBDateLocaleInForce());
    /// Uses a format such as `shortDateFormat` gives, or a part of one.
    explicit QBDateFormatter(const QString& format, const QLocale& locale = QBDateLocaleInForce());

    /// The short format: runs of d, M and y, which stand for day, month and year, and the text between them.
    [[nodiscard]] static QString shortDateFormat(const QLocale& locale = QBDateLocaleInForce());

    /// Writes all digits of a year that `parse` would not read back from two digits, even where the locale writes two.
    [[nodiscard]] QString string(const QBDate& date) const;

    /// The day that `text` names: day, day and month, or day, month and year in the locale's order (or the year first,
    /// when it has four digits), with any usual separators. A missing month or year is the present one; two digits name
    /// a year from 79 back to 20 ahead. Absent for anything else, for a year of three digits, which is a typing error,
    /// and for a day that does not exist.
    [[nodiscard]] std::optional<QBDate> parse(QStringView text) const;

    /// The number of characters of `text` that are neither digits nor separators, so that no date can hold them.
    [[nodiscard]] qsizetype countForeignCharacters(QStringView text) const;

    /// The text between day and month, without blanks.
    [[nodiscard]] const QString& dateSeparator() const { return mSeparator; }

private:
    enum class Field { Day, Month, Year };
    struct Piece {
        Field field;
        /// The least number of digits; 2 stands for the last two digits of a year.
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
    /// The latest year that two digits can name, as of when the formatter was made. Asking the clock for each of
    /// 100,000 dates takes 24 ms or more.
    qint64 mLatestYear;
    QList<Piece> mPieces;
    QString mSeparator;
};
