#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

/// Takes comma-separated text (RFC 4180) apart, row by row. The text outlives it.
class CVTransferRows final {
public:
    explicit CVTransferRows(QByteArrayView text) : mText(text) {}

    /// Goes to the next row that is not empty; false at the end, and where a quotation mark is out of place.
    [[nodiscard]] bool next();

    /// The cells of the row, without their quotation marks.
    [[nodiscard]] const std::vector<QByteArray>& cells() const { return mCells; }
    /// The line in which the row begins, from 1.
    [[nodiscard]] int line() const { return mLine; }
    /// Whether a quotation mark is out of place in the row.
    [[nodiscard]] bool isBroken() const { return mIsBroken; }

private:
    void readRow();
    [[nodiscard]] QByteArray readCell();
    [[nodiscard]] QByteArray readQuotedCell();
    void skipLineEnd();
    [[nodiscard]] bool isAtEnd() const { return mAt == mText.size(); }
    [[nodiscard]] bool endsCell() const;

    QByteArrayView mText;
    qsizetype mAt = 0;
    int mNextLine = 1;
    int mLine = 0;
    bool mIsBroken = false;
    std::vector<QByteArray> mCells;
};
