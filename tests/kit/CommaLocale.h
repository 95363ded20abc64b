#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// Makes the C library write numbers with a decimal comma as long as this object lives. On a machine without such a
/// locale, a German one is built in a scratch folder; if that fails too, `isInForce` is false and the test must be
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
