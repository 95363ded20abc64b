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
    [[nodiscard]] std::optional<std::size_t> transactionFor(std::size_t line, int daysAway, PayeeMatch match);
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
    /// By the payee. A key stays where it is when others are added.
    std::unordered_map<QString, CVPayeeKey> mKeys;
};

RecordedSearch::RecordedSearch(const std::vector<CVSoughtLine>& lines, const CVRecordedLines& recorded)
    : mLines(lines)
    , mRecorded(recorded.lines())
    , mFound(lines.size()) {
    collect();
}

/// Only what some line may be, because a budget has many more transactions than a statement has lines.
void RecordedSearch::collect() {
    for (const CVSoughtLine& line : mLines) {
        for (int away = -kMostDaysApart; line.day && away <= kMostDaysApart; ++away)
            mFree[{line.set, line.hundredths, line.day->dateByAddingYears(0, 0, away)}];
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
    // A line that is certain needs no transaction, and one of another payee is hardly its own.
    match(PayeeMatch::Other, LinesMeant::Uncertain);
    return std::move(mFound);
}

void RecordedSearch::match(PayeeMatch match, LinesMeant lines) {
    for (int apart = 0; apart <= kMostDaysApart; ++apart) {
        for (std::size_t at = 0; at < mLines.size(); ++at) {
            const bool isMeant = lines == LinesMeant::All || mLines[at].isCertain == (lines == LinesMeant::Certain);
            if (mFound[at].recorded || !mLines[at].day || !isMeant)
                continue;
            // A bank books later rather than earlier than somebody records.
            mFound[at].recorded = transactionFor(at, -apart, match);
            if (!mFound[at].recorded && apart > 0)
                mFound[at].recorded = transactionFor(at, apart, match);
            mFound[at].hasSamePayee = mFound[at].recorded && match != PayeeMatch::Other;
        }
    }
}

std::optional<std::size_t> RecordedSearch::transactionFor(std::size_t line, int daysAway, PayeeMatch match) {
    const CVSoughtLine& sought = mLines[line];
    const auto place = mFree.find({sought.set, sought.hundredths, sought.day->dateByAddingYears(0, 0, daysAway)});
    if (place == mFree.end() || place->empty())
        return std::nullopt;
    const auto end = place->begin() + static_cast<std::ptrdiff_t>(std::min(place->size(), kMostLooks));
    const auto found = best(sought, match, place->begin(), end);
    if (found == end)
        return std::nullopt;
    const std::size_t taken = *found;
    place->erase(found);
    return taken;
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
