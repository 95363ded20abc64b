#include "importing/CVImportIntoBudget.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBXMLText.h"
#include "differences/CVMergedRecords.h"
#include "differences/CVShowFirstSet.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVRecordIDs.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>

namespace {

struct ImportText {
    Q_DECLARE_TR_FUNCTIONS(CVImportIntoBudget)
};

using Income = CVImportTargets::Income;

constexpr double kHundredthsOfUnit = 100;

QString nameOfCategory(const CVImportLine& line) {
    return xml_storableLine(line.category).trimmed();
}

/// The import of one statement.
class ImportInto final {
public:
    ImportInto(CVDocument& document, std::span<const CVImportLine> lines, const CVImportTargets& targets)
        : mDocument(document)
        , mLines(lines) {
        mImported.targets = targets;
        mImported.formerSet = document.currentTransactionSet();
    }

    [[nodiscard]] CVImported carryOut();

private:
    [[nodiscard]] QString problem() const;
    [[nodiscard]] QString problemOfSet(quint32 id, const QString& newName) const;
    [[nodiscard]] bool needsSet(bool ofIncome) const;
    [[nodiscard]] bool goesToOwnSet(const CVImportLine& line) const;
    void makeSets();
    [[nodiscard]] quint32 setNamed(const QString& name);
    [[nodiscard]] quint32 categoryOf(const CVImportLine& line);
    void record(const CVImportLine& line);
    void finish();

