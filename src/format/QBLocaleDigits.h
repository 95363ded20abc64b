#pragma once

#include <QLocale>
#include <QString>

#include <string_view>

/// Writes numbers in the digits of a locale, character by character: nothing is allocated where `text` has room.
class QBLocaleDigits final {
public:
    explicit QBLocaleDigits(const QLocale& locale);

    /// Of `digits`, which are '0' to '9' alone.
    void append(QString& text, std::string_view digits) const;
    /// With zeros in front of a number that has fewer than `width` digits. A negative number has the locale's sign.
    void append(QString& text, qint64 number, int width) const;

    static void appendCharacter(QString& text, char32_t character);

private:
    char32_t mZero;
    QString mMinus;
};
