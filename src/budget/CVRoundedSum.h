#pragma once

#include "budget/CVCents.h"

/// A sum that is rounded to two places after every addition. Whole cents are added as integers, which leads to the same
/// double bit for bit: as long as neither number exceeds 2^45 cents, the errors of their doubles, of the addition and
/// of the scaling come to less than a thirtieth of a cent, so that rounding finds the sum of the cents.
class CVRoundedSum final {
public:
    void add(double amount) {
        if (std::abs(amount) <= kExactAmount && mCents >= -kExactCents && mCents <= kExactCents) {
            const qint64 cents = CVCents::nearest(amount);
            if (CVCents::inUnits(cents) == amount) {
                mCents += cents;
                return;
            }
        }
        addRounding(amount);
    }
    [[nodiscard]] double value() const { return mCents == kBeyond ? mBeyond : CVCents::inUnits(mCents); }

private:
    static constexpr qint64 kExactCents = qint64(1) << 45;
    static constexpr double kExactAmount = 0x1p38;
    static constexpr qint64 kBeyond = 2 * kExactCents + 1;

    void addRounding(double amount);

    /// `kBeyond` when the sum is none of the cents that are added as integers: then `mBeyond` is the sum.
    qint64 mCents = 0;
    double mBeyond = 0;
};
