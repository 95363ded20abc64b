#pragma once

#include "editors/CVEditorModel.h"
#include "model/CVCollections.h"

#include <unordered_map>

class CVDocument;

/// The rows of the transaction set editor: the document's sets, in its order, as of the last reload, and the number of
/// transactions in each. Names are read from the sets themselves.
class CVTransactionSetModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { Name, Count, ColumnCount };

    /// `document` outlives the model.
    explicit CVTransactionSetModel(const CVDocument& document, QObject* parent = nullptr);

    /// Shows the document as it is now; walks once over its transactions.
    void reload();
    /// Shows the changed name of a row.
    void showName(int row);

    [[nodiscard]] const std::shared_ptr<CVTransactionSet>& set(int row) const;
    /// The number of transactions in the set of a row.
    [[nodiscard]] qsizetype count(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    const CVDocument& mDocument;
    CVTransactionSets mTransactionSetArray;
    /// The number of transactions by set ID.
    std::unordered_map<quint32, qsizetype> mCounts;
};
