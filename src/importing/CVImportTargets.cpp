#include "importing/CVImportTargets.h"

#include "importing/CVImportLine.h"

void CVChangeSide(CVImportLine& line, const CVImportTargets& targets) {
    line.isIncome = !line.isIncome;
    if (targets.income != CVImportTargets::Income::SameSet)
        line.hundredths = -line.hundredths;
}
