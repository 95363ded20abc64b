#pragma once

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "kit/Day.h"
#include "kit/Printers.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <QString>

#include <memory>
#include <optional>

/// Builds a document for a test, with its own notification centre and user defaults that are never saved. Records are
/// appended in the given order, as the reader of a file does, without sorting, new IDs or notifications. The document
/// lives as long as the builder.
class BudgetBuilder final {
public:
    struct Entry {
        std::optional<QBDate> date = {};
        double amount = 0;
        /// Null texts stay null.
        QString payTo = QLatin1String("");
        QString xfor = QLatin1String("");
        /// The name of a category that was added before; when empty, `categoryID` is used.
        QString category = {};
        quint32 categoryID = 0;
        /// The name of a set that was added before; when empty, `setID` is used.
        QString set = {};
        quint32 setID = 0;
        bool taxFlag = false;
        bool userFlag = false;
    };

    BudgetBuilder();
    BudgetBuilder(const BudgetBuilder&) = delete;
    BudgetBuilder& operator=(const BudgetBuilder&) = delete;

    BudgetBuilder& set(const QString& name, quint32 id);
    BudgetBuilder& currentSet(quint32 id);
    BudgetBuilder& category(const QString& name, quint32 id, qint64 frequency = CVExpenseFrequency::kWeekly,
                            double target = 0);
    BudgetBuilder& transaction(const Entry& entry);
    /// Sets the last issued ID.
    BudgetBuilder& lastID(quint32 id);
    /// Sorts the records into the document's order and computes the bounds, as after reading a file.
    BudgetBuilder& inOrder();

    [[nodiscard]] CVDocument& document() { return mDocument; }
    [[nodiscard]] QBNotificationCenter& notificationCenter() { return mNotificationCenter; }
    [[nodiscard]] QBUserDefaults& userDefaults() { return mUserDefaults; }
    /// The transaction at a position in the document.
    [[nodiscard]] const std::shared_ptr<CVTransaction>& transactionAt(std::size_t index) const;
    /// The first category or set of that name; stops the test program when there is none.
    [[nodiscard]] const std::shared_ptr<CVCategory>& categoryNamed(const QString& name) const;
    [[nodiscard]] const std::shared_ptr<CVTransactionSet>& setNamed(const QString& name) const;

private:
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVDocument mDocument;
};

/// A transaction that belongs to no document yet. The names of category and set are ignored.
[[nodiscard]] std::shared_ptr<CVTransaction> makeTransaction(const BudgetBuilder::Entry& entry);
