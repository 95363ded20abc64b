#include "versions/CVVersionLimit.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"

namespace {

constexpr int kOff = -1;

} // namespace

qint64 CVVersionLimit(const QBUserDefaults& defaults) {
    const int megabytes = defaults.integerForKey(CVDefaultsKeys::kVersionLimit);
    if (megabytes < 0)
        return 0;
    return (megabytes == 0 ? kCVUsualVersionMegabytes : megabytes) * kCVMegabyte;
}

void CVSetVersionLimit(QBUserDefaults& defaults, int megabytes) {
    defaults.setInteger(CVDefaultsKeys::kVersionLimit, megabytes <= 0 ? kOff : megabytes);
}
