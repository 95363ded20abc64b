#pragma once

#include "editors/CVEditorModel.h"
#include "model/CVCollections.h"

#include <unordered_set>

class CVDocument;

/// The rows of the category editor: the document's categories, in its order, as of the last reload, and whether each is
/// in use. A category is in use when any transaction of any set has it. Names are read from the categories themselves.
class CVCategoryEditModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { Category, InUse, Delete, ColumnCount };

    /// `document` outlives the model.
    explicit CVCategoryEditModel(const CVDocument& document, QObject* parent = nullptr);

    /// Shows the document as it is now; walks once over its transactions.
    void reload();
    /// The same categories have other places or names. The selection, the current row and an open editor stay with
    /// their categories.
    void reorder();

    [[nodiscard]] const std::shared_ptr<CVCategory>& category(int row) const;
    /// The row of a category; -1 when it is not shown.
    [[nodiscard]] int rowOf(const CVCategory* category) const;
    [[nodiscard]] bool isInUse(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    const CVDocument& mDocument;
    CVCategories mCategoryArray;
    /// The IDs of the categories in use.
    std::unordered_set<quint32> mUsed;
};
