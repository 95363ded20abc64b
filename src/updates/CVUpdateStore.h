#pragma once

#include "updates/CVUpdateReply.h"

#include <QDateTime>

class QBUserDefaults;

/// What the update check keeps in the user defaults. Main thread only, as the defaults are.
class CVUpdateStore final {
public:
    /// `version` is that of the running program. The defaults outlive the store.
    CVUpdateStore(QBUserDefaults& defaults, QString version);

    /// The offer of a newer version that was made to this version; one made to another version is stale, and removed.
    [[nodiscard]] std::optional<CVUpdateEntry> currentOffer();
    void removeOffer();

    /// Takes in the reply to a check that was finished at that time (empty bytes: none came). False when it is not
    /// usable, which is noted; nothing else changes then.
    bool keepReply(const QByteArray& reply, const QDateTime& time);
    /// Whether the last check got no usable reply.
    [[nodiscard]] bool lastCheckFailed() const;

private:
    QBUserDefaults& mDefaults;
    QString mVersion;
};

/// When the last successful check was finished; invalid when there was none or the time cannot be read.
[[nodiscard]] QDateTime CVLastUpdateCheck(const QBUserDefaults& defaults);
