#pragma once

#include "budget/CVDisplayPeriods.h"
#include "model/CVDocument.h"

#include <QObject>

class CVBudgetContents;
class CVSummaryTab;

/// Carries out what the user does in the summary tab: the choice of the periods, and the look into a cell. References
/// all that it is made with, which outlives it.
class CVSummaryTabController final : public QObject {
    Q_OBJECT

public:
    CVSummaryTabController(CVDocument& document, CVBudgetContents& contents, CVSummaryTab& tab);

    /// Adds up and shows the grid anew.
    void reload();
    /// Puts the first period where the user defaults say.
    void placePeriods();
    void showPreviousPeriod();
    void showNextPeriod();
    void goToToday();

signals:
    /// The grid is to show other periods.
    void periodsChanged();
    /// The user wants to see the transactions behind a cell; there is at least one.
    void cellOpened(const CVDocument::Transactions& transactions);

private:
    [[nodiscard]] CVDisplayPeriods::Placement placement() const;
    void setTimePeriod(int periodType);
    void showCell(int row, int column);

    CVDocument& mDocument;
    CVBudgetContents& mContents;
    CVSummaryTab& mTab;
};
