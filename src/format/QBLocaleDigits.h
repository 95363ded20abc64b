#pragma once

#include <QLocale>
#include <QString>

#include <string_view>

/// Writes numbers in the digits of a locale, character by character, so that nothing is allocated where `text` has
/// room.
class QBLocaleDigits final {
public:
    explicit QBLocaleDigits(const QLocale& locale);

    /// Appends `digits`, which holds only '0' to '9'.
    void append(QString& text, std::string_view digits) const;
    /// Appends a number, with leading zeros up to `width` digits. A negative number has the locale's sign.
    void append(QString& text, qint64 number, int width) const;

    static void appendCharacter(QString& text, char32_t character);

private:
    char32_t mZero;
    QString mMinus;
};
