#include "importing/ofx/CVOFXSigns.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

/// The types that leave no doubt. Others, such as PAYMENT, ATM and XFER, are used for both.
constexpr std::array<QStringView, 6> kTypesOut{u"DEBIT", u"FEE", u"SRVCHG", u"POS", u"CHECK", u"DIRECTDEBIT"};
constexpr std::array<QStringView, 3> kTypesIn{u"CREDIT", u"DEP", u"DIV"};

int signOf(qint64 hundredths) {
    return hundredths > 0 ? 1 : hundredths < 0 ? -1 : 0;
}

} // namespace

CVOFXSigns::CVOFXSigns(const std::vector<CVOFXSignedEntry>& entries, bool isCard, const CVStatementMapping& known)
    : mKnown(known)
    , mIsCard(isCard) {
    count(entries);
    if (mKnown.positiveIsOut || mKnown.outMarker || !isDoubtful())
        mOpen = nullptr;
}

int CVOFXSigns::signOfType(const QString& type) const {
    if (std::find(kTypesOut.begin(), kTypesOut.end(), type) != kTypesOut.end() || type == mKnown.outMarker)
        return -1;
    return std::find(kTypesIn.begin(), kTypesIn.end(), type) != kTypesIn.end() ? 1 : 0;
}

/// The sign where there are no others to be contradicted by.
int CVOFXSigns::usualSignOfType(const QString& type) const {
    if (type == u"CASH" || type == u"REPEATPMT" || (type == u"PAYMENT" && !mIsCard))
        return -1;
    return type == u"DIRECTDEP" ? 1 : signOfType(type);
}

void CVOFXSigns::count(const std::vector<CVOFXSignedEntry>& entries) {
    for (const auto& [entry, hundredths] : entries) {
        const int sign = signOf(hundredths);
        const int expected = signOfType(entry->type);
        mHasNegative = mHasNegative || sign < 0;
        mHasPlus = mHasPlus || entry->amount.contains(u'+');
        mDebits += entry->type == u"DEBIT" ? 1 : 0;
        mCredits += entry->type == u"CREDIT" ? 1 : 0;
        mNeutral += sign != 0 && usualSignOfType(entry->type) == 0 ? 1 : 0;
        if (sign == 0 || expected == 0)
            continue;
        (expected > 0 ? mHasTypeIn : mHasTypeOut) = true;
        ++(sign == expected ? mAgreeing : mContradicting);
        if (sign != expected && !mOpen)
            mOpen = entry;
    }
}

bool CVOFXSigns::isDoubtful() const {
    constexpr int kMany = 9;
    if (mContradicting == 0 || hasTypesForSigns())
        return false;
    if (mAgreeing == 0 || !mHasNegative)
        return true;
    // Where all entries have one type, it was never meant to say anything.
    return mHasTypeIn && mHasTypeOut && mContradicting >= kMany * mAgreeing;
}

/// Whether no amount has a sign, and debits and credits stand beside each other. One debit alone may be one that was
/// paid back.
bool CVOFXSigns::hasTypesForSigns() const {
    constexpr int kFewestDebits = 2;
    return !mHasNegative && !mHasPlus && mDebits >= kFewestDebits && mCredits > 0 && mNeutral == 0;
}

std::optional<qint64> CVOFXSigns::signedAmount(const CVOFXSignedEntry& entry) const {
    const bool isTurned = mKnown.positiveIsOut.value_or(false);
    const bool hasNoSigns = !mHasNegative && mHasTypeIn && mHasTypeOut;
    const bool isByType = mKnown.outMarker || (isTurned && hasNoSigns) || (!mKnown.positiveIsOut && hasTypesForSigns());
    const int sign = mHasNegative ? signOfType(entry.entry->type) : usualSignOfType(entry.entry->type);
    if (isByType && sign != 0)
        return sign * std::abs(entry.hundredths);
    if (isTurned)
        return -entry.hundredths;
    if (!isByType)
        return entry.hundredths;
    if (!mHasNegative && entry.hundredths != 0)
        return std::nullopt;
    return mContradicting > mAgreeing ? -entry.hundredths : entry.hundredths;
}
