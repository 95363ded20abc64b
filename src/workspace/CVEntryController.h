#pragma once

#include "contents/CVPaidToList.h"

#include <QObject>

class CVAlerts;
class CVDocument;
class CVMainWindow;
struct CVEntryProblem;

/// Records the contents of the entry strip. Gives the strip and the list the payees and categories for completion. All
/// references outlive this object.
class CVEntryController final : public QObject {
    Q_OBJECT

public:
    CVEntryController(CVDocument& document, CVMainWindow& window, CVAlerts& alerts);

    /// Records the contents of the strip, or shows an alert with their first problem.
    void record();
    /// Offers the payees of these transactions, as many as the preferences allow.
    void updatePaidToAutocomplete(const CVTransactions& transactions);
    /// Offers the categories of the document.
    void showCategoryItems();

signals:
    /// A transaction was recorded and saved. The receiver shows it before it returns.
    void recorded();

private:
    void showProblem(const CVEntryProblem& problem);

    CVDocument& mDocument;
    CVMainWindow& mWindow;
    CVAlerts& mAlerts;
    CVPaidToList mPaidToList;
};
