#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// Makes the C library write numbers with a decimal comma as long as this object lives. A machine without such a locale
/// gets a German one built in a scratch folder; where that fails too, `isInForce` is false and the test is to be
/// skipped.
class CommaLocale final {
public:
    CommaLocale();
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    [[nodiscard]] bool isInForce() const { return mInForce; }

private:
    QTemporaryDir mFolder;
    QByteArray mPrevious;
    bool mInForce = false;
};
