#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstddef>
#include <functional>
#include <vector>

/// A line of an entry.
struct CVQIFField {
    /// The letter that says what the line holds; null where the line goes on with the text above.
    QChar code = {};
    QStringView text = {};
};

using CVQIFFields = std::vector<CVQIFField>;

/// What stands in front of a `^`.
struct CVQIFEntry {
    /// The line of the file in which it begins, from 1.
    int line = 0;
    /// Its place in the accounts of the file.
    std::size_t account = 0;
    CVQIFFields fields = {};

    /// As it stands in the file.
    [[nodiscard]] QStringList cells() const;
};

struct CVQIFAccount {
    /// In the words of the file: the account's own name, else its type. May be empty.
    QString name = {};
    /// Whether it has a name of its own.
    bool isNamed = false;
};

/// A QIF file taken apart. Its entries point into the text that it was made of.
struct CVQIFFile {
    /// Those with entries, in the order of the file.
    std::vector<CVQIFAccount> accounts = {};
    /// The payments of all accounts.
    std::vector<CVQIFEntry> entries = {};
    /// How many investments there are, which are no payments.
    int investments = 0;
    /// Whether there are lists, such as those of categories.
    bool hasLists = false;
    /// Whether there are more lines than are read.
    bool isTooLong = false;
};

/// Asked every now and then with the characters that are done; true: stop.
using CVStopReadingQIF = std::function<bool(qsizetype done)>;

[[nodiscard]] CVQIFFile CVTakeQIFApart(QStringView text, const CVStopReadingQIF& stop = {});

/// Whether a line of the text is a header.
[[nodiscard]] bool CVHasQIFHeader(QStringView text);
/// Whether a text without a header begins with an entry that has a day and an amount.
[[nodiscard]] bool CVBeginsAsQIF(QStringView text);

/// Whether a record has a day and an amount.
[[nodiscard]] bool CVIsQIFPayment(const CVQIFFields& fields);

/// The text of a day with a year of two digits: "1/ 2' 5" is "1/ 2'05".
[[nodiscard]] QString CVQIFDayText(QStringView text);
