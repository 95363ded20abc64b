#pragma once

#include "contents/CVTransactionText.h"
#include "model/CVDocument.h"
#include "model/CVTransactionColumns.h"
#include "widgets/CVGlyph.h"

#include <QAbstractTableModel>

class CVTransactionList;

/// The rows of the transaction table: the list as of the last reload. Cells are read from the transactions themselves;
/// the Edit role holds values: std::optional<QBDate>, double, QString (null for a missing text) or bool. The model
/// changes nothing itself: what is set is announced as edited.
class CVTransactionTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using Column = CVTransactionColumns::Column;
    using enum CVTransactionColumns::Column;

    /// `list` outlives the model.
    explicit CVTransactionTableModel(const CVTransactionList& list, QObject* parent = nullptr);

    /// Shows the list as it is now. Where the rows are the same, and where `reorder` is called for rows that have only
    /// changed places, an open editor stays.
    void reload();
    void reorder();
    /// A transaction can stand in several rows.
    [[nodiscard]] const CVDocument::Transactions& rows() const { return mRows; }
    /// The first row of a transaction; -1 when it is not shown.
    [[nodiscard]] int rowOf(const CVTransaction* transaction) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    /// Typing in the amounts finds their digits, without sign, symbol and group marks.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                        Qt::MatchFlags flags) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Announces the value for the Edit role, or the other state of a flag for the CheckState role.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    [[nodiscard]] static bool isFlag(int column) { return column == Tax || column == UserFlag; }
    /// Dates and amounts are shown in the locale in force.
    void updateFormatters();

signals:
    /// The user gave the cell that value (for a flag it counts for nothing: the flag is to turn round). Whoever carries
    /// it out may reload the model at once.
    void edited(int row, int column, const QVariant& value);

private:
    [[nodiscard]] static QVariant value(const CVTransaction& transaction, int column);

    const CVTransactionList& mList;
    CVDocument::Transactions mRows;
    CVTransactionText mText;
    QIcon mSmallTax = CVGlyph::icon(CVGlyph::Shape::SmallTax);
};
