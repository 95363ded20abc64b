#include "model/CVTransaction.h"

#include "base/QBNumberText.h"
#include "base/QBXMLText.h"
#include "model/CVAttribute.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

constexpr double kAmountTolerance = 0.000001;

/// In bytes; more than the fixed words, the three numbers and the two flags of an element take.
constexpr qsizetype kFixedBound =
    200 + 3 * qsizetype(QBNumberText::kIntegerBound) + qsizetype(QBNumberText::kMoneyBound) + QBDate::kXMLBound;

char* put(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

} // namespace

CVTransaction::CVTransaction()
    : mEffectiveDate(QBDate::date())
    , mPayToFrom(QLatin1String(""))
    , mFor(QLatin1String("")) {}

std::shared_ptr<CVTransaction> CVTransaction::initForFileRead() {
    return std::make_shared<CVTransaction>(FileRead());
}

std::shared_ptr<CVTransaction[]> CVTransaction::initForFileRead(std::size_t count) {
    return std::make_shared<CVTransaction[]>(count, CVTransaction(FileRead()));
}

void CVTransaction::setEffectiveDate(const std::optional<QBDate>& date) {
    if (effectiveDate() == date)
        return;
    mEffectiveDate = date.value_or(kNoDate);
    mXMLString = {};
}

void CVTransaction::setPayTo(const QString& text) {
    const QString storable = xml_storableText(text);
    if (mPayToFrom.isNull() ? storable.isNull() : mPayToFrom == storable && !storable.isNull())
        return;
    mPayToFrom = storable;
    mXMLString = {};
}

void CVTransaction::setFor(const QString& text) {
    const QString storable = xml_storableText(text);
    if (!mPayToFrom.isNull() && (mFor.isNull() || (mFor == storable && !storable.isNull())))
        return;
    mFor = storable;
    mXMLString = {};
}

void CVTransaction::setAmount(double amount) {
    if (!(std::abs(amount - mAmount) > kAmountTolerance))
        return;
    mAmount = amount;
    mXMLString = {};
}

void CVTransaction::setCategoryID(quint32 id) {
    if (mCategoryID == id)
        return;
    mCategoryID = id;
    mXMLString = {};
}

void CVTransaction::setTransactionSetID(quint32 id) {
    if (mTransactionSetID == id)
        return;
    mTransactionSetID = id;
    mXMLString = {};
}

void CVTransaction::setTaxFlag(bool flag) {
    if (mTaxFlag == flag)
        return;
    mTaxFlag = flag;
    mXMLString = {};
}

void CVTransaction::setUserFlag(bool flag) {
    if (mUserFlag == flag)
        return;
    mUserFlag = flag;
    mXMLString = {};
}

QString CVTransaction::categoryName() const {
    const auto category = mDocument ? mDocument->getCategoryByUniqueID(mCategoryID) : nullptr;
    return category ? category->categoryName() : QString();
}

QString CVTransaction::transactionSetName() const {
    const auto set = mDocument ? mDocument->findTransactionSetFromID(mTransactionSetID) : nullptr;
    // For an ID that no set has the document answers with another set.
    return set && set->uniqueID() == mTransactionSetID ? set->transactionSetName() : QString();
}

const CVTextSlice& CVTransaction::xmlRepresentation(CVTextArena& arena) const {
    if (mXMLString.isNull()) {
        const qsizetype bound = kFixedBound + xml_encodedBound(mPayToFrom) + xml_encodedBound(mFor);
        mXMLString = arena.add(bound, [this](char* out) { return write(out); });
    }
    return mXMLString;
}

QByteArrayView CVTransaction::xmlRepresentation() const {
    CVTextArena arena;
    return xmlRepresentation(arena).bytes();
}

char* CVTransaction::write(char* out) const {
    out = put(out, R"(<Transaction categoryID=")");
    out = QBNumberText::writeUnsigned(out, mCategoryID);
    out = put(out, R"(" flag=")");
    *out++ = mUserFlag ? '1' : '0';
    out = put(out, R"(" tax_flag=")");
    *out++ = mTaxFlag ? '1' : '0';
    out = put(out, R"(" transaction_set_id=")");
    out = QBNumberText::writeUnsigned(out, mTransactionSetID);
    out = put(out, R"("><Data date=")");
    // "(null)" stands for a missing date and reads back as one.
    const auto date = effectiveDate();
    out = date ? date->writeXMLRepresentation(out) : put(out, "(null)");
    out = put(out, R"(" amount=")");
    out = QBNumberText::writeMoney(out, mAmount);
    out = put(out, R"(" /><PayToFrom>)");
    out = xml_writeEncodedForXML(out, mPayToFrom);
    out = put(out, "</PayToFrom><For>");
    out = xml_writeEncodedForXML(out, mFor);
    return put(out, "</For></Transaction>\n");
}

void CVTransaction::parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                                CVXMLAttributes attributes) {
    if (CVIsNamed(name, "Transaction")) {
        readAttributes(delegate, attributes);
    } else if (CVIsNamed(name, "Data")) {
        readData(delegate, attributes);
    } else if (CVIsNamed(name, "PayToFrom") || CVIsNamed(name, "For")) {
        CVAttribute::noteUnknown(delegate, attributes);
        delegate.setStoringCharacters(true);
    } else {
        delegate.setWorkingOnUnknownTag(true);
        delegate.setUnknownTag(name);
    }
}

void CVTransaction::parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) {
    if (CVIsNamed(name, "PayToFrom"))
        readText(delegate, name, mPayToFrom);
    else if (CVIsNamed(name, "For"))
        readText(delegate, name, mFor);
    else if (CVIsNamed(name, "Transaction"))
        delegate.popParsingObjectForEndingElement(name);
}

void CVTransaction::readAttributes(CVParsingDelegate& delegate, CVXMLAttributes attributes) {
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "categoryID"))
            mCategoryID = CVAttribute::toUnsigned(delegate, attributes);
        else if (CVIsNamed(*attributes, "flag"))
            mUserFlag = CVAttribute::toFlag(delegate, attributes);
        else if (CVIsNamed(*attributes, "tax_flag"))
            mTaxFlag = CVAttribute::toFlag(delegate, attributes);
        else if (CVIsNamed(*attributes, "transaction_set_id"))
            mTransactionSetID = CVAttribute::toUnsigned(delegate, attributes);
        else
            delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
}

void CVTransaction::readData(CVParsingDelegate& delegate, CVXMLAttributes attributes) {
    if (mEffectiveDate != kNoDate || mAmount != 0)
        delegate.notePartly(CVPartly::Repeated, "Data", nullptr);
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "date"))
            mEffectiveDate = CVAttribute::toDate(delegate, attributes).value_or(kNoDate);
        else if (CVIsNamed(*attributes, "amount"))
            mAmount = CVAttribute::toMoney(delegate, attributes);
        else
            delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
}

void CVTransaction::readText(CVParsingDelegate& delegate, const char* name, QString& text) {
    if (!text.isEmpty())
        delegate.notePartly(CVPartly::Repeated, name, nullptr);
    text = delegate.tempParsingString();
}
