#pragma once

#include "base/QBDate.h"
#include "contents/CVGridContents.h"
#include "contents/CVReportContents.h"
#include "contents/CVTransactionList.h"

class CVDocument;

/// The contents of the main window and of reports for the current set, or for all sets: the list, the grid and the
/// figures of the reports. The list says which sets. The grid and the figures are those of their last reload. Reload
/// them before showing or printing them; no changes are tracked, because a reload with 100,000 transactions takes only
/// a few milliseconds.
class CVBudgetContents final {
public:
    /// Lists and computes nothing yet. The user defaults of the document decide where the periods of the grid begin.
    /// `document` outlives the object; `periodType` is 0 to 3.
    CVBudgetContents(CVDocument& document, const QBDate& today, int periodType);

    [[nodiscard]] CVTransactionList& list() { return mList; }
    [[nodiscard]] const CVTransactionList& list() const { return mList; }
    [[nodiscard]] CVGridContents& grid() { return mGrid; }
    [[nodiscard]] const CVGridContents& grid() const { return mGrid; }
    [[nodiscard]] CVReportContents& reports() { return mReports; }
    [[nodiscard]] const CVReportContents& reports() const { return mReports; }

    /// Sets the ranges of the list and of the reports from their presets; they take effect with the next rebuild or
    /// reload.
    void setRangesFromPresets();
    /// Both functions compute from all transactions of the shown sets, also from those outside the list's range and
    /// search.
    void reloadGrid();
    void reloadReports();

private:
    [[nodiscard]] CVCategories categoryRows() const;

    CVDocument& mDocument;
    /// The day on which the object was made, however long the window stays open.
    QBDate mToday;
    CVTransactionList mList;
    CVGridContents mGrid;
    CVReportContents mReports;
};
