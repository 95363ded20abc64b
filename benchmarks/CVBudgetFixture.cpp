#include "CVBudgetFixture.h"

#include "generator/CVScaleBudget.h"
#include "storage/CVDocumentXML.h"

#include <QCoreApplication>

CVBudgetFixture::CVBudgetFixture(std::size_t transactions) {
    CVScaleBudget budget;
    budget.transactions = transactions;
    // The list shows one set: this way it shows all there are.
    budget.sets = 1;
    budget.lastDay = QBDate::dateWithYear(2026, 6, 30);
    CVFillScaleBudget(*mDocument, budget);
}

QByteArray CVBudgetFixture::text() {
    return CVDocumentXMLRepresentation(*mDocument).joined();
}

CVScratchFolder::CVScratchFolder()
    : mFolder(QCoreApplication::applicationDirPath() + QStringLiteral("/../scratch-XXXXXX")) {}
