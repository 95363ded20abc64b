#include "PlainMerge.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <set>

namespace {

using PlainRecords = std::vector<PlainBudget::Record>;

QString plainText(const QString& text) {
    return text.isNull() ? QStringLiteral("(null)") : '"' + text + '"';
}

const PlainBudget::Record* plainWithID(const PlainRecords& records, quint32 id) {
    for (const auto& record : records) {
        if (record.id == id)
            return &record;
    }
    return nullptr;
}

/// Which place in `to` each record of `from` has: the same ID and name, else the same ID when both descend from a state
/// that had it, else the same name; -1 for none.
std::vector<int> plainPlaces(const PlainRecords& from, const PlainRecords& to, const PlainRecords* descent) {
    std::vector<int> places(from.size(), -1);
    std::vector<bool> taken(to.size(), false);
    for (int rule = 0; rule < 3; ++rule) {
        for (std::size_t i = 0; i < from.size(); ++i) {
            for (std::size_t j = 0; j < to.size() && places[i] < 0; ++j) {
                const bool sameID = from[i].id == to[j].id;
                const bool sameName = from[i].name == to[j].name;
                const bool fits = rule == 0   ? sameID && sameName
                                  : rule == 1 ? sameID && descent && plainWithID(*descent, from[i].id)
                                              : sameName;
                if (!fits || taken[j])
                    continue;
                places[i] = static_cast<int>(j);
                taken[j] = true;
            }
        }
    }
    return places;
}

/// What two states call the same gets the same token.
struct PlainTokens {
    std::vector<QString> common;
    std::vector<QString> ours;
    std::vector<QString> theirs;
};

PlainTokens plainTokens(const PlainRecords& common, const PlainRecords& ours, const PlainRecords& theirs, bool ofUs,
                        bool ofThem) {
    PlainTokens tokens;
    for (std::size_t i = 0; i < ours.size(); ++i)
        tokens.ours.push_back("o" + QString::number(i));
    const auto toOurs = plainPlaces(theirs, ours, ofUs && ofThem ? &common : nullptr);
    for (std::size_t i = 0; i < theirs.size(); ++i)
        tokens.theirs.push_back(toOurs[i] >= 0 ? tokens.ours[toOurs[i]] : "t" + QString::number(i));
    const auto commonToOurs = plainPlaces(common, ours, ofUs ? &common : nullptr);
    const auto commonToTheirs = plainPlaces(common, theirs, ofThem ? &common : nullptr);
    for (std::size_t i = 0; i < common.size(); ++i) {
        tokens.common.push_back(commonToOurs[i] >= 0     ? tokens.ours[commonToOurs[i]]
                                : commonToTheirs[i] >= 0 ? tokens.theirs[commonToTheirs[i]]
                                                         : "c" + QString::number(i));
    }
    return tokens;
}

QString plainTokenOf(const PlainRecords& records, const std::vector<QString>& tokens, quint32 id) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i].id == id)
            return tokens[i];
    }
    return {};
}

/// The record that stands for a token in a list, null for none.
const PlainBudget::Record* plainOf(const PlainRecords& records, const std::vector<QString>& tokens,
                                   const QString& token) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (tokens[i] == token)
            return &records[i];
    }
    return nullptr;
}

QString plainValue(const QString* common, const QString& ours, const QString& theirs) {
    return common && *common == ours ? theirs : ours;
}

/// The merged records by token. A record that both call the same, or that one of them has, has a common one only where
/// both sides agree on it.
std::map<QString, PlainBudget::Record> plainRecords(const PlainRecords& common, const PlainRecords& ours,
                                                    const PlainRecords& theirs, const PlainTokens& tokens, bool ofUs,
                                                    bool ofThem, const std::set<QString>& used) {
    const auto commonToOurs = plainPlaces(common, ours, ofUs ? &common : nullptr);
    const auto commonToTheirs = plainPlaces(common, theirs, ofThem ? &common : nullptr);
    std::set<QString> all(tokens.ours.begin(), tokens.ours.end());
    all.insert(tokens.theirs.begin(), tokens.theirs.end());
    std::map<QString, PlainBudget::Record> merged;
    for (const QString& token : all) {
        const auto* const our = plainOf(ours, tokens.ours, token);
        const auto* const their = plainOf(theirs, tokens.theirs, token);
        const PlainBudget::Record* before = nullptr;
        for (std::size_t i = 0; i < common.size(); ++i) {
            const auto* const isOur = commonToOurs[i] >= 0 ? &ours[commonToOurs[i]] : nullptr;
            const auto* const isTheir = commonToTheirs[i] >= 0 ? &theirs[commonToTheirs[i]] : nullptr;
            if (tokens.common[i] == token && isOur == our && isTheir == their)
                before = &common[i];
        }
        if (our && their) {
            merged[token] = {our->id, plainValue(before ? &before->name : nullptr, our->name, their->name),
                             plainValue(before ? &before->plan : nullptr, our->plan, their->plan)};
        } else {
            const auto& only = our ? *our : *their;
            if (!before || before->name != only.name || before->plan != only.plan || used.contains(token))
                merged[token] = only;
        }
    }
    return merged;
}

bool plainDescends(const PlainBudget& before, const PlainBudget& after) {
    std::size_t same = 0;
    for (const auto& category : before.categories) {
        const auto* const other = plainWithID(after.categories, category.id);
        same += other && other->name == category.name ? 1 : 0;
    }
    return 2 * same >= before.categories.size();
}

int plainCount(int b, int o, int t) {
    if (o > b && t > b)
        return b + std::max(o - b, t - b);
    if (o < b && t < b)
        return b - std::max(b - o, b - t);
    return std::max(0, o + t - b);
}

