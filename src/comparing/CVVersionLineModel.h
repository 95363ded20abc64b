#pragma once

#include "contents/CVVersionLines.h"

#include <QAbstractTableModel>

/// The rows of the table of what is not the same in a version, or in another file, and in the present budget: the lines
/// that the search and the groups let through, in the order of the chosen column.
class CVVersionLineModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setLines(CVVersionLines lines);
    void setSearchText(const QString& text);
    void setShown(CVVersionLines::Group group, bool isShown);

    [[nodiscard]] const CVVersionLines& lines() const { return mLines; }
    /// The line that a row shows.
    [[nodiscard]] std::size_t lineAt(int row) const { return mRows[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    /// Column -1 gives the order of `CVVersionLines`.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    void build();
    [[nodiscard]] std::vector<std::size_t> rows() const;

    CVVersionLines mLines{nullptr};
    std::vector<std::size_t> mRows;
    QString mSearchText;
    std::array<bool, CVVersionLines::kGroups> mShown{true, true, true, true};
    int mColumn = -1;
    Qt::SortOrder mOrder = Qt::AscendingOrder;
};
