#pragma once

#include "format/QBMoneyFormatter.h"
#include "model/CVCollections.h"
#include "workspace/budgettabs/CVCategoryTableModel.h"
#include "workspace/budgettabs/CVReportColumns.h"

class CVReportContents;

/// The model of one of the report tables. Values are read from the contents; the Edit role returns them unformatted.
/// setData() changes nothing: it announces a frequency or a target, which shows after the next reload.
class CVReportModel final : public CVCategoryTableModel {
    Q_OBJECT

public:
    /// `contents` outlives the model.
    CVReportModel(const CVReportContents& contents, CVReportTable table);

    [[nodiscard]] const CVReportColumn& column(int column) const;

    void reload() override;
    [[nodiscard]] const CVCategory* categoryOfRow(int row) const override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

signals:
    /// The user entered a frequency (0 to 7) or a target that differs from the one of the row's category.
    void frequencyPicked(int row, int code);
    void targetEntered(int row, double target);

private:
    [[nodiscard]] QVariant value(const QModelIndex& index) const;
    [[nodiscard]] QString text(const QModelIndex& index) const;
    [[nodiscard]] bool warns(const QModelIndex& index) const;
    [[nodiscard]] static QVariant emphasis(int role);
    [[nodiscard]] QString toolTip(const QModelIndex& index) const;

    const CVReportContents& mContents;
    std::span<const CVReportColumn> mColumns;
    CVCategories mRows;
    QBMoneyFormatter mMoneyFormatter;
};
