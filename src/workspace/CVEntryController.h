#pragma once

#include "contents/CVPaidToList.h"
#include "workspace/CVPayeeMemory.h"

#include <QObject>

#include <optional>

class CVAlerts;
class CVDocument;
class CVMainWindow;
struct CVEntryProblem;

/// Records the contents of the entry strip. Gives the strip and the list the payees and categories for completion, and
/// proposes what was recorded for a payee before. All references outlive this object.
class CVEntryController final : public QObject {
    Q_OBJECT

public:
    CVEntryController(CVDocument& document, CVMainWindow& window, CVAlerts& alerts);

    /// Records the contents of the strip, or shows an alert with their first problem.
    void record();
    /// Puts the selected transaction into the strip with today's date, once the user has agreed to lose what is not
    /// recorded there yet. Does nothing unless exactly one is selected.
    void recordAgain();
    /// Offers the payees of these transactions, as many as the preferences allow.
    void updatePaidToAutocomplete(const CVTransactions& transactions);
    /// Offers the categories of the document.
    void showCategoryItems();

signals:
    /// A transaction was recorded and saved. The receiver shows it before it returns.
    void recorded();

private:
    void showProblem(const CVEntryProblem& problem);
    [[nodiscard]] bool mayReplaceEntry();
    void proposeFor(const QString& payee);
    void proposeForWaiting();

    CVDocument& mDocument;
    CVMainWindow& mWindow;
    CVAlerts& mAlerts;
    CVPaidToList mPaidToList;
    CVPayeeMemory mMemory;
    /// The payee for whom the proposal waits until the memory is there.
    std::optional<QString> mWaitingPayee;
};