QStringList plainSorted(QStringList texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

} // namespace

PlainBudget::PlainBudget(const CVDocument& document) : shown(document.popupIndexOfCurrentTransactionSet()) {
    for (const auto& set : document.transactionSets())
        sets.push_back({set->uniqueID(), set->transactionSetName(), {}});
    for (const auto& category : document.categories())
        categories.push_back(
            {category->uniqueID(), category->categoryName(),
             QString::number(category->expenseFrequency()) + '/' + QString::number(category->expenseTarget(), 'f', 2)});
    for (const auto& transaction : document.transactions()) {
        QString amount = QString::number(transaction->amount(), 'f', 2);
        if (amount == "-0.00")
            amount = "0.00";
        const auto date = transaction->effectiveDate();
        lines.push_back({transaction->transactionSetID(), transaction->categoryID(),
                         QStringList{date ? QString::fromLatin1(date->corvellaXMLRepresentation()) : QString(), amount,
                                     plainText(transaction->payTo()), plainText(transaction->xfor()),
                                     QString::number(transaction->taxFlag()), QString::number(transaction->userFlag())}
                             .join('|')});
    }
}

void PrintTo(const PlainResult& result, std::ostream* out) {
    for (const QStringList& list : {result.sets, result.categories, result.lines})
        *out << list.join("\n").toStdString() << "\n\n";
}

PlainResult plainResult(const CVDocument& document) {
    const PlainBudget budget(document);
    PlainResult result;
    for (const auto& set : budget.sets)
        result.sets.append(set.name);
    for (const auto& category : budget.categories)
        result.categories.append(category.name + ' ' + category.plan);
    for (const auto& line : budget.lines) {
        const auto* const set = plainWithID(budget.sets, line.set);
        const auto* const category = plainWithID(budget.categories, line.category);
        result.lines.append((set ? set->name : '#' + QString::number(line.set)) + '/' +
                            (category ? category->name : "(none)") + '|' + line.rest);
    }
    return {plainSorted(result.sets), plainSorted(result.categories), plainSorted(result.lines)};
}

PlainResult plainMerge(const PlainBudget* common, const PlainBudget& ours, const PlainBudget& theirs) {
    const PlainRecords none;
    const auto& setsBefore = common ? common->sets : none;
    const auto& categoriesBefore = common ? common->categories : none;
    const bool ofUs = common && plainDescends(*common, ours);
    const bool ofThem = common && plainDescends(*common, theirs);
    const PlainTokens sets = plainTokens(setsBefore, ours.sets, theirs.sets, ofUs, ofThem);
    const PlainTokens categories = plainTokens(categoriesBefore, ours.categories, theirs.categories, ofUs, ofThem);

    // How often each content is in the common state, ours and theirs; a content is a set, a category and the rest.
    using Content = std::tuple<QString, QString, QString>;
    std::map<Content, std::array<int, 3>> counts;
    const auto tokenOfNoSet = [&](quint32 id) {
        QString token = plainTokenOf(ours.sets, sets.ours, id);
        if (const QString their = plainTokenOf(theirs.sets, sets.theirs, id); token.isEmpty() && their.startsWith('t'))
            token = their;
        return token.isEmpty() ? '#' + QString::number(id) : token;
    };
    const auto count = [&](const PlainBudget& budget, const std::vector<QString>& setTokens,
                           const std::vector<QString>& categoryTokens, int side) {
        for (const auto& line : budget.lines) {
            const QString set = plainTokenOf(budget.sets, setTokens, line.set);
            ++counts[{set.isEmpty() ? tokenOfNoSet(line.set) : set,
                      plainTokenOf(budget.categories, categoryTokens, line.category), line.rest}][side];
        }
    };
    if (common)
        count(*common, sets.common, categories.common, 0);
    count(ours, sets.ours, categories.ours, 1);
    count(theirs, sets.theirs, categories.theirs, 2);

    std::set<QString> usedSets;
    std::set<QString> usedCategories;
    std::vector<Content> lines;
    bool hasLineWithoutSet = false;
    for (const auto& [content, number] : counts) {
        const auto [b, o, t] = number;
        const int merged = common ? plainCount(b, o, t) : std::max(o, t);
        for (int i = 0; i < merged; ++i) {
            lines.push_back(content);
            usedSets.insert(std::get<0>(content));
            usedCategories.insert(std::get<1>(content));
            hasLineWithoutSet = hasLineWithoutSet || std::get<0>(content) == "#0";
        }
    }
    if (!ours.sets.empty())
        usedSets.insert(sets.ours[ours.shown]);
    const auto mergedSets = plainRecords(setsBefore, ours.sets, theirs.sets, sets, ofUs, ofThem, usedSets);
    const auto mergedCategories =
        plainRecords(categoriesBefore, ours.categories, theirs.categories, categories, ofUs, ofThem, usedCategories);
    PlainResult result;
    for (const auto& [token, set] : mergedSets)
        result.sets.append(set.name);
    for (const auto& [token, category] : mergedCategories)
        result.categories.append(category.name + ' ' + category.plan);
    const bool getsInitial = ours.sets.empty() && !mergedSets.empty() && hasLineWithoutSet;
    if (getsInitial)
        result.sets.append("Initial Transaction Set");
    for (const auto& [set, category, rest] : lines) {
        const QString name = mergedSets.contains(set)     ? mergedSets.at(set).name
                             : set == "#0" && getsInitial ? "Initial Transaction Set"
                                                          : set;
        result.lines.append(name + '/' + (category.isEmpty() ? "(none)" : mergedCategories.at(category).name) + '|' +
                            rest);
    }
    return {plainSorted(result.sets), plainSorted(result.categories), plainSorted(result.lines)};
}
