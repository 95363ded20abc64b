#include "importing/CVFindRecorded.h"

#include "importing/CVPayeeKey.h"
#include "importing/CVRecordedLines.h"

#include <QHash>

#include <algorithm>
#include <unordered_map>

namespace {

constexpr int kMostDaysApart = 4;
/// Of many transactions of one day with the same amount, so many are looked at for the payee.
constexpr std::size_t kMostLooks = 1000;
/// Of many transactions of one day and payee, so many are tried as the parts of a line.
constexpr std::size_t kMostParts = 10;

enum class PayeeMatch { Same, Like, Other };
/// The lines that are looked for.
enum class LinesMeant { Certain, Uncertain, All };

/// What a line and a transaction must have in common but for the day's distance.
struct RecordedPlace {
    quint32 set;
    qint64 hundredths;
    QBDate day;

    friend bool operator==(const RecordedPlace&, const RecordedPlace&) = default;
};

size_t qHash(const RecordedPlace& place, size_t seed = 0) {
    return qHashMulti(seed, place.set, place.hundredths, place.day.yearOfCommonEra(), place.day.monthOfYear(),
                      place.day.dayOfMonth());
}

/// Where the parts of a line may be.
struct PlaceOfParts {
    quint32 set;
    QBDate day;

    friend bool operator==(const PlaceOfParts&, const PlaceOfParts&) = default;
};

size_t qHash(const PlaceOfParts& place, size_t seed = 0) {
    return qHashMulti(seed, place.set, place.day.yearOfCommonEra(), place.day.monthOfYear(), place.day.dayOfMonth());
}

/// A set in which a line may be recorded, and its amount there.
struct SideOfLine {
    quint32 set;
    qint64 hundredths;
};

std::vector<SideOfLine> sidesOf(const CVSoughtLine& line) {
    std::vector<SideOfLine> sides{{line.set, line.hundredths}};
    if (line.setOfOtherSide)
        sides.push_back({*line.setOfOtherSide, -line.hundredths});
    return sides;
}

QBDate dayAway(const CVSoughtLine& line, int daysAway) {
    return line.day->dateByAddingYears(0, 0, daysAway);
}

/// The matching of one statement.
class RecordedSearch final {
public:
    RecordedSearch(const std::vector<CVSoughtLine>& lines, const CVRecordedLines& recorded);

    [[nodiscard]] std::vector<CVFoundLine> find();

private:
    /// Places of recorded lines.
    using Places = std::vector<std::size_t>;

    void collect();
    void match(PayeeMatch match, LinesMeant lines);
    [[nodiscard]] Places transactionFor(std::size_t line, int daysAway, PayeeMatch match);
    void collectParts();
    void matchParts(PayeeMatch match);
    [[nodiscard]] Places partsFor(std::size_t line, int daysAway, PayeeMatch match);
    [[nodiscard]] Places partsOf(const Places& ofPayee, qint64 hundredths) const;
    [[nodiscard]] Places::iterator best(const CVSoughtLine& sought, PayeeMatch match, Places::iterator begin,
                                        Places::iterator end);
    [[nodiscard]] bool isSame(const CVSoughtLine& sought, const QString& payee);
    [[nodiscard]] double likenessOf(const CVSoughtLine& sought, const QString& payee);
    [[nodiscard]] const CVPayeeKey& keyOf(const QString& payee);

