#include "differences/CVBringIn.h"

#include "differences/CVTakeDifferences.h"
#include "model/CVDocument.h"

#include <algorithm>

int CVBringIn(CVDocument& present, const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& chosen,
              CVVersionReason reason) {
    CVTakeDifferences taking(present, merged, CVBudgetDifferences::between(merged, present, &ours),
                             CVRenamedCategory::IsTheSame);
    taking.removeTransactions(chosen);
    taking.take(chosen);
    taking.removeRecords(chosen);
    if (taking.count() == 0)
        return 0;
    present.setUniqueID(std::max(present.uniqueID(), merged.uniqueID()));
    present.askForVersion(reason);
    return taking.finish();
}
