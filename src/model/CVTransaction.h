#pragma once

#include "base/QBDate.h"
#include "model/CVDocumentText.h"
#include "model/CVParsing.h"

#include <memory>
#include <optional>

class CVDocument;

/// One income or expense entry. Owned by its document, shared with whoever lists it; identity matters, not equality.
/// Invariant: `mXMLString` is null or the exact element text of the present field values. A null text and an empty one
/// differ; a record that a file left without a date has none.
class CVTransaction final : public CVParsingObject {
public:
    /// Lets only `initForFileRead` make a record with nothing set.
    class FileRead {
        friend class CVTransaction;
        FileRead() = default;
    };

    /// Today, empty texts, no category.
    CVTransaction();
    /// Nothing set: no date, null texts. The reader fills it.
    [[nodiscard]] static std::shared_ptr<CVTransaction> initForFileRead();
    /// `count` such transactions in one allocation.
    [[nodiscard]] static std::shared_ptr<CVTransaction[]> initForFileRead(std::size_t count);
    explicit CVTransaction(FileRead /*passkey*/) {}

    [[nodiscard]] std::optional<QBDate> effectiveDate() const {
        return mEffectiveDate == kNoDate ? std::nullopt : std::optional(mEffectiveDate);
    }
    [[nodiscard]] const QString& payTo() const { return mPayToFrom; }
    [[nodiscard]] const QString& xfor() const { return mFor; }
    [[nodiscard]] double amount() const { return mAmount; }
    [[nodiscard]] quint32 categoryID() const { return mCategoryID; }
    [[nodiscard]] quint32 transactionSetID() const { return mTransactionSetID; }
    [[nodiscard]] bool taxFlag() const { return mTaxFlag; }
    [[nodiscard]] bool userFlag() const { return mUserFlag; }
    [[nodiscard]] CVDocument* document() const { return mDocument; }

    /// The setters do nothing for an unchanged value and announce nothing; they remove from texts what XML cannot
    /// carry. Whoever changes the date keeps the document's order and bounds right.
    void setEffectiveDate(const std::optional<QBDate>& date);
    void setPayTo(const QString& text);
    /// With a non-null paid-to text and a null "for" text the change is ignored; this dependence is deliberate.
    void setFor(const QString& text);
    /// A difference of at most 0.000001 counts as none.
    void setAmount(double amount);
    void setCategoryID(quint32 id);
    void setTransactionSetID(quint32 id);
    void setTaxFlag(bool flag);
    void setUserFlag(bool flag);
    void setDocument(CVDocument* document) { mDocument = document; }

    /// The name of its category; null when the document has none with its ID.
    [[nodiscard]] QString categoryName() const;
    /// The name of its set; null when the document has none with its ID.
    [[nodiscard]] QString transactionSetName() const;

    /// The element text with its line feed: the cached one, else rendered into the arena and cached.
    [[nodiscard]] const CVTextSlice& xmlRepresentation(CVTextArena& arena) const;
    [[nodiscard]] QByteArrayView xmlRepresentation() const;

    void parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                     CVXMLAttributes attributes) override;
    void parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) override;

private:
    void readAttributes(CVParsingDelegate& delegate, CVXMLAttributes attributes);
    void readData(CVParsingDelegate& delegate, CVXMLAttributes attributes);
    static void readText(CVParsingDelegate& delegate, const char* name, QString& text);
    [[nodiscard]] char* write(char* out) const;

    /// A day that no record has. A std::optional takes 8 bytes more, which are 8 MB of 1,000,000 transactions.
    static inline const QBDate kNoDate = QBDate::dateWithYear(-2'000'000'000, 1, 1);

    QBDate mEffectiveDate = kNoDate;
    double mAmount = 0;
    quint32 mCategoryID = 0;
    quint32 mTransactionSetID = 0;
    bool mTaxFlag = false;
    bool mUserFlag = false;
    QString mPayToFrom;
    QString mFor;
    mutable CVTextSlice mXMLString;
    CVDocument* mDocument = nullptr;
};
