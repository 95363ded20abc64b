#pragma once

#include "contents/CVTransactionText.h"
#include "model/CVCollections.h"
#include "model/CVTransactionColumns.h"
#include "widgets/CVGlyph.h"

#include <QAbstractTableModel>

class CVTransactionList;

/// The rows of the transaction table: the list as of the last reload. Cells read the transactions themselves. The Edit
/// role holds values: std::optional<QBDate>, double, QString (null for a missing text) or bool. The model changes no
/// transaction: setData() emits `edited`.
class CVTransactionTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using Column = CVTransactionColumns::Column;
    using enum CVTransactionColumns::Column;

    /// `list` outlives the model.
    explicit CVTransactionTableModel(const CVTransactionList& list, QObject* parent = nullptr);

    /// Takes over the list as it is now, with a column of the sets where the list is of all sets. When the rows are
    /// unchanged an open editor stays; call `reorder` instead for rows that have only changed places, which also keeps
    /// an open editor.
    void reload();
    void reorder();
    [[nodiscard]] bool showsSets() const { return mShowsSets; }
    /// The transaction of each row. A transaction can appear in several rows.
    [[nodiscard]] const CVTransactions& rows() const { return mRows; }
    /// The first row of a transaction; -1 when it is not shown.
    [[nodiscard]] int rowOf(const CVTransaction* transaction) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    /// In the amount column, typed text is compared with the digits, without sign, currency symbol and group
    /// separators.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                        Qt::MatchFlags flags) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Emits `edited` with the value for the Edit role, or for the CheckState role to toggle a flag.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    [[nodiscard]] static bool isFlag(int column) { return column == Tax || column == UserFlag; }
    /// Shows dates and amounts in the locale now in force.
    void updateFormatters();

signals:
    /// The user gave a cell a value. For a flag `value` has no meaning: the flag is to be toggled. The receiver may
    /// reload the model at once.
    void edited(int row, int column, const QVariant& value);

private:
    void showSets(bool show);
    [[nodiscard]] static QVariant value(const CVTransaction& transaction, int column);

    const CVTransactionList& mList;
    bool mShowsSets = false;
    CVTransactions mRows;
    CVTransactionText mText;
    QIcon mCheck = CVGlyph::icon(CVGlyph::Shape::Check);
};
