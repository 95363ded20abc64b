#pragma once

#include "lock/CVBudgetLock.h"
#include "preferences/CVPreferenceHost.h"
#include "widgets/CVAlerts.h"

#include <QTime>

#include <optional>

/// The messages about a budget that another program has open, or may have.
namespace CVLockMessages {

/// When the user is asked.
enum class Asked { AtStart, ForOtherFile, ForReplacing, ToEdit };

/// Says who has the budget at `dataFile` open. Default opens it read-only, other tries again, alternate leaves it; the
/// further button, which only a lock that cannot be judged has, opens it all the same. Where the budget is to be
/// replaced, or is open read-only already, default tries again. `triedAgain` is the time of the attempt that this alert
/// led to; absent when it is asked for the first time.
[[nodiscard]] CVAlert held(const CVBudgetLock::Attempt& attempt, const QString& dataFile, Asked asked,
                           std::optional<QTime> triedAgain);
/// Whether the default button of `held` opens the budget read-only.
[[nodiscard]] bool offersReadOnly(Asked asked);
/// Asks once more before a lock that cannot be judged is overridden: default does it.
[[nodiscard]] CVAlert overridden(Asked asked);
/// Says in the read-only window why nothing can be changed. `triedAgain` is the time of the last attempt to edit.
[[nodiscard]] QString readOnly(const std::optional<CVLockHolder>& holder, std::optional<QTime> triedAgain);
/// Says in the status line that another program has taken the lock.
[[nodiscard]] QString lost(const CVLockHolder& holder);

} // namespace CVLockMessages
