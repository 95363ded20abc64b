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

/// Builds a document in the words of a test, with a notification centre and (forgetful) user defaults of its own.
/// Records are appended as they are given, as the reader of a file does: without order, IDs issued or announcements.
/// The document lives as long as the builder.
class BudgetBuilder final {
public:
    struct Entry {
        std::optional<QBDate> date = {};
        double amount = 0;
        /// Null texts stay null.
        QString payTo = QLatin1String("");
        QString xfor = QLatin1String("");
        /// The name of a category given before; without one `categoryID` counts.
        QString category = {};
        quint32 categoryID = 0;
        /// The name of a set given before; without one `setID` counts.
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
    /// The last ID issued.
    BudgetBuilder& lastID(quint32 id);
    /// Brings the records into the document's order and computes the bounds, as happens after a file is read.
    BudgetBuilder& inOrder();

    [[nodiscard]] CVDocument& document() { return mDocument; }
    [[nodiscard]] QBNotificationCenter& notificationCenter() { return mNotificationCenter; }
    [[nodiscard]] QBUserDefaults& userDefaults() { return mUserDefaults; }
    /// By position in the document.
    [[nodiscard]] const std::shared_ptr<CVTransaction>& transactionAt(std::size_t index) const;
    /// The first category or set of that name; stops the test program when there is none.
    [[nodiscard]] const std::shared_ptr<CVCategory>& categoryNamed(const QString& name) const;
    [[nodiscard]] const std::shared_ptr<CVTransactionSet>& setNamed(const QString& name) const;

private:
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVDocument mDocument;
};

/// A transaction that belongs to no document yet. A name of a category or set counts for nothing here.
[[nodiscard]] std::shared_ptr<CVTransaction> makeTransaction(const BudgetBuilder::Entry& entry);
