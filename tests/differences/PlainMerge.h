#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class CVDocument;

/// A budget as plain lists, of which `plainMerge` makes the merged one by the definition, without regard to speed.
struct PlainBudget {
    struct Record {
        quint32 id = 0;
        QString name;
        /// Empty for a set.
        QString plan;
    };
    struct Line {
        quint32 set = 0;
        quint32 category = 0;
        /// All else that a transaction says.
        QString rest;
    };

    explicit PlainBudget(const CVDocument& document);

    std::vector<Record> sets;
    std::vector<Record> categories;
    std::vector<Line> lines;
    /// The place of the shown set.
    std::size_t shown = 0;
};

/// What two budgets are compared by: names in place of IDs, each list sorted.
struct PlainResult {
    QStringList sets;
    QStringList categories;
    QStringList lines;

    friend bool operator==(const PlainResult&, const PlainResult&) = default;
};

void PrintTo(const PlainResult& result, std::ostream* out);

[[nodiscard]] PlainResult plainResult(const CVDocument& document);
/// `common` is null when the common state is unknown.
[[nodiscard]] PlainResult plainMerge(const PlainBudget* common, const PlainBudget& ours, const PlainBudget& theirs);
