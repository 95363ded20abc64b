#pragma once

#include <QLocale>

/// Makes a locale the default one as long as this object lives, then restores the former locale.
class DefaultLocale final {
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(mPrevious); }
    DefaultLocale(const DefaultLocale&) = delete;
    DefaultLocale& operator=(const DefaultLocale&) = delete;

private:
    QLocale mPrevious;
};
