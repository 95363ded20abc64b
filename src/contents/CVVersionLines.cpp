#include "contents/CVVersionLines.h"

#include "budget/CVLabelOfFrequency.h"
#include "differences/CVBudgetDifferences.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "model/CVTransactionSet.h"

#include <algorithm>
#include <optional>

namespace {

struct WordOfLine {
    CVVersionLines::Kind kind;
    /// In the order of `CVVersionSign`.
    std::array<const char*, kCVVersionSigns> words;
};

/// Since a version.
constexpr std::array<WordOfLine, 3> kWordsOfLines{
    {{CVVersionLines::Kind::Set,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Set removed"), QT_TRANSLATE_NOOP("CVVersionLines", "Set added"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Set renamed")}},
     {CVVersionLines::Kind::Category,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Category removed"), QT_TRANSLATE_NOOP("CVVersionLines", "Category added"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Category changed")}},
     {CVVersionLines::Kind::Transaction,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Removed"), QT_TRANSLATE_NOOP("CVVersionLines", "Added"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Changed")}}}};

/// In another file.
constexpr std::array<WordOfLine, 3> kWordsOfOtherLines{
    {{CVVersionLines::Kind::Set,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Set removed there"), QT_TRANSLATE_NOOP("CVVersionLines", "Set added there"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Set renamed there")}},
     {CVVersionLines::Kind::Category,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Category removed there"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Category added there"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Category changed there")}},
     {CVVersionLines::Kind::Transaction,
      {QT_TRANSLATE_NOOP("CVVersionLines", "Removed there"), QT_TRANSLATE_NOOP("CVVersionLines", "Added there"),
       QT_TRANSLATE_NOOP("CVVersionLines", "Changed there")}}}};

/// Of an import, which changes and removes nothing.
constexpr std::array<WordOfLine, 3> kWordsOfImportedLines{
    {{CVVersionLines::Kind::Set, {"New set", QT_TRANSLATE_NOOP("CVVersionLines", "New set"), "New set"}},
     {CVVersionLines::Kind::Category,
      {"New category", QT_TRANSLATE_NOOP("CVVersionLines", "New category"), "New category"}},
     {CVVersionLines::Kind::Transaction, {"New", QT_TRANSLATE_NOOP("CVVersionLines", "New"), "New"}}}};

/// The column of the list that shows the same; absent for a column of this table alone.
std::optional<int> listedColumn(int column) {
    switch (column) {
    case CVVersionLines::Date:
        return CVTransactionColumns::Date;
    case CVVersionLines::Amount:
        return CVTransactionColumns::Amount;
    case CVVersionLines::ToFrom:
        return CVTransactionColumns::ToFrom;
    case CVVersionLines::For:
        return CVTransactionColumns::For;
    case CVVersionLines::Category:
        return CVTransactionColumns::Category;
    case CVVersionLines::Tax:
        return CVTransactionColumns::Tax;
    case CVVersionLines::UserFlag:
        return CVTransactionColumns::UserFlag;
    default:
        return std::nullopt;
    }
}

/// Empty for a transaction without a set.
QString setNameOf(const CVTransaction& transaction) {
    const auto& sets = transaction.document()->transactionSets();
    const auto set = std::find_if(sets.begin(), sets.end(), [&transaction](const auto& candidate) {
        return candidate->uniqueID() == transaction.transactionSetID();
    });
    return set == sets.end() ? QString() : (*set)->transactionSetName();
}

/// What is only in the other file was added there, and not removed.
CVVersionSign signOf(CVVersionSign sign, CVComparedWith with) {
    if (with == CVComparedWith::Version || sign == CVVersionSign::Changed)
        return sign;
    return sign == CVVersionSign::Added ? CVVersionSign::Removed : CVVersionSign::Added;
}

/// What a line is sorted by.
struct LineKey {
    bool isMissing = true;
    double number = 0;
    QString text = {};
    std::optional<QBDate> day = {};

    friend bool operator<(const LineKey& a, const LineKey& b) {
        if (a.day != b.day)
            return a.day < b.day;
        return a.number < b.number || (a.number == b.number && a.text < b.text);
    }
};

} // namespace

CVVersionLines::CVVersionLines(std::shared_ptr<const CVBudgetDifferences> differences, CVComparedWith with,
                               ChangedTwice changedTwice)
    : mDifferences(std::move(differences))
    , mWith(with)
    , mChangedTwice(std::move(changedTwice)) {
    if (!mDifferences)
        return;
    append(Kind::Set, mDifferences->sets);
    append(Kind::Category, mDifferences->categories);
    append(Kind::Transaction, mDifferences->transactions);
}

template <typename Difference>
void CVVersionLines::append(Kind kind, const std::vector<Difference>& differences) {
    for (std::size_t place = 0; place < differences.size(); ++place) {
        mLines.push_back({signOf(CVSignOf(differences[place]), mWith), kind, place});
        ++mCounts[static_cast<std::size_t>(group(mLines.back()))];
    }
}

QString CVVersionLines::title(int column) {
    if (const auto listed = listedColumn(column))
        return CVTransactionText::title(*listed);
    return column == Set ? tr("Set") : tr("Change");
}

