#pragma once

#include "model/CVDocument.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/format/QBMoneyFormatter.h"

#include <QAbstractTableModel>
#include <QLatin1StringView>

class CVTransactionList;

/// The rows of the transaction table: the list as of the last reload. Cells are read from the transactions themselves;
/// the Edit role holds values: std::optional<QBDate>, double, QString (null for a missing text) or bool.
class CVTransactionTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Date, Amount, ToFrom, For, Category, Tax, UserFlag, ColumnCount };

    /// `list` outlives the model.
    explicit CVTransactionTableModel(const CVTransactionList& list, QObject* parent = nullptr);

    /// "date", "amount", "tofrom", "for", "category", "tax" or "userflag".
    [[nodiscard]] static QLatin1StringView identifier(int column);
    [[nodiscard]] static QString title(int column);
    /// -1 for an unknown identifier.
    [[nodiscard]] static int columnOfIdentifier(const QString& identifier);

    /// Shows the list as it is now.
    void reload();
    [[nodiscard]] const CVDocument::Transactions& rows() const { return mRows; }
    /// -1 when it is not shown.
    [[nodiscard]] int rowOf(const CVTransaction* transaction) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] QString text(const CVTransaction& transaction, int column) const;
    [[nodiscard]] static QVariant value(const CVTransaction& transaction, int column);

    const CVTransactionList& mList;
    CVDocument::Transactions mRows;
    QBDateFormatter mDateFormatter;
    QBMoneyFormatter mMoneyFormatter;
};
