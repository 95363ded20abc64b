#include "importing/CVTakeBackImport.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <unordered_set>

namespace {

enum class EntryState { AsImported, Edited, Removed };

/// Knows which transactions are in the budget.
class ImportedEntries final {
public:
    explicit ImportedEntries(const CVDocument& document) : mDocument(document) {
        for (const auto& transaction : document.transactions())
            mPresent.insert(transaction.get());
    }

    [[nodiscard]] EntryState stateOf(const CVImported::Entry& entry) const {
        if (!mPresent.contains(entry.transaction.get()))
            return EntryState::Removed;
        CVTransactionContent present(*entry.transaction);
        if (isMerged(entry.content.category))
            present.category = entry.content.category;
        return present == entry.content ? EntryState::AsImported : EntryState::Edited;
    }

private:
    /// Whether the category is gone. A category that is in use goes only by merging it into another one, which says
    /// nothing about the transaction.
    [[nodiscard]] bool isMerged(const std::optional<quint32>& category) const {
        const auto& categories = mDocument.categories();
        return category && std::none_of(categories.begin(), categories.end(),
                                        [&](const auto& each) { return each->uniqueID() == *category; });
    }

    const CVDocument& mDocument;
    std::unordered_set<const CVTransaction*> mPresent;
};

std::unordered_set<quint32> idsInUse(const CVDocument& document, quint32 (CVTransaction::*idOf)() const) {
    std::unordered_set<quint32> ids;
    for (const auto& transaction : document.transactions())
        ids.insert(((*transaction).*idOf)());
    return ids;
}

/// The record as it was made; null when it is gone or was changed.
template <typename Records>
auto unchangedRecord(const Records& records, const CVImported::Made& made) -> typename Records::value_type {
    const auto found = std::find_if(records.begin(), records.end(), [&made](const auto& record) {
        return record->uniqueID() == made.id && record->xmlRepresentation() == made.text;
    });
    return found == records.end() ? nullptr : *found;
}

void dropCategories(CVDocument& document, const CVImported& imported) {
    const auto used = idsInUse(document, &CVTransaction::categoryID);
    for (const CVImported::Made& made : imported.categories) {
        const auto category = unchangedRecord(document.categories(), made);
        if (category && !used.contains(made.id))
            document.dropCategory(category);
    }
}

/// Whether a set has gone.
bool dropSets(CVDocument& document, const CVImported& imported) {
    const auto used = idsInUse(document, &CVTransaction::transactionSetID);
    CVTransactionSets& sets = document.transactionSets();
    bool hasDropped = false;
    for (const CVImported::Made& made : imported.sets) {
        const auto set = unchangedRecord(sets, made);
        // The set of the transactions that had none goes when no set is left that made it necessary.
        const bool isNeeded = made.id == 0 ? sets.size() > 1 : used.contains(made.id);
        if (!set || isNeeded)
            continue;
        std::erase(sets, set);
        set->setDocument(nullptr);
        hasDropped = true;
    }
    return hasDropped;
}

/// The shown set may have gone.
void showFormerSet(CVDocument& document, quint32 former) {
    const auto has = [&document](quint32 id) {
        const auto& sets = document.transactionSets();
        return std::any_of(sets.begin(), sets.end(), [id](const auto& set) { return set->uniqueID() == id; });
    };
    if (!has(document.currentTransactionSet()))
        document.setCurrentTransactionSet(former);
}

} // namespace

CVImportState CVStateOfImport(const CVDocument& document, const CVImported& imported) {
    const ImportedEntries entries(document);
    CVImportState state;
    for (const CVImported::Entry& entry : imported.entries) {
        switch (entries.stateOf(entry)) {
        case EntryState::AsImported:
            ++state.asImported;
            break;
        case EntryState::Edited:
            ++state.edited;
            break;
        case EntryState::Removed:
            ++state.removed;
            break;
        }
    }
    return state;
}

CVImportLines CVTakeBackImport(CVDocument& document, const CVImported& imported, CVEditedTransactions edited) {
    const ImportedEntries entries(document);
    CVImportLines lines;
    CVTransactions leaving;
    for (const CVImported::Entry& entry : imported.entries) {
        const EntryState state = entries.stateOf(entry);
        if (state == EntryState::Removed || (state == EntryState::Edited && edited == CVEditedTransactions::Stay))
            continue;
        leaving.push_back(entry.transaction);
        lines.push_back(entry.line);
    }
    if (leaving.empty() || document.isReadOnly())
        return {};
    document.dropTransactions(leaving);
    dropCategories(document, imported);
    const bool hasDroppedSets = dropSets(document, imported);
    if (hasDroppedSets)
        showFormerSet(document, imported.formerSet);
    document.finishChanges();
    if (hasDroppedSets)
        document.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    document.workbookSave();
    return lines;
}
