#pragma once

#include "widgets/fields/CVCellAlignment.h"

#include <QAbstractTableModel>
#include <QLatin1StringView>

#include <span>

/// What a column of an editor's table is.
struct CVEditorColumn {
    QLatin1StringView identifier;
    /// To be translated in the context "CVEditorModel".
    const char* title = nullptr;
    Qt::Alignment alignment = kCVTextAlignment;
    /// What its cells can do beyond being selected: be edited or turned round.
    Qt::ItemFlags abilities = Qt::NoItemFlags;
};

/// The columns of an editor's table. Rows and cells come from its heirs, which read the records themselves. The model
/// changes nothing: what the user does to a cell is announced.
class CVEditorModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The columns outlive the model.
    CVEditorModel(std::span<const CVEditorColumn> columns, QObject* parent);

    [[nodiscard]] QLatin1StringView identifier(int column) const;

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Announces a text for the Edit role, or that a box is to turn round for the CheckState role.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    /// The user gave the row's text a new value. Whoever carries it out may change the model at once.
    void edited(int row, const QString& text);
    /// The user wants the row's box to turn round.
    void toggled(int row);

protected:
    /// What a cell that exists has to say in that role.
    [[nodiscard]] virtual QVariant cell(int row, int column, int role) const = 0;

private:
    std::span<const CVEditorColumn> mColumns;
};