    const std::vector<CVSoughtLine>& mLines;
    const std::vector<CVRecordedLine>& mRecorded;
    std::vector<CVFoundLine> mFound;
    /// The transactions that no line has yet, by what they must have in common with one; in the budget's order.
    QHash<RecordedPlace, Places> mFree;
    /// By the recorded line.
    std::vector<bool> mIsTaken;
    /// Of each payee that has several transactions that day, those transactions.
    QHash<PlaceOfParts, std::vector<Places>> mParts;
    /// By the payee. A key stays where it is when others are added.
    std::unordered_map<QString, CVPayeeKey> mKeys;
};

RecordedSearch::RecordedSearch(const std::vector<CVSoughtLine>& lines, const CVRecordedLines& recorded)
    : mLines(lines)
    , mRecorded(recorded.lines())
    , mFound(lines.size())
    , mIsTaken(mRecorded.size()) {
    collect();
}

/// Only what some line may be, because a budget has many more transactions than a statement has lines.
void RecordedSearch::collect() {
    for (const CVSoughtLine& line : mLines) {
        for (int away = -kMostDaysApart; line.day && away <= kMostDaysApart; ++away) {
            for (const SideOfLine& side : sidesOf(line))
                mFree[{side.set, side.hundredths, dayAway(line, away)}];
        }
    }
    if (mFree.isEmpty())
        return;
    for (std::size_t at = 0; at < mRecorded.size(); ++at) {
        const CVRecordedLine& line = mRecorded[at];
        if (!line.day || !line.hundredths)
            continue;
        if (const auto place = mFree.find({line.set, *line.hundredths, *line.day}); place != mFree.end())
            place->push_back(at);
    }
}

std::vector<CVFoundLine> RecordedSearch::find() {
    // What is certain takes its transaction before a line that only looks like it.
    for (const LinesMeant lines : {LinesMeant::Certain, LinesMeant::All}) {
        for (const PayeeMatch each : {PayeeMatch::Same, PayeeMatch::Like})
            match(each, lines);
    }
    collectParts();
    for (const PayeeMatch each : {PayeeMatch::Same, PayeeMatch::Like})
        matchParts(each);
    // A line that is certain needs no transaction, and one of another payee is hardly its own.
    match(PayeeMatch::Other, LinesMeant::Uncertain);
    return std::move(mFound);
}

void RecordedSearch::match(PayeeMatch match, LinesMeant lines) {
    for (int apart = 0; apart <= kMostDaysApart; ++apart) {
        for (std::size_t at = 0; at < mLines.size(); ++at) {
            CVFoundLine& found = mFound[at];
            const bool isMeant = lines == LinesMeant::All || mLines[at].isCertain == (lines == LinesMeant::Certain);
            if (!found.recorded.empty() || !mLines[at].day || !isMeant)
                continue;
            // A bank books later rather than earlier than somebody records.
            found.recorded = transactionFor(at, -apart, match);
            if (found.recorded.empty() && apart > 0)
                found.recorded = transactionFor(at, apart, match);
            found.hasSamePayee = !found.recorded.empty() && match != PayeeMatch::Other;
        }
    }
}

auto RecordedSearch::transactionFor(std::size_t line, int daysAway, PayeeMatch match) -> Places {
    const CVSoughtLine& sought = mLines[line];
    for (const SideOfLine& side : sidesOf(sought)) {
        const auto place = mFree.find({side.set, side.hundredths, dayAway(sought, daysAway)});
        if (place == mFree.end() || place->empty())
            continue;
        const auto end = place->begin() + static_cast<std::ptrdiff_t>(std::min(place->size(), kMostLooks));
        const auto found = best(sought, match, place->begin(), end);
        if (found == end)
            continue;
        const std::size_t taken = *found;
        mIsTaken[taken] = true;
        place->erase(found);
        return {taken};
    }
    return {};
}

/// Only where a line was not found, because few payees have several transactions a day.
void RecordedSearch::collectParts() {
    for (std::size_t at = 0; at < mLines.size(); ++at) {
        const CVSoughtLine& line = mLines[at];
        for (int away = -kMostDaysApart; line.day && mFound[at].recorded.empty() && away <= kMostDaysApart; ++away) {
            for (const SideOfLine& side : sidesOf(line))
                mParts[{side.set, dayAway(line, away)}];
        }
    }
    if (mParts.isEmpty())
        return;
    for (std::size_t at = 0; at < mRecorded.size(); ++at) {
        const CVRecordedLine& line = mRecorded[at];
        if (mIsTaken[at] || !line.day || !line.hundredths || keyOf(line.payee).isEmpty())
            continue;
        const auto place = mParts.find({line.set, *line.day});
        if (place == mParts.end())
            continue;
        const auto ofPayee = std::find_if(place->begin(), place->end(), [&](const Places& places) {
            return keyOf(mRecorded[places.front()].payee) == keyOf(line.payee);
        });
        if (ofPayee == place->end())
            place->push_back({at});
        else if (ofPayee->size() < kMostParts)
            ofPayee->push_back(at);
    }
    for (auto& ofDay : mParts)
        std::erase_if(ofDay, [](const Places& places) { return places.size() == 1; });
}

void RecordedSearch::matchParts(PayeeMatch match) {
    for (int apart = 0; apart <= kMostDaysApart; ++apart) {
        for (std::size_t at = 0; at < mLines.size(); ++at) {
            CVFoundLine& found = mFound[at];
            if (!found.recorded.empty() || !mLines[at].day)
                continue;
            found.recorded = partsFor(at, -apart, match);
            if (found.recorded.empty() && apart > 0)
                found.recorded = partsFor(at, apart, match);
            found.hasSamePayee = !found.recorded.empty();
        }
    }
}

auto RecordedSearch::partsFor(std::size_t line, int daysAway, PayeeMatch match) -> Places {
    const CVSoughtLine& sought = mLines[line];
    for (const SideOfLine& side : sidesOf(sought)) {
        for (const Places& ofPayee : mParts.value({side.set, dayAway(sought, daysAway)})) {
            const QString& payee = mRecorded[ofPayee.front()].payee;
            const bool isMeant =
                match == PayeeMatch::Same ? isSame(sought, payee) : likenessOf(sought, payee) >= CVPayeeKey::kLikely;
            Places parts = isMeant ? partsOf(ofPayee, side.hundredths) : Places();
            for (const std::size_t part : parts) {
                mIsTaken[part] = true;
                std::erase(mFree[{side.set, *mRecorded[part].hundredths, *mRecorded[part].day}], part);
            }
            if (!parts.empty())
                return parts;
        }
    }
    return {};
}

/// Those, two or more, that add up to the amount; as many as can be, because all parts of a line are recorded together.
auto RecordedSearch::partsOf(const Places& ofPayee, qint64 hundredths) const -> Places {
    Places best;
    for (std::size_t choice = 1; choice < std::size_t{1} << ofPayee.size(); ++choice) {
        Places parts;
        qint64 rest = hundredths;
        for (std::size_t at = 0; at < ofPayee.size(); ++at) {
            if ((choice >> at & 1) == 0 || mIsTaken[ofPayee[at]])
                continue;
            parts.push_back(ofPayee[at]);
            rest -= *mRecorded[ofPayee[at]].hundredths;
        }
        if (rest == 0 && parts.size() > std::max(best.size(), std::size_t{1}))
            best = std::move(parts);
    }
    return best;
}

auto RecordedSearch::best(const CVSoughtLine& sought, PayeeMatch match, Places::iterator begin, Places::iterator end)
    -> Places::iterator {
    if (match == PayeeMatch::Other)
        return begin;
    auto best = end;
    double likeness = 0;
    for (auto at = begin; at != end; ++at) {
        const QString& payee = mRecorded[*at].payee;
        if (isSame(sought, payee))
            return at;
        const double likenessHere = match == PayeeMatch::Like ? likenessOf(sought, payee) : 0;
        if (likenessHere >= CVPayeeKey::kLikely && likenessHere > likeness) {
            best = at;
            likeness = likenessHere;
        }
    }
    return best;
}

bool RecordedSearch::isSame(const CVSoughtLine& sought, const QString& payee) {
    const CVPayeeKey& key = keyOf(payee);
    return payee == sought.payee ||
           (!key.isEmpty() && (key == keyOf(sought.payee) || key == keyOf(sought.payeeInStatement)));
}

double RecordedSearch::likenessOf(const CVSoughtLine& sought, const QString& payee) {
    const CVPayeeKey& key = keyOf(payee);
    return std::max(key.likeness(keyOf(sought.payee)), key.likeness(keyOf(sought.payeeInStatement)));
}

const CVPayeeKey& RecordedSearch::keyOf(const QString& payee) {
    const auto known = mKeys.find(payee);
    return known == mKeys.end() ? mKeys.emplace(payee, CVPayeeKey(payee)).first->second : known->second;
}

} // namespace

std::vector<CVFoundLine> CVFindRecorded(const std::vector<CVSoughtLine>& lines, const CVRecordedLines& recorded) {
    return RecordedSearch(lines, recorded).find();
}
