#pragma once

#include <QString>

#include <vector>

/// The words of a payee by which two spellings are the same: without regard to case and accents, and without the
/// numbers, dates, and words of cards and towns with which banks surround a name. Empty only when the payee has neither
/// a letter nor a digit.
class CVPayeeKey final {
public:
    /// The likeness from which on two payees are taken for the same.
    static constexpr double kLikely = 0.7;

    CVPayeeKey() = default;
    explicit CVPayeeKey(const QString& payee);

    /// The words with one blank between them.
    [[nodiscard]] const QString& text() const { return mText; }
    [[nodiscard]] const std::vector<QString>& words() const { return mWords; }
    [[nodiscard]] bool isEmpty() const { return mText.isEmpty(); }

    /// From 0 to 1, which means that both are the same; 0 where one is empty. Words that were cut off, mistyped or run
    /// together count, and words behind the whole of the shorter name count little against it.
    [[nodiscard]] double likeness(const CVPayeeKey& other) const;

    friend bool operator==(const CVPayeeKey& a, const CVPayeeKey& b) { return a.mText == b.mText; }

private:
    std::vector<QString> mWords;
    QString mText;
};
