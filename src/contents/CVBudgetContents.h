#pragma once

#include "contents/CVGridContents.h"
#include "contents/CVReportContents.h"
#include "contents/CVTransactionList.h"

/// All that the main window shows of the current set, and that reports are made of: the list, the grid and the figures
/// of the reports. The grid and the figures are those of their last reload. Whoever shows or prints them reloads them
/// first: with 100,000 transactions that takes a few milliseconds, so that nobody notes what has changed since.
class CVBudgetContents final {
public:
    /// Nothing is listed or computed yet. The user defaults of the document say where the periods of the grid lie.
    /// `document` outlives the object; `periodType` is 0 to 3.
    CVBudgetContents(CVDocument& document, const QBDate& today, int periodType);

    [[nodiscard]] CVTransactionList& list() { return mList; }
    [[nodiscard]] const CVTransactionList& list() const { return mList; }
    [[nodiscard]] CVGridContents& grid() { return mGrid; }
    [[nodiscard]] const CVGridContents& grid() const { return mGrid; }
    [[nodiscard]] CVReportContents& reports() { return mReports; }
    [[nodiscard]] const CVReportContents& reports() const { return mReports; }

    /// Gives the list and the reports the ranges that their presets stand for; both show them after a rebuild or a
    /// reload.
    void setRangesFromPresets();
    /// Compute from all transactions of the list, whatever range or search it shows.
    void reloadGrid();
    void reloadReports();

private:
    [[nodiscard]] CVDocument::Categories categoryRows() const;

    CVDocument& mDocument;
    /// The day on which the object was made, however long the window stays open.
    QBDate mToday;
    CVTransactionList mList;
    CVGridContents mGrid;
    CVReportContents mReports;
};
