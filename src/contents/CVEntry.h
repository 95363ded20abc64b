#pragma once

#include "base/QBDate.h"

#include <QString>

#include <memory>
#include <optional>

class CVDocument;
class CVTransaction;

/// The contents of the entry strip when it is recorded.
struct CVEntry {
    QBDate date = QBDate::date();
    /// In currency units.
    double amount = 0;
    QString payTo;
    QString xfor;
    /// The name of a category, which need not exist yet.
    QString category;
    bool taxFlag = false;

    bool operator==(const CVEntry&) const = default;
};

enum class CVEntryField { Date, Amount, PayTo, For, Category, Tax };

/// The entry that records a transaction once more on the day `date`.
[[nodiscard]] CVEntry CVEntryOf(const CVTransaction& transaction, const QBDate& date);

/// Why an entry is refused: the field to be corrected, and the texts of the alert.
struct CVEntryProblem {
    CVEntryField field;
    QString title;
    QString message;
};

/// The first problem, in the order amount, recipient, category; absent for an entry that can be recorded. Texts are not
/// trimmed: blanks count as a text.
[[nodiscard]] std::optional<CVEntryProblem> CVFirstProblemOfEntry(const CVEntry& entry);

/// Adds an entry without problems to the document's current set; makes the category when there is none of that name.
/// Does not save.
std::shared_ptr<CVTransaction> CVInsertEntry(CVDocument& document, const CVEntry& entry);
