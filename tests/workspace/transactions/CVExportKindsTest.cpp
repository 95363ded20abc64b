#include "workspace/transactions/CVExportKinds.h"

#include "kit/BudgetBuilder.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

QStringList offered(const CVDocument& document) {
    QStringList kinds;
    for (const CVExportKind& kind : CVExportKinds(document))
        kinds << kind.file.name + " *." + kind.file.suffix;
    return kinds;
}

TEST(CVExportKinds, BeginWithTheListAndOfferAllSetsWhereThereAreSeveral) {
    const QStringList ofOne{"Text *.txt", "CSV, the lines shown *.csv", "JSON, the lines shown *.json"};
    BudgetBuilder budget;
    EXPECT_EQ(offered(budget.document()), ofOne);
    budget.set("Checking", 1);
    EXPECT_EQ(offered(budget.document()), ofOne);
    budget.set("Savings", 2);
    EXPECT_EQ(offered(budget.document()),
              (QStringList{"Text *.txt", "CSV, the lines shown *.csv", "CSV, all sets *.csv",
                           "JSON, the lines shown *.json", "JSON, all sets *.json"}));
}

} // namespace
