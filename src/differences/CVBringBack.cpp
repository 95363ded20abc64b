#include "differences/CVBringBack.h"

#include "differences/CVTakeDifferences.h"

int CVBringBack(CVDocument& present, const CVDocument& version, const CVBudgetDifferences& chosen) {
    CVTakeDifferences taking(present, version, CVBudgetDifferences::since(version, present),
                             CVRenamedCategory::IsAnother);
    taking.take(chosen);
    return taking.finish();
}
