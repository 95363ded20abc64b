#pragma once

#include "base/QBDate.h"

#include <QObject>

class CVBudgetContents;
class CVDocument;
class CVReportsTab;

/// Carries out the user's actions in the reports tab: choosing a report and its range, and changing the plan. All
/// references outlive this object.
class CVReportsTabController final : public QObject {
    Q_OBJECT

public:
    CVReportsTabController(CVDocument& document, CVBudgetContents& contents, CVReportsTab& tab);

    /// Computes the reports again and shows them.
    void reload();
    /// The index of the visible report, 0 to 3.
    [[nodiscard]] int reportTab() const { return mReportTab; }
    /// Shows the report that was visible last; an unknown number stands for the first report.
    void restoreReportTab();

signals:
    /// The user chose another report or range, or changed the plan of a category.
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
