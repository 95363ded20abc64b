#pragma once

#include "base/QBDate.h"
#include "model/CVCollections.h"

#include <QObject>

class CVDocument;
class CVAlerts;
class CVFilePanels;
struct CVExportKind;
class CVTransactionList;
class CVTransactionsTab;

/// Carries out the user's actions in the transactions tab: range, search, order, changes of cells, removal, search for
/// duplicates, and export. All references outlive this object.
class CVTransactionsTabController final : public QObject {
    Q_OBJECT

public:
    CVTransactionsTabController(CVDocument& document, CVTransactionList& list, CVTransactionsTab& tab, CVAlerts& alerts,
                                CVFilePanels& panels);

    /// Shows the list as it is now.
    void reload();
    void sortByColumn(const QString& identifier);
    /// Removes the selected transactions once the user has confirmed it.
    void removeTransaction();
    /// Opens the window in which the user gives the selected transactions one category.
    void setCategory();
    /// Selects transactions that were probably entered twice.
    void detectDuplicates();
    /// Writes the listed transactions, or those of all sets, to a file of a kind that the user chooses.
    void exportTransactions();
    /// Whether a cell is being changed; meanwhile the listed rows stay, even if they no longer match the search.
    [[nodiscard]] bool keepsRows() const { return mKeepsRows; }

signals:
    /// The list shows other transactions than before.
    void listChanged();
    /// The user picked a preset for the range, which is not yet the list's range.
    void presetPicked();
    /// Transactions have been removed from the document.
    void transactionsRemoved();
    /// What was removed, which nothing else in the window shows.
    void removalRemarked(int count);
    /// So many transactions were given the category of that name.
    void categorySet(int count, const QString& name);

private:
    void connectTab();
    void setSearchText(const QString& text);
    void setSearchType(int kind);
    void setTransactionDateRange(int preset);
    void setTransactionStart(const QBDate& start);
    void setTransactionEnd(const QBDate& end);
    void setObjectValue(int row, int column, const QVariant& value);
    void giveCategory(const CVTransactions& transactions, const QString& name);
    void showChangedRows();
    void writeExport(const QString& path, const CVExportKind& kind);

    CVDocument& mDocument;
    CVTransactionList& mList;
    CVTransactionsTab& mTab;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    bool mKeepsRows = false;
};
