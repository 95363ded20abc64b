#pragma once

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "model/CVDocument.h"

/// A document together with the objects that it refers to, for reading and writing budgets beside the one that is
/// shown, on any thread. Nothing observes its notifications and nothing saves it; the user's settings are neither read
/// nor written.
class CVDetachedDocument final {
public:
    CVDetachedDocument();

    [[nodiscard]] CVDocument& operator*() { return mDocument; }
    [[nodiscard]] CVDocument* operator->() { return &mDocument; }
    [[nodiscard]] QBUserDefaults& userDefaults() { return mUserDefaults; }

private:
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVDocument mDocument;
};
