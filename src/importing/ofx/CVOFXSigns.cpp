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

CVOFXSigns::CVOFXSigns(const std::vector<CVOFXSignedEntry>& entries, const CVStatementMapping& known) : mKnown(known) {
    count(entries);
    if (mKnown.positiveIsOut || mKnown.outMarker || !isDoubtful())
        mOpen = nullptr;
}

int CVOFXSigns::signOfType(const QString& type) const {
    if (std::find(kTypesOut.begin(), kTypesOut.end(), type) != kTypesOut.end() || type == mKnown.outMarker)
        return -1;
    return std::find(kTypesIn.begin(), kTypesIn.end(), type) != kTypesIn.end() ? 1 : 0;
}

void CVOFXSigns::count(const std::vector<CVOFXSignedEntry>& entries) {
    for (const auto& [entry, hundredths] : entries) {
        const int sign = signOf(hundredths);
        const int expected = signOfType(entry->type);
        mHasNegative = mHasNegative || sign < 0;
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
    if (mContradicting == 0)
        return false;
    if (mAgreeing == 0 || !mHasNegative)
        return true;
    // Where all entries have one type, it was never meant to say anything.
    return mHasTypeIn && mHasTypeOut && mContradicting >= kMany * mAgreeing;
}

std::optional<qint64> CVOFXSigns::signedAmount(const CVOFXSignedEntry& entry) const {
    const int sign = signOfType(entry.entry->type);
    const bool isTurned = mKnown.positiveIsOut.value_or(false);
    const bool hasNoSigns = !mHasNegative && mHasTypeIn && mHasTypeOut;
    const bool isByType = mKnown.outMarker || (isTurned && hasNoSigns);
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
