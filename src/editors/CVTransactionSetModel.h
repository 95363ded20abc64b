#pragma once

#include "editors/CVEditorModel.h"
#include "model/CVDocument.h"

#include <unordered_map>

/// The rows of the transaction set editor: the document's sets, in its order, as of the last reload, and how many
/// transactions each has. Names are read from the sets themselves.
class CVTransactionSetModel final : public CVEditorModel {
    Q_OBJECT

public:
    enum Column { Name, Count, ColumnCount };

    /// `document` outlives the model.
    explicit CVTransactionSetModel(const CVDocument& document, QObject* parent = nullptr);

    /// Shows the document as it is now, after one walk over its transactions.
    void reload();
    /// The row has another name.
    void showName(int row);

    [[nodiscard]] const std::shared_ptr<CVTransactionSet>& set(int row) const;
    /// How many transactions of the document the set has.
    [[nodiscard]] qsizetype count(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] QVariant cell(int row, int column, int role) const override;

private:
    const CVDocument& mDocument;
    CVDocument::TransactionSets mTransactionSetArray;
    /// By set ID.
    std::unordered_map<quint32, qsizetype> mCounts;
};
