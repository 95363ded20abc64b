#pragma once

#include "budget/CVCents.h"
#include "model/CVFetchAhead.h"
#include "shared/base/QBMoney.h"

#include <optional>

/// The amounts of transactions, added one after another as doubles and rounded to two places once, at the end.
template <typename Pointers>
[[nodiscard]] double CVSumRoundedOnce(const Pointers& transactions) {
    double sum = 0;
    for (std::size_t i = 0; i < transactions.size(); ++i)
        sum += CVFetchAhead(transactions, i).amount();
    return RoundDoubleToTwoPlaces(sum);
}

/// A sum that is rounded to two places once, at its end, added up in whole cents: then the order of the amounts does
/// not matter, and amounts can be added to a sum that was there before. It stands for the sum of the doubles, added one
/// after another in any order, and says nothing where their errors might lead to another cent.
class CVAmountSum final {
public:
    void add(double amount) {
        if (!(std::abs(amount) <= kExactAmount)) {
            mIsExact = false;
            return;
        }
        const qint64 cents = CVCents::nearest(amount);
        mIsExact = mIsExact && CVCents::inUnits(cents) == amount;
        mCents += cents;
        mSize += std::abs(cents);
        ++mCount;
    }

    /// Bit for bit the rounded sum of the doubles; absent where that cannot be promised.
    [[nodiscard]] std::optional<double> roundedOnce() const {
        // Each addition is wrong by at most half a unit in the last place of a number no larger than all sizes
        // together.
        const double size = CVCents::inUnits(mSize);
        const double error = static_cast<double>(mCount) * size * 0x1p-53;
        if (!mIsExact || error > kHarmlessError)
            return std::nullopt;
        return CVCents::inUnits(mCents);
    }

private:
    static constexpr double kExactAmount = 0x1p30;
    /// A little less than half a cent, in units: the scaling of the rounding errs by less than the rest.
    static constexpr double kHarmlessError = 0.0045;

    qint64 mCents = 0;
    /// All amounts added up without their signs, in cents.
    qint64 mSize = 0;
    qint64 mCount = 0;
    bool mIsExact = true;
};
