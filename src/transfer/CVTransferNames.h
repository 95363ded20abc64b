#pragma once

#include "model/CVDocument.h"

#include <QByteArray>

#include <unordered_map>

/// The names of sets and categories by which transactions are written for other programs, as UTF-8. Made anew for each
/// walk over the transactions, because it does not follow changes.
class CVTransferNames final {
public:
    explicit CVTransferNames(const CVDocument& document);

    /// Empty when there is no set, or no category, with the transaction's ID.
    [[nodiscard]] QByteArray setOf(const CVTransaction& transaction) const;
    [[nodiscard]] QByteArray categoryOf(const CVTransaction& transaction) const;

private:
    std::unordered_map<quint32, QByteArray> mSets;
    std::unordered_map<quint32, QByteArray> mCategories;
};
