#include "budget/CVRoundedSum.h"

#include "shared/base/QBMoney.h"

void CVRoundedSum::addRounding(double amount) {
    const double sum = RoundDoubleToTwoPlaces(value() + amount);
    if (std::abs(sum) <= kExactAmount) {
        mCents = CVCents::nearest(sum);
    } else {
        mCents = kBeyond;
        mBeyond = sum;
    }
}
