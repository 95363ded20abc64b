#pragma once

#include "budget/CVDisplayPeriods.h"
#include "model/CVCollections.h"

#include <QObject>

class CVDocument;
class CVBudgetContents;
class CVSummaryTab;

/// Carries out the user's actions in the summary tab: choosing the periods and opening a cell. All references outlive
/// this object.
class CVSummaryTabController final : public QObject {
    Q_OBJECT

public:
    CVSummaryTabController(CVDocument& document, CVBudgetContents& contents, CVSummaryTab& tab);

    /// Computes the grid again and shows it.
    void reload();
    /// Moves the first period to the place stored in the user defaults.
    void placePeriods();
    void showPreviousPeriod();
    void showNextPeriod();
    void goToToday();

signals:
    /// Other periods were chosen for the grid.
    void periodsChanged();
    /// The user wants to see the transactions behind a cell; there is at least one.
    void cellOpened(const CVTransactions& transactions);

private:
    [[nodiscard]] CVDisplayPeriods::Placement placement() const;
    void setTimePeriod(int periodType);
    void showCell(int row, int column);

    CVDocument& mDocument;
    CVBudgetContents& mContents;
    CVSummaryTab& mTab;
};
