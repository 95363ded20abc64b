#pragma once

#include "base/QBDate.h"

#include <QObject>

class CVBudgetContents;
class CVDocument;
class CVReportsTab;

/// Carries out what the user does in the reports tab: the choice of a report and of its range, and changes of the plan.
/// References all that it is made with, which outlives it.
class CVReportsTabController final : public QObject {
    Q_OBJECT

public:
    CVReportsTabController(CVDocument& document, CVBudgetContents& contents, CVReportsTab& tab);

    /// Computes and shows the reports anew.
    void reload();
    /// The report that is shown, 0 to 3.
    [[nodiscard]] int reportTab() const { return mReportTab; }
    /// Shows the report that was shown last; a number that no report has counts as the first.
    void restoreReportTab();

signals:
    /// The user picked another report, another range of days, or changed the plan of a category.
    void changed();
    /// The user picked a preset for the range, which is not yet the range of the reports.
    void presetPicked();

private:
    void reportTabSelected(int index);
    void setReportDateRange(int preset);
    void setReportStart(const QBDate& start);
    void setReportEnd(const QBDate& end);
    void setFrequency(int row, int code);
    void setTarget(int row, double target);

    CVDocument& mDocument;
    CVBudgetContents& mContents;
    CVReportsTab& mTab;
    int mReportTab = 0;
};
