#pragma once

#include "widgets/fields/CVCellAlignment.h"

#include <QAbstractTableModel>
#include <QLatin1StringView>

#include <span>

/// The description of a column of an editor's table.
struct CVEditorColumn {
    QLatin1StringView identifier;
    /// The English title, to be translated in the context "CVEditorModel".
    const char* title = nullptr;
    Qt::Alignment alignment = kCVTextAlignment;
    /// What the cells allow beyond being selected: editing or toggling.
    Qt::ItemFlags abilities = Qt::NoItemFlags;
};

/// The model of an editor's table. Derived models provide rows and cells, which they read from the records. The model
/// changes no record: it announces what the user does to a cell.
class CVEditorModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// `columns` outlives the model.
    CVEditorModel(std::span<const CVEditorColumn> columns, QObject* parent);

    [[nodiscard]] QLatin1StringView identifier(int column) const;

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Emits `edited` for the Edit role and `toggled` for the CheckState role.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    /// The user gave the name of a row a new value. The receiver may change the model at once.
    void edited(int row, const QString& text);
    /// The user wants to toggle the box of a row.
    void toggled(int row);

protected:
    /// The data of an existing cell for a role.
    [[nodiscard]] virtual QVariant cell(int row, int column, int role) const = 0;

private:
    std::span<const CVEditorColumn> mColumns;
};
