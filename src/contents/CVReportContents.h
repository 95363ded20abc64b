#pragma once

#include "base/QBDate.h"
#include "budget/CVReportFigures.h"

class CVDocument;

/// The contents of the reports, on the screen or on paper: the range of days and its preset, the categories in rows and
/// the figures of the last reload. Rows are counted from 0.
class CVReportContents final {
public:
    /// The range is only `today` at first, and the preset is 0.
    explicit CVReportContents(const QBDate& today);

    /// The chosen preset, 0 to 7; another number is kept but has no range.
    [[nodiscard]] int reportPeriod() const { return mReportPeriod; }
    void setReportPeriod(int preset) { mReportPeriod = preset; }
    [[nodiscard]] const CVDayRange& range() const { return mRange; }
    /// The figures change with the next reload.
    void setRange(const CVDayRange& range) { mRange = range; }
    /// Sets the range of the preset; does nothing when the preset has no range.
    void setRangeFromPreset(const QBDate& today, const CVDocument& document);

    /// Computes everything anew, in one walk over the transactions; fills the rows' computed figures.
    void reload(const CVTransactions& transactions, const CVCategories& rows);

    [[nodiscard]] const CVCategories& rows() const { return mRows; }
    [[nodiscard]] const CVReportFigures& figures() const { return mFigures; }
    /// The number of the rows' transactions in the range.
    [[nodiscard]] quint64 numberOfTransactions() const { return mFigures.numberOfTransactions(); }
    [[nodiscard]] quint64 totalNumberOfTransactions() const { return mTotalNumberOfTransactions; }

private:
    int mReportPeriod = 0;
    CVDayRange mRange;
    CVCategories mRows;
    CVReportFigures mFigures;
    quint64 mTotalNumberOfTransactions = 0;
};
