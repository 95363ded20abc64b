#pragma once

#include "updates/CVUpdateReply.h"

#include <QDateTime>

class QBUserDefaults;

/// Keeps the results of update checks in the user defaults. Main thread only, as the defaults are.
class CVUpdateStore final {
public:
    /// `version` is that of the running program. The defaults outlive the store.
    CVUpdateStore(QBUserDefaults& defaults, QString version);

    /// The offer of a newer version that was made to this version. Removes an offer that was made to another version,
    /// because it is stale.
    [[nodiscard]] std::optional<CVUpdateEntry> currentOffer();
    void removeOffer();

    /// Stores the reply to a check that finished at that time; empty bytes mean that there was none. False when the
    /// reply is not usable; only that failure is stored then.
    bool keepReply(const QByteArray& reply, const QDateTime& time);
    /// Whether the last check got no usable reply.
    [[nodiscard]] bool lastCheckFailed() const;

private:
    QBUserDefaults& mDefaults;
    QString mVersion;
};

/// When the last successful check was finished; invalid when there was none or the time cannot be read.
[[nodiscard]] QDateTime CVTimeOfLastUpdateCheck(const QBUserDefaults& defaults);
