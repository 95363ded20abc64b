#include "model/CVCategory.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBNumberText.h"
#include "base/QBPropertyList.h"
#include "base/QBXMLText.h"
#include "model/CVAttribute.h"
#include "model/CVDocument.h"

#include <QFile>

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

/// Every attribute whose name begins with this is the frequency.
constexpr std::string_view kFrequencyPrefix = "freq";

void append(QByteArray& text, std::string_view words) {
    text.append(words.data(), static_cast<qsizetype>(words.size()));
}

} // namespace

CVCategory::CVCategory(const QBDate& today)
    : mCategoryName(QLatin1String(""))
    , mEarliestTransaction(today)
    , mLatestTransaction(today)
    , mBillFrequency(tr("M")) {}

std::optional<QStringList> CVCategory::standardCategoryNames() {
    static std::optional<QStringList> names;
    if (!names) {
        QFile resource(QStringLiteral(":/CategoryNames.plist"));
        if (resource.open(QIODevice::ReadOnly)) {
            const QVariant list = QBPropertyListFromData(resource.readAll());
            if (list.typeId() == QMetaType::QVariantList)
                names = list.toStringList();
        }
    }
    return names;
}

void CVCategory::setCategoryName(const QString& name) {
    const QString storable = xml_storableText(name);
    if (mCategoryName.isNull() ? storable.isNull() : mCategoryName == storable && !storable.isNull())
        return;
    mCategoryName = storable;
    if (mDocument)
        mDocument->notificationCenter().postNotification(QLatin1String(CVNotifications::kCategoryAddedRemoved));
}

QByteArray CVCategory::xmlRepresentation() const {
    const std::string_view frequency = CVExpenseFrequency::nameOfCode(mExpenseFrequency);
    std::array<char, QBNumberText::kMoneyBound> target{};
    const char* const targetEnd = QBNumberText::writeMoney(target.data(), mExpenseTarget);
    QByteArray text = "<Category id=\"" + QByteArray::number(mUniqueID) + "\">";
    xml_appendStringEncodedForXML(text, mCategoryName);
    append(text, R"(<ExpenseEstimates frequency=")");
    // "(null)" stands for a missing name and reads back as the unknown frequency.
    append(text, frequency.data() ? frequency : "(null)");
    append(text, R"(" target=")");
    text.append(target.data(), targetEnd - target.data());
    append(text, R"(" /></Category>)");
    return text;
}

void CVCategory::parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                             CVXMLAttributes attributes) {
    if (CVIsNamed(name, "Category")) {
        for (; attributes && *attributes; attributes += 2) {
            if (CVIsNamed(*attributes, "id"))
                mUniqueID = CVAttribute::toUnsigned(delegate, attributes);
            else
                delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
        }
        delegate.setStoringCharacters(true);
    } else if (CVIsNamed(name, "ExpenseEstimates")) {
        readEstimates(delegate, attributes);
    } else {
        delegate.setWorkingOnUnknownTag(true);
        delegate.setUnknownTag(name);
    }
}

void CVCategory::parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) {
    if (!CVIsNamed(name, "Category"))
        return;
    mCategoryName = delegate.tempParsingString();
    delegate.popParsingObjectForEndingElement(name);
}

void CVCategory::readEstimates(CVParsingDelegate& delegate, CVXMLAttributes attributes) {
    if (mExpenseFrequency != CVExpenseFrequency::kWeekly || mExpenseTarget != 0)
        delegate.notePartly(CVPartly::Repeated, "ExpenseEstimates", nullptr);
    bool hasFrequency = false;
    for (; attributes && *attributes; attributes += 2) {
        const std::string_view name = *attributes;
        const bool isFrequency = name.substr(0, kFrequencyPrefix.size()) == kFrequencyPrefix;
        if (isFrequency && std::exchange(hasFrequency, true))
            delegate.notePartly(CVPartly::Repeated, *attributes, nullptr);
        if (isFrequency)
            mExpenseFrequency = CVAttribute::toFrequency(delegate, attributes);
        else if (name == "target")
            mExpenseTarget = CVAttribute::toMoney(delegate, attributes);
        else
            delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
}
