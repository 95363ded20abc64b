#pragma once

#include "history/CVVersionReader.h"
#include "versions/CVListedVersion.h"
#include "widgets/tables/CVTableView.h"

class CVVersionTableModel;
class QBUserDefaults;

/// The list of versions, of which one or the present budget is always chosen.
class CVVersionTable final : public CVTableView {
    Q_OBJECT

public:
    explicit CVVersionTable(QWidget* parent);

    /// Chooses the newest version, and each newer one that is listed later, until the user chooses another.
    void chooseNewest() { mWantsNewest = true; }
    /// Lists these versions, newest first; the chosen one stays chosen. Announces no choice.
    void setVersions(const QList<CVListedVersion>& versions, std::size_t presentTransactions);
    void setFindings(const CVVersionFindings& findings);
    /// Writes times and numbers anew, in the locale now in force.
    void updateFormats();

    /// Not counting the present budget.
    [[nodiscard]] int countVersions() const;
    /// Null when the present budget is chosen.
    [[nodiscard]] const CVListedVersion* chosen() const;
    /// Empty when the present budget is chosen.
    [[nodiscard]] QString chosenPath() const;
    /// Absent while nothing is known of the chosen version.
    [[nodiscard]] std::optional<CVVersionFindings> chosenFindings() const;

    void restoreColumns(const QBUserDefaults& defaults);
    void keepColumns(QBUserDefaults& defaults) const;

signals:
    /// The user has chosen a version or the present budget.
    void picked();

private:
    void rowChanged();
    void chooseRow(int row);
    [[nodiscard]] int newestRow() const { return countVersions() > 0 ? 1 : 0; }

    CVVersionTableModel* mModel;
    bool mWantsNewest = true;
    bool mIsListing = false;
};
