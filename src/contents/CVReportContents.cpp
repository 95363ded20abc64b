#include "contents/CVReportContents.h"

#include "budget/CVRangePresets.h"

CVReportContents::CVReportContents(const QBDate& today) : mRange{today, today}, mFigures({}, {}, mRange) {}

void CVReportContents::setRangeFromPreset(const QBDate& today, const CVDocument& document) {
    mRange = rangeOfPreset(mReportPeriod, today, document).value_or(mRange);
}

void CVReportContents::reload(const CVTransactions& transactions, const CVCategories& rows) {
    mRows = rows;
    mFigures = CVReportFigures(transactions, rows, mRange);
    mTotalNumberOfTransactions = transactions.size();
}
