#pragma once

#include "base/QBDate.h"
#include "model/CVExpenseFrequency.h"
#include "model/CVParsing.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

class CVDocument;

/// One spending or income category: its name, the ID by which transactions refer to it, and the user's estimate.
/// Owned by its document. Everything but name, ID, frequency and target is computed after loading.
class CVCategory final : public CVParsingObject {
    Q_DECLARE_TR_FUNCTIONS(CVCategory)

public:
    /// The dates of its earliest and latest transaction are `today` until transactions widen them.
    explicit CVCategory(const QBDate& today = QBDate::date());

    /// The names of the categories that a new document starts with, read once and kept; absent when the resource
    /// "CategoryNames" cannot be read, in which case the next call tries again.
    [[nodiscard]] static std::optional<QStringList> standardCategoryNames();

    [[nodiscard]] const QString& categoryName() const { return mCategoryName; }
    [[nodiscard]] quint32 uniqueID() const { return mUniqueID; }
    [[nodiscard]] qint64 expenseFrequency() const { return mExpenseFrequency; }
    [[nodiscard]] double expenseTarget() const { return mExpenseTarget; }
    [[nodiscard]] const QBDate& earliestTransactionDate() const { return mEarliestTransaction; }
    [[nodiscard]] const QBDate& latestTransactionDate() const { return mLatestTransaction; }
    [[nodiscard]] CVDocument* document() const { return mDocument; }
    [[nodiscard]] const QString& billFrequency() const { return mBillFrequency; }
    [[nodiscard]] qint64 budgetExpenseFrequency() const { return mBudgetExpenseFrequency; }
    [[nodiscard]] double total() const { return mTotal; }
    [[nodiscard]] double monthly() const { return mMonthly; }
    [[nodiscard]] double biWeekly() const { return mBiWeekly; }
    [[nodiscard]] double weekly() const { return mWeekly; }
    [[nodiscard]] quint32 monthlyPeriods() const { return mMonthlyPeriods; }
    [[nodiscard]] quint32 biWeeklyPeriods() const { return mBiWeeklyPeriods; }
    [[nodiscard]] quint32 weeklyPeriods() const { return mWeeklyPeriods; }
    [[nodiscard]] quint64 numberOfTransactions() const { return mNumberOfTransactions; }

    /// Removes from the name what XML cannot carry, and announces a changed name through the document. The caller sorts
    /// the document's categories again.
    void setCategoryName(const QString& name);
    void setUniqueID(quint32 id) { mUniqueID = id; }
    void setExpenseFrequency(qint64 code) { mExpenseFrequency = code; }
    void setExpenseTarget(double target) { mExpenseTarget = target; }
    void setEarliestTransactionDate(const QBDate& date) { mEarliestTransaction = date; }
    void setLatestTransactionDate(const QBDate& date) { mLatestTransaction = date; }
    void setDocument(CVDocument* document) { mDocument = document; }
    void setBillFrequency(const QString& label) { mBillFrequency = label; }
    void setBudgetExpenseFrequency(qint64 code) { mBudgetExpenseFrequency = code; }
    void setTotal(double total) { mTotal = total; }
    void setMonthly(double amount) { mMonthly = amount; }
    void setBiWeekly(double amount) { mBiWeekly = amount; }
    void setWeekly(double amount) { mWeekly = amount; }
    void setMonthlyPeriods(quint32 count) { mMonthlyPeriods = count; }
    void setBiWeeklyPeriods(quint32 count) { mBiWeeklyPeriods = count; }
    void setWeeklyPeriods(quint32 count) { mWeeklyPeriods = count; }
    void setNumberOfTransactions(quint64 count) { mNumberOfTransactions = count; }

    /// Widens the bounds to include `date`.
    void widenBounds(const QBDate& date) {
        if (date.comesBefore(mEarliestTransaction))
            mEarliestTransaction = date;
        if (date.comesAfter(mLatestTransaction))
            mLatestTransaction = date;
    }

    /// The element text, without a line feed.
    [[nodiscard]] QByteArray xmlRepresentation() const;

    void parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                     CVXMLAttributes attributes) override;
    void parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) override;

private:
    void readEstimates(CVParsingDelegate& delegate, CVXMLAttributes attributes);

    QString mCategoryName;
    qint64 mExpenseFrequency = CVExpenseFrequency::kWeekly;
    double mExpenseTarget = 0;
    quint32 mUniqueID = 0;
    QBDate mEarliestTransaction;
    QBDate mLatestTransaction;
    CVDocument* mDocument = nullptr;
    QString mBillFrequency;
    qint64 mBudgetExpenseFrequency = CVExpenseFrequency::kMonthly;
    double mTotal = 0;
    double mMonthly = 0;
    double mBiWeekly = 0;
    double mWeekly = 0;
    quint32 mMonthlyPeriods = 0;
    quint32 mBiWeeklyPeriods = 0;
    quint32 mWeeklyPeriods = 0;
    quint64 mNumberOfTransactions = 0;
};
