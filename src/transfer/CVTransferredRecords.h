#pragma once

#include "base/QBDate.h"
#include "transfer/CVReadTransfer.h"

#include <QHash>

/// What a line says of one transaction. Payee and purpose are not null, because a null text and an empty one differ in
/// a budget.
struct CVTransferLine {
    std::optional<QBDate> day = std::nullopt;
    double amount = 0;
    QString category = {};
    QString payTo = {};
    QString xfor = {};
    bool taxFlag = false;
    bool userFlag = false;
    QString set = {};

    /// Whether a budget can hold the texts as they are. Line ends of any kind are line feeds to it.
    [[nodiscard]] bool isStorable() const;
};

/// Makes a budget of lines.
class CVTransferredRecords final {
public:
    void add(const CVTransferLine& line);
    /// The budget, with its records in order.
    [[nodiscard]] std::shared_ptr<CVDetachedDocument> finish();

private:
    [[nodiscard]] quint32 setNamed(const QString& name);
    [[nodiscard]] quint32 categoryNamed(const QString& name);

    std::shared_ptr<CVDetachedDocument> mBudget = std::make_shared<CVDetachedDocument>();
    QHash<QString, quint32> mSets;
    QHash<QString, quint32> mCategories;
};
