#pragma once

#include "base/QBDate.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class CVDocument;
class CVTransaction;

/// What a transaction says, as plain values.
struct CVRecordedLine {
    /// Only handed on: on another thread than that of the budget nobody asks it anything.
    std::shared_ptr<CVTransaction> transaction;
    std::optional<QBDate> day;
    /// Absent for amounts too large to have hundredths.
    std::optional<qint64> hundredths;
    QString payee;
    QString xfor;
    quint32 category = 0;
    quint32 set = 0;
};

/// What a budget has recorded, at one moment, in its order, the newest first. Never changes, so that a thread may look
/// at it while the budget goes on.
class CVRecordedLines final {
public:
    /// Takes a few milliseconds for 100,000 transactions.
    explicit CVRecordedLines(const CVDocument& document);

    [[nodiscard]] const std::vector<CVRecordedLine>& lines() const { return mLines; }
    /// Null for a category that the budget does not have.
    [[nodiscard]] QString nameOfCategory(quint32 id) const { return mCategories.value(id); }
    /// Whether the budget has a category of that ID, with a name.
    [[nodiscard]] bool hasCategory(quint32 id) const { return mNamedCategories.contains(id); }
    /// The name of the category that `name` means: of exactly that name, else without regard to case; null when the
    /// budget has none.
    [[nodiscard]] QString categoryMeant(const QString& name) const;
    /// Null for a set that the budget does not have.
    [[nodiscard]] QString nameOfSet(quint32 id) const { return mSets.value(id); }
    /// The first set of exactly that name; absent when there is none.
    [[nodiscard]] std::optional<quint32> setNamed(const QString& name) const;

private:
    std::vector<CVRecordedLine> mLines;
    QHash<quint32, QString> mCategories;
    QSet<quint32> mNamedCategories;
    QHash<quint32, QString> mSets;
    QHash<QString, quint32> mSetsByName;
    QSet<QString> mNames;
    /// By the name in small letters.
    QHash<QString, QString> mCategoriesByName;
};
