#pragma once

#include "contents/CVGridContents.h"
#include "format/QBMoneyFormatter.h"
#include "workspace/budgettabs/CVCategoryTableModel.h"

/// The model of one of the four tables of the summary. Numbers are read from the contents; the Edit role returns them
/// as double. A missing number gives an empty cell.
class CVGridModel final : public CVCategoryTableModel {
    Q_OBJECT

public:
    enum class Part { Categories, Periods, PeriodTotals, CategoryTotals };

    /// `contents` outlives the model.
    CVGridModel(const CVGridContents& contents, Part part);

    void reload() override;
    [[nodiscard]] const CVCategory* categoryOfRow(int row) const override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] bool hasPeriods() const { return mPart == Part::Periods || mPart == Part::PeriodTotals; }
    [[nodiscard]] std::optional<double> amount(const QModelIndex& index) const;
    [[nodiscard]] QVariant text(const QModelIndex& index) const;
    [[nodiscard]] QString toolTip(const QModelIndex& index) const;
    [[nodiscard]] QVariant periodHeader(const CVDisplayPeriods::Header& header, int role) const;

    const CVGridContents& mContents;
    Part mPart;
    CVCategories mRows;
    /// The headers of the columns of a table of periods; empty for the other tables.
    std::vector<CVDisplayPeriods::Header> mHeaders;
    QBMoneyFormatter mMoneyFormatter;
};
