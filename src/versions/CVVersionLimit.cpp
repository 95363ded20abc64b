#include "versions/CVVersionLimit.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"

namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
constexpr int kUsualMegabytes = 1024;
constexpr int kOff = -1;

} // namespace

qint64 CVVersionLimit(const QBUserDefaults& defaults) {
    const int megabytes = defaults.integerForKey(CVDefaultsKeys::kVersionLimit);
    if (megabytes < 0)
        return 0;
    return (megabytes == 0 ? kUsualMegabytes : megabytes) * kMegabyte;
}

void CVSetVersionLimit(QBUserDefaults& defaults, int megabytes) {
    defaults.setInteger(CVDefaultsKeys::kVersionLimit, megabytes <= 0 ? kOff : megabytes);
}
