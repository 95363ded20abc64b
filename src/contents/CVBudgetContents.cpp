#include "contents/CVBudgetContents.h"

#include "contents/CVBudgetRows.h"
#include "model/CVDocument.h"

CVBudgetContents::CVBudgetContents(CVDocument& document, const QBDate& today, int periodType)
    : mDocument(document)
    , mToday(today)
    , mList(document)
    , mGrid(today, periodType, CVDisplayPeriods::Placement::fromDefaults(document.userDefaults()))
    , mReports(today) {}

void CVBudgetContents::setRangesFromPresets() {
    mList.setRangeFromPreset(mToday);
    mReports.setRangeFromPreset(mToday, mDocument);
}

void CVBudgetContents::reloadGrid() {
    mGrid.reload(mList.transactions(), categoryRows());
}

void CVBudgetContents::reloadReports() {
    mReports.reload(mList.transactions(), categoryRows());
}

CVCategories CVBudgetContents::categoryRows() const {
    return buildCategoryArray(mDocument, CVReadShowUnused(mDocument.userDefaults()), mList.shownSets());
}