    CVDocument& mDocument;
    std::span<const CVImportLine> mLines;
    CVImported mImported;
    bool mHadSets = false;
    /// By the name in the line.
    QHash<QString, quint32> mCategories;
    CVFreeIDs mFreeCategoryIDs;
};

CVImported ImportInto::carryOut() {
    mImported.problem = problem();
    if (!mImported.problem.isEmpty())
        return std::move(mImported);
    mHadSets = !mDocument.transactionSets().empty();
    makeSets();
    mFreeCategoryIDs = {mDocument.uniqueID(), CVIDsOf(mDocument.categories())};
    for (const auto& transaction : mDocument.transactions())
        mFreeCategoryIDs.taken.insert(transaction->categoryID());
    for (const CVImportLine& line : mLines) {
        if (line.checked)
            record(line);
    }
    mDocument.setUniqueID(mFreeCategoryIDs.last);
    finish();
    return std::move(mImported);
}

QString ImportInto::problem() const {
    if (mDocument.isReadOnly())
        return ImportText::tr("Your budget can only be looked at, so nothing was imported.");
    if (std::none_of(mLines.begin(), mLines.end(), [](const auto& line) { return line.checked; }))
        return ImportText::tr("No line is checked, so nothing was imported.");
    for (const CVImportLine& line : mLines) {
        if (line.checked && !line.day)
            return ImportText::tr("Line %1 has no date, so nothing was imported.").arg(line.number);
        if (line.checked && nameOfCategory(line).isEmpty())
            return ImportText::tr("Line %1 has no category, so nothing was imported.").arg(line.number);
    }
    const CVImportTargets& targets = mImported.targets;
    const QString ofSet = needsSet(false) ? problemOfSet(targets.set, targets.newSet) : QString();
    return ofSet.isEmpty() && needsSet(true) ? problemOfSet(targets.incomeSet, targets.newIncomeSet) : ofSet;
}

QString ImportInto::problemOfSet(quint32 id, const QString& newName) const {
    const auto& sets = mDocument.transactionSets();
    const bool isThere = (sets.empty() && id == 0) || CVIDsOf(sets).contains(id);
    if (!newName.isEmpty() || isThere)
        return {};
    return ImportText::tr("The set for the transactions is not there any more, so nothing was imported.");
}

/// A set that no line goes into is not made.
bool ImportInto::needsSet(bool ofIncome) const {
    return std::any_of(mLines.begin(), mLines.end(),
                       [&](const auto& line) { return line.checked && goesToOwnSet(line) == ofIncome; });
}

bool ImportInto::goesToOwnSet(const CVImportLine& line) const {
    return line.isIncome && mImported.targets.income == Income::OwnSet;
}

void ImportInto::makeSets() {
    CVImportTargets& targets = mImported.targets;
    mImported.account.name = xml_storableLine(targets.newSet);
    if (needsSet(false) && !targets.newSet.isEmpty()) {
        targets.set = setNamed(targets.newSet);
        targets.newSet.clear();
    }
    if (needsSet(true) && !targets.newIncomeSet.isEmpty()) {
        targets.incomeSet = setNamed(targets.newIncomeSet);
        targets.newIncomeSet.clear();
    }
}

quint32 ImportInto::setNamed(const QString& name) {
    auto& sets = mDocument.transactionSets();
    const QString storable = xml_storableLine(name);
    const auto known = std::find_if(sets.begin(), sets.end(),
                                    [&storable](const auto& set) { return set->transactionSetName() == storable; });
    if (known != sets.end())
        return (*known)->uniqueID();
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(storable);
    set->setUniqueID(mDocument.getUniqueTransactionSetID());
    set->setDocument(&mDocument);
    sets.push_back(set);
    mImported.sets.push_back({set->uniqueID(), set->xmlRepresentation()});
    return set->uniqueID();
}

/// Of exactly that name, else without regard to case, else a new one.
quint32 ImportInto::categoryOf(const CVImportLine& line) {
    if (const auto known = mCategories.constFind(line.category); known != mCategories.constEnd())
        return *known;
    const QString storable = nameOfCategory(line);
    auto category = mDocument.doesCategoryNameExist(storable);
    if (!category) {
        const auto& all = mDocument.categories();
        const auto like = std::find_if(all.begin(), all.end(), [&storable](const auto& each) {
            return each->categoryName().compare(storable, Qt::CaseInsensitive) == 0;
        });
        category = like == all.end() ? nullptr : *like;
    }
    if (!category) {
        category = std::make_shared<CVCategory>();
        category->setCategoryName(storable);
        category->setUniqueID(mFreeCategoryIDs.issue());
        category->setDocument(&mDocument);
        mDocument.appendCategory(category);
        mImported.categories.push_back({category->uniqueID(), category->xmlRepresentation()});
    }
    mCategories.insert(line.category, category->uniqueID());
    return category->uniqueID();
}

void ImportInto::record(const CVImportLine& line) {
    const auto transaction = std::make_shared<CVTransaction>();
    transaction->setEffectiveDate(line.day);
    transaction->setAmount(static_cast<double>(line.hundredths) / kHundredthsOfUnit);
    transaction->setPayTo(xml_storableLine(line.payee));
    transaction->setFor(xml_storableLine(line.xfor));
    transaction->setCategoryID(categoryOf(line));
    transaction->setTransactionSetID(goesToOwnSet(line) ? mImported.targets.incomeSet : mImported.targets.set);
    transaction->setDocument(&mDocument);
    mDocument.addTransaction(transaction);
    mImported.entries.push_back({transaction, CVTransactionContent(*transaction), line});
}

void ImportInto::finish() {
    for (const auto& set : mDocument.transactionSets()) {
        if (mImported.targets.newSet.isEmpty() && set->uniqueID() == mImported.targets.set)
            mImported.account.name = set->transactionSetName();
    }
    mImported.account.id = mImported.targets.set;
    if (!mHadSets && !mImported.sets.empty()) {
        CVShowFirstSet(mDocument, mImported.sets.front().id);
        // That of the transactions that had none.
        const auto& first = mDocument.transactionSets().front();
        if (first->uniqueID() == 0 && mImported.sets.front().id != 0)
            mImported.sets.push_back({0, first->xmlRepresentation()});
    }
    mDocument.askForVersion(CVVersionReason::Import);
    mDocument.finishChanges();
    if (!mImported.sets.empty())
        mDocument.notificationCenter().postNotification(QLatin1String(CVNotifications::kTransactionSet));
    mDocument.workbookSave();
}

} // namespace

CVImported CVImportIntoBudget(CVDocument& document, std::span<const CVImportLine> lines,
                              const CVImportTargets& targets) {
    return ImportInto(document, lines, targets).carryOut();
}
