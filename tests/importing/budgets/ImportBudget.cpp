#include "ImportBudget.h"

#include "differences/CVBudgetDifferences.h"
#include "model/CVDetachedDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::shared_ptr<CVDetachedDocument> copyOf(const CVDocument& budget) {
    auto copy = std::make_shared<CVDetachedDocument>();
    EXPECT_TRUE(CVDocumentReader().readFromData(**copy, CVDocumentXMLRepresentation(budget).joined().leftJustified(64),
                                                CVDocumentReader::kXMLDocumentType));
    return copy;
}

} // namespace

CVImported importBudget(CVDocument& ours, const CVDocument& theirs) {
    const auto present = copyOf(ours);
    const auto other = copyOf(theirs);
    const CVMergedBudget merged = CVMergeForImport(**present, **other);
    return CVImportFromBudget(ours, **merged.budget, **present,
                              CVBudgetDifferences::between(**merged.budget, **present, &**present));
}

QStringList linesOfBudget(const CVDocument& budget) {
    QStringList lines;
    for (const auto& transaction : budget.transactions()) {
        const auto& sets = budget.transactionSets();
        const auto set = std::find_if(sets.begin(), sets.end(), [&transaction](const auto& each) {
            return each->uniqueID() == transaction->transactionSetID();
        });
        const auto day = transaction->effectiveDate();
        const CVTransactionContent content(*transaction);
        lines.append(QStringList{set == sets.end() ? QString() : (*set)->transactionSetName(),
                                 day ? QString::fromLatin1(day->corvellaXMLRepresentation()) : QString(),
                                 QString::fromLatin1(content.amount), transaction->payTo(), transaction->xfor(),
                                 transaction->categoryName(), transaction->taxFlag() ? "tax" : "",
                                 transaction->userFlag() ? "flag" : ""}
                         .join(u'|'));
    }
    lines.sort();
    return lines;
}
