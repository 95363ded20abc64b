#pragma once

#include "base/QBDate.h"
#include "model/CVDocument.h"

#include <QObject>

class CVAlerts;
class CVFilePanels;
class CVTransactionList;
class CVTransactionsTab;

/// Carries out what the user does in the transactions tab: range, search, order, changes in cells, removal, the search
/// for duplicates, and the export. References all that it is made with, which outlives it.
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
    /// Selects what looks as if it was entered twice.
    void detectDuplicates();
    /// Writes the listed transactions to a file of the user's choice.
    void exportTransactions();
    /// Whether a cell is being changed. The listed rows stay meanwhile, whatever they were searched for.
    [[nodiscard]] bool keepsRows() const { return mKeepsRows; }

signals:
    /// The list shows other transactions than before.
    void listChanged();
    /// The user picked a preset for the range, which is not yet the list's range.
    void presetPicked();
    /// Transactions have been removed from the document.
    void transactionsRemoved();
    /// Something was done that the screen does not show otherwise.
    void remarked(const QString& text);

private:
    void connectTab();
    void setSearchText(const QString& text);
    void setSearchType(int kind);
    void setTransactionDateRange(int preset);
    void setTransactionStart(const QBDate& start);
    void setTransactionEnd(const QBDate& end);
    void setObjectValue(int row, int column, const QVariant& value);
    void writeExport(const QString& path);

    CVDocument& mDocument;
    CVTransactionList& mList;
    CVTransactionsTab& mTab;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    bool mKeepsRows = false;
};
