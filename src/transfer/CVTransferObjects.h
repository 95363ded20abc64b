#pragma once

#include <QByteArrayView>

/// Takes a JSON array of flat objects apart, object by object, so that each can be read and named by its line without
/// the whole being held as values. The text outlives it.
class CVTransferObjects final {
public:
    explicit CVTransferObjects(QByteArrayView text) : mText(text) {}

    /// Goes to the next object; false at the end, and where the array is broken.
    [[nodiscard]] bool next();

    /// The text of the object, with its braces; what stands between them may be anything.
    [[nodiscard]] QByteArrayView object() const { return mObject; }
    /// The line in which the object begins, or in which the array is broken, from 1.
    [[nodiscard]] int line() const { return mLine; }
    /// Whether something else than objects with commas between them stands there, or the end is missing.
    [[nodiscard]] bool isBroken() const { return mIsBroken; }

private:
    [[nodiscard]] bool leadsToObject();
    [[nodiscard]] bool takeObject();
    /// The next character that is no blank; 0 at the end.
    [[nodiscard]] char skipBlanks();

    QByteArrayView mText;
    QByteArrayView mObject;
    qsizetype mAt = 0;
    int mNextLine = 1;
    int mLine = 1;
    bool mHasBegun = false;
    bool mIsBroken = false;
};
