#include "transfer/CVTransferObjects.h"

bool CVTransferObjects::next() {
    if (mIsBroken || !leadsToObject())
        return false;
    mIsBroken = !takeObject();
    return !mIsBroken;
}

/// Goes behind what stands before an object. False at the end of the array.
bool CVTransferObjects::leadsToObject() {
    const char before = skipBlanks();
    mLine = mNextLine;
    const bool ends = mHasBegun && before == ']';
    const bool goesOn = before == (mHasBegun ? ',' : '[');
    ++mAt;
    if (ends || !goesOn) {
        mIsBroken = !ends || skipBlanks() != 0;
        return false;
    }
    const char first = skipBlanks();
    mLine = mNextLine;
    if (!mHasBegun && first == ']') {
        ++mAt;
        mIsBroken = skipBlanks() != 0;
        return false;
    }
    mHasBegun = true;
    return true;
}

/// An object within an object ends at the same brace, and what is left of it is no JSON.
bool CVTransferObjects::takeObject() {
    const qsizetype first = mAt;
    if (skipBlanks() != '{')
        return false;
    bool isInString = false;
    for (; mAt < mText.size(); ++mAt) {
        const char c = mText[mAt];
        mNextLine += c == '\n' ? 1 : 0;
        if (c == '"')
            isInString = !isInString;
        else if (isInString && c == '\\')
            ++mAt;
        else if (!isInString && c == '}') {
            ++mAt;
            mObject = mText.sliced(first, mAt - first);
            return true;
        }
    }
    mAt = mText.size();
    return false;
}

char CVTransferObjects::skipBlanks() {
    for (; mAt < mText.size(); ++mAt) {
        const char c = mText[mAt];
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n')
            return c;
        mNextLine += c == '\n' ? 1 : 0;
    }
    mAt = mText.size();
    return 0;
}