CVVersionLines::Cell CVVersionLines::cell(std::size_t line, int column) const {
    const Line& shown = mLines[line];
    if (column == What)
        return {word(shown), word(shown)};
    Cell said{shown.sign == CVVersionSign::Added ? QString() : text(shown, column, false),
              shown.sign == CVVersionSign::Removed ? QString() : text(shown, column, true)};
    const CVTransaction* const here = ours(shown);
    if (here)
        said.before = text(*here, column);
    if ((shown.sign == CVVersionSign::Changed || here) && said.isChanged())
        return said;
    const bool isLater = shown.sign != CVVersionSign::Removed;
    const QString only = isClearFlag(shown, column, isLater) ? QString() : isLater ? said.after : said.before;
    return {only, only};
}

CVVersionLines::Group CVVersionLines::group(const Line& line) const {
    return ours(line) ? Group::ChangedOnBothSides : static_cast<Group>(line.sign);
}

QString CVVersionLines::word(const Line& line) const {
    if (ours(line))
        return tr("Changed on both sides");
    const auto& words = mWith == CVComparedWith::Version ? kWordsOfLines
                        : mWith == CVComparedWith::Other ? kWordsOfOtherLines
                                                         : kWordsOfImportedLines;
    return tr(words[static_cast<std::size_t>(line.kind)].words[static_cast<std::size_t>(line.sign)]);
}

const CVTransaction* CVVersionLines::ours(const Line& line) const {
    if (mChangedTwice.isEmpty() || line.kind != Kind::Transaction || line.sign != CVVersionSign::Added)
        return nullptr;
    return mChangedTwice.value(recordOf(mDifferences->transactions[line.place], true).get()).get();
}

/// A column of flags would hide the few that are set.
bool CVVersionLines::isClearFlag(const Line& line, int column, bool isLater) const {
    if (line.kind != Kind::Transaction || (column != Tax && column != UserFlag))
        return false;
    const CVTransaction& transaction = *recordOf(mDifferences->transactions[line.place], isLater);
    return !(column == Tax ? transaction.taxFlag() : transaction.userFlag());
}

QString CVVersionLines::text(const Line& line, int column, bool isLater) const {
    switch (line.kind) {
    case Kind::Set:
        return column == Set ? recordOf(mDifferences->sets[line.place], isLater)->transactionSetName() : QString();
    case Kind::Category: {
        const CVCategory& category = *recordOf(mDifferences->categories[line.place], isLater);
        if (column == Amount)
            return mMoney.string(category.expenseTarget());
        if (column == For)
            return tr("Plan, %1").arg(CVLabelOfFrequency(category.expenseFrequency()));
        return column == Category ? category.categoryName() : QString();
    }
    case Kind::Transaction:
        break;
    }
    return text(*recordOf(mDifferences->transactions[line.place], isLater), column);
}

QString CVVersionLines::text(const CVTransaction& transaction, int column) const {
    const auto listed = listedColumn(column);
    return listed ? mText.string(transaction, *listed) : setNameOf(transaction);
}

bool CVVersionLines::matches(std::size_t line, const QString& text) const {
    for (int column = 0; column < ColumnCount && !text.isEmpty(); ++column) {
        const Cell shown = cell(line, column);
        if (shown.before.contains(text, Qt::CaseInsensitive) || shown.after.contains(text, Qt::CaseInsensitive))
            return true;
    }
    return text.isEmpty();
}

void CVVersionLines::sort(std::vector<std::size_t>& lines, int column, bool descending) const {
    std::vector<LineKey> keys(mLines.size());
    for (const std::size_t line : lines) {
        const Line& shown = mLines[line];
        const bool isLater = shown.sign != CVVersionSign::Removed;
        LineKey& key = keys[line];
        if (shown.kind == Kind::Transaction && (column == Date || column == Amount)) {
            const CVTransaction& transaction = *recordOf(mDifferences->transactions[shown.place], isLater);
            key.day = column == Date ? transaction.effectiveDate() : std::nullopt;
            key.number = column == Amount ? transaction.amount() : 0;
            key.isMissing = column == Date && !key.day;
        } else if (shown.kind == Kind::Category && column == Amount) {
            key.number = recordOf(mDifferences->categories[shown.place], isLater)->expenseTarget();
            key.isMissing = false;
        } else {
            key.text = cell(line, column).after.toCaseFolded();
            key.isMissing = key.text.isEmpty();
        }
    }
    std::stable_sort(lines.begin(), lines.end(), [&keys, descending](std::size_t a, std::size_t b) {
        if (keys[a].isMissing != keys[b].isMissing)
            return keys[b].isMissing;
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
}

CVBudgetDifferences CVVersionLines::only(const std::vector<std::size_t>& lines) const {
    CVBudgetDifferences some{mDifferences->setMatching, mDifferences->categoryMatching, {}, {}, {}, {}};
    for (const std::size_t line : lines) {
        const Line& shown = mLines[line];
        switch (shown.kind) {
        case Kind::Set:
            some.sets.push_back(mDifferences->sets[shown.place]);
            break;
        case Kind::Category:
            some.categories.push_back(mDifferences->categories[shown.place]);
            break;
        case Kind::Transaction:
            some.transactions.push_back(mDifferences->transactions[shown.place]);
            break;
        }
    }
    return some;
}
