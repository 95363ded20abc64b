#pragma once

#include "importing/statements/CVStatement.h"

#include <QAbstractTableModel>

#include <memory>

/// The first rows of a statement as they stand in the file, below a row for the meaning of each column.
class CVStatementRowModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int kMeaningRow = 0;

    using QAbstractTableModel::QAbstractTableModel;

    /// What a column with that role says, in the user's language.
    [[nodiscard]] static QString meaning(CVColumnRole role);

    /// Null for none.
    void setStatement(std::shared_ptr<const CVStatement> statement);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const CVStatement> mStatement;
};
