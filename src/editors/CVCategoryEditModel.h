#pragma once

#include "editors/CVEditorModel.h"
#include "model/CVDocument.h"
#include "model/CVIDMap.h"

/// The rows of the category editor: the document's categories, in its order, as of the last reload, and which of them
/// are in use. A category is in use when any transaction of any set has it. Names are read from the categories
/// themselves.
class CVCategoryEditModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { Category, InUse, Delete, ColumnCount };

    /// `document` outlives the model.
    explicit CVCategoryEditModel(const CVDocument& document, QObject* parent = nullptr);

    /// Shows the document as it is now, after one walk over its transactions.
    void reload();
    /// The same categories have other places or names: the selection, the current row and an open editor go with them.
    void reorder();

    [[nodiscard]] const std::shared_ptr<CVCategory>& category(int row) const;
    /// -1 when it is not shown.
    [[nodiscard]] int rowOf(const CVCategory* category) const;
    [[nodiscard]] bool isInUse(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    const CVDocument& mDocument;
    CVDocument::Categories mCategoryArray;
    /// By category ID.
    CVIDMap<bool> mUsed{false};
};
