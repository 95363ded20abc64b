#include "importing/delimited/CVStatementColumns.h"

#include "importing/statements/CVHeadingWords.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"
#include "importing/statements/CVStatementWords.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <set>

namespace {

/// With more columns there are too many ways to read them.
constexpr std::size_t kMostColumnsBesideAmounts = 8;
constexpr std::size_t kMostLinesForColumns = 1000;

/// How many cells of a column are what.
struct ColumnContents {
    int filled = 0;
    int days = 0;
    /// Also those without separators.
    int columnDays = 0;
    int amounts = 0;
    /// Amounts with decimals, a sign or a currency, which numbers of accounts and cheques are not.
    int plainlyAmounts = 0;
    int markers = 0;
    int currencies = 0;
    int words = 0;
    QSet<QString> distinct = {};
    bool isLong = false;

    [[nodiscard]] bool isMostly(int count) const { return filled > 0 && 2 * count > filled; }
    [[nodiscard]] bool isAlways(int count) const { return filled > 0 && count == filled; }
};

bool isPlainlyAmount(const QString& cell) {
    return cell == u"0" ||
           std::any_of(cell.begin(), cell.end(), [](QChar c) { return !c.isDigit() && !c.isLetter() && !c.isSpace(); });
}

void count(const QString& cell, ColumnContents& contents) {
    constexpr qsizetype kMostDistinct = 3;
    constexpr qsizetype kLongText = 8;
    if (cell.isEmpty())
        return;
    ++contents.filled;
    const bool isDay = CVReadStatementDay(cell).has_value();
    const bool isAmount = !isDay && CVMarkEvidenceOf(cell).isAmount();
    contents.days += isDay ? 1 : 0;
    contents.columnDays += isDay || (!isPlainlyAmount(cell) && CVReadDayOfColumn(cell)) ? 1 : 0;
    contents.amounts += isAmount ? 1 : 0;
    contents.plainlyAmounts += isAmount && isPlainlyAmount(cell) ? 1 : 0;
    contents.markers += CVMarkerOf(cell) != 0 ? 1 : 0;
    contents.currencies += CVIsCurrencyName(cell) ? 1 : 0;
    contents.words += std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.isLetter(); }) ? 1 : 0;
    contents.isLong = contents.isLong || cell.size() >= kLongText;
    if (contents.distinct.size() < kMostDistinct)
        contents.distinct.insert(cell);
}

std::vector<ColumnContents> contentsOf(const CVStatementTable& table) {
    std::vector<ColumnContents> contents(static_cast<std::size_t>(table.columns));
    const std::size_t lines = std::min(table.likely.size(), kMostLinesForColumns);
    for (std::size_t line = 0; line < lines; ++line) {
        const CVStatementRow& row = table.rows[table.likely[line]];
        for (int column = 0; column < table.columns; ++column)
            count(CVStatementTable::cell(row, column), contents[static_cast<std::size_t>(column)]);
    }
    return contents;
}

/// What the heading says where the contents agree, else what the contents say; Guessed when neither tells.
CVHeading checkedHeading(CVHeading heading, const ColumnContents& contents, bool hasLines) {
    const bool isEmpty = contents.filled == 0;
    if (!hasLines)
        return heading;
    const bool mayBeMarker = heading.role == CVColumnRole::Guessed || heading.role == CVColumnRole::Purpose;
    if (mayBeMarker && contents.isAlways(contents.markers))
        return {CVColumnRole::Marker, 0};
    // "Debit/Credit" is a marker's heading, or that of amounts with signs.
    if (heading.role == CVColumnRole::Purpose && heading.rank > 0 && contents.isMostly(contents.plainlyAmounts))
        return {CVColumnRole::Amount, 1};
    switch (heading.role) {
    case CVColumnRole::Day:
    case CVColumnRole::OtherDay:
        if (contents.isMostly(contents.columnDays))
            return heading;
        return {contents.isMostly(contents.currencies) ? CVColumnRole::Currency : CVColumnRole::Ignored, 0};
    case CVColumnRole::Amount:
    case CVColumnRole::Balance:
    case CVColumnRole::Fee:
        return {contents.isMostly(contents.amounts) ? heading.role : CVColumnRole::Ignored, heading.rank};
    case CVColumnRole::MoneyIn:
    case CVColumnRole::MoneyOut:
        return {isEmpty || contents.isMostly(contents.amounts) ? heading.role : CVColumnRole::Ignored, heading.rank};
    default:
        return heading;
    }
}

/// How many columns hold what their headings say when the headings are moved to the right by `shift`.
int fitOfShift(const std::vector<CVHeading>& headings, const std::vector<ColumnContents>& contents, int shift) {
    int fit = 0;
    for (int column = 0; column < static_cast<int>(contents.size()); ++column) {
        const int of = column - shift;
        if (of < 0 || of >= static_cast<int>(headings.size()))
            continue;
        const auto& here = contents[static_cast<std::size_t>(column)];
        const CVColumnRole role = headings[static_cast<std::size_t>(of)].role;
        if (role == CVColumnRole::Day && here.filled > 0)
            fit += here.isMostly(here.columnDays) ? 2 : -2;
        if (role == CVColumnRole::Amount && here.filled > 0)
            fit += here.isMostly(here.amounts) ? 2 : -2;
    }
    return fit;
}

/// The headings of the columns; moved by one where they are out of step with their rows.
std::vector<CVHeading> headingsInStep(const CVStatementTable& table, const std::vector<ColumnContents>& contents) {
    std::vector<CVHeading> named;
    for (const QString& text : table.headings)
        named.push_back(CVHeadingOf(text));
    // A day and an amount must be gained by it.
    constexpr int kBothFit = 4;
    int shift = 0;
    for (const int other : {1, -1}) {
        if (fitOfShift(named, contents, 0) < 0 && fitOfShift(named, contents, other) >= kBothFit)
            shift = other;
    }
    std::vector<CVHeading> headings(contents.size());
    for (int column = 0; column < static_cast<int>(headings.size()); ++column) {
        const int of = column - shift;
        if (of >= 0 && of < static_cast<int>(named.size()))
            headings[static_cast<std::size_t>(column)] = named[static_cast<std::size_t>(of)];
    }
    return headings;
}

/// Whether a column tells the lines apart by words.
bool isOfWords(const ColumnContents& contents) {
    return contents.isMostly(contents.words) &&
           (contents.distinct.size() > 1 || contents.filled == 1 || contents.isLong);
}

/// What a column without a heading that is known says, by its contents alone.
CVColumnRole roleByContents(const ColumnContents& contents) {
    if (contents.isMostly(contents.days))
        return CVColumnRole::OtherDay;
    if (contents.isAlways(contents.currencies))
        return CVColumnRole::Currency;
    return CVColumnRole::Ignored;
}

/// Chooses the columns for the purpose: what kind a line is counts only where nothing else is said, and columns without
/// a known heading only where no other column names the payee.
void choosePurpose(CVStatementColumns& columns, const std::vector<CVHeading>& headings,
                   const std::vector<ColumnContents>& contents) {
    bool hasPurpose = false;
    bool hasPayee = false;
    bool hasText = false;
    const auto isUnknown = [&](std::size_t column) {
        return columns.roles[column] == CVColumnRole::Ignored && headings[column].role == CVColumnRole::Guessed;
    };
    for (std::size_t column = 0; column < contents.size(); ++column) {
        const bool isFilled = contents[column].filled > 0;
        hasPurpose =
            hasPurpose || (headings[column].role == CVColumnRole::Purpose && headings[column].rank <= 0 && isFilled);
        hasPayee = hasPayee || (headings[column].role == CVColumnRole::Payee && isFilled);
    }
    for (std::size_t column = 0; column < contents.size(); ++column) {
        CVColumnRole& role = columns.roles[column];
        if (role == CVColumnRole::Purpose && headings[column].rank > 0 && hasPurpose)
            role = CVColumnRole::Ignored;
        if (isUnknown(column) && !hasPayee && isOfWords(contents[column]))
            role = CVColumnRole::Purpose;
        hasText = hasText || (role == CVColumnRole::Purpose && contents[column].filled > 0);
    }
    for (std::size_t column = 0; column < contents.size() && !hasText && !hasPayee; ++column) {
        const bool mayBeText = isUnknown(column) || columns.roles[column] == CVColumnRole::BankID;
        if (mayBeText && contents[column].isMostly(contents[column].words))
            columns.roles[column] = CVColumnRole::Purpose;
    }
}

std::vector<int>* listOf(CVStatementColumns& columns, CVColumnRole role) {
    switch (role) {
    case CVColumnRole::Day:
        return &columns.days;
    case CVColumnRole::Amount:
        return &columns.amounts;
    case CVColumnRole::MoneyIn:
        return &columns.moneyIn;
    case CVColumnRole::MoneyOut:
        return &columns.moneyOut;
    case CVColumnRole::Balance:
        return &columns.balances;
    case CVColumnRole::Fee:
        return &columns.fees;
    case CVColumnRole::Marker:
        return &columns.markers;
    default:
        return nullptr;
    }
}

/// Keeps of the columns those of the lowest rank.
void keepLikeliest(std::vector<int>& columns, const std::vector<CVHeading>& headings) {
    const auto rankOf = [&](int column) { return headings[static_cast<std::size_t>(column)].rank; };
    if (columns.empty())
        return;
    const auto best =
        std::min_element(columns.begin(), columns.end(), [&](int a, int b) { return rankOf(a) < rankOf(b); });
    const int rank = rankOf(*best);
    std::erase_if(columns, [&](int column) { return rankOf(column) > rank; });
}

/// The columns of numbers without a known heading; of amounts where there are any.
std::vector<int> unnamedAmounts(const std::vector<CVHeading>& headings, const std::vector<ColumnContents>& contents) {
    std::vector<int> plain;
    std::vector<int> numbers;
    for (int column = 0; column < static_cast<int>(contents.size()); ++column) {
        const auto& here = contents[static_cast<std::size_t>(column)];
        if (headings[static_cast<std::size_t>(column)].role != CVColumnRole::Guessed || !here.isMostly(here.amounts) ||
            here.isMostly(here.days))
            continue;
        numbers.push_back(column);
        if (here.isMostly(here.plainlyAmounts))
            plain.push_back(column);
    }
    return plain.empty() ? numbers : plain;
}

/// Whether one of two columns is empty or zero in each line.
bool completeEachOther(const CVStatementTable& table, int one, int other) {
    const auto hasAmount = [&table](std::size_t row, int column) {
        const QString cell = CVStatementTable::cell(table.rows[row], column);
        return std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.isDigit() && c.digitValue() != 0; });
    };
    return std::none_of(table.likely.begin(), table.likely.end(),
                        [&](std::size_t row) { return hasAmount(row, one) && hasAmount(row, other); });
}

/// The second of two columns for money in and money out, where the first one was given alone.
std::vector<int> secondColumns(const CVStatementTable& table, std::vector<int> numbers, int given) {
    std::erase_if(numbers, [&](int column) { return !completeEachOther(table, given, column); });
    return numbers;
}

/// Takes the numbers without a known heading for the amounts, where nothing else names these.
void guessAmounts(const CVStatementTable& table, CVStatementColumns& columns, const std::vector<CVHeading>& headings,
                  const std::vector<ColumnContents>& contents) {
    if (!columns.areAmountsNamed) {
        columns.amounts = unnamedAmounts(headings, contents);
        if (columns.balances.empty())
            columns.balances = columns.amounts;
    } else if (columns.amounts.empty() && columns.moneyIn.empty()) {
        columns.moneyIn = secondColumns(table, unnamedAmounts(headings, contents), columns.moneyOut.front());
    } else if (columns.amounts.empty() && columns.moneyOut.empty()) {
        columns.moneyOut = secondColumns(table, unnamedAmounts(headings, contents), columns.moneyIn.front());
    }
}

/// Puts the days into the order in which they are likely the booking day; the others help to settle their order.
void chooseDay(CVStatementColumns& columns, const std::vector<CVHeading>& headings,
               const std::vector<ColumnContents>& contents) {
    const auto filled = [&](int column) { return contents[static_cast<std::size_t>(column)].filled; };
    if (columns.days.empty()) {
        for (int column = 0; column < static_cast<int>(columns.roles.size()); ++column) {
            if (columns.roles[static_cast<std::size_t>(column)] == CVColumnRole::OtherDay)
                columns.days.push_back(column);
        }
        const bool isUnnamed = std::all_of(columns.days.begin(), columns.days.end(), [&headings](int column) {
            return headings[static_cast<std::size_t>(column)].role == CVColumnRole::Guessed;
        });
        if (isUnnamed && columns.days.size() > 1)
            columns.unnamedDays = columns.days;
    }
    std::stable_sort(columns.days.begin(), columns.days.end(), [&](int a, int b) {
        const int rankA = headings[static_cast<std::size_t>(a)].rank;
        const int rankB = headings[static_cast<std::size_t>(b)].rank;
        return rankA != rankB ? rankA < rankB : filled(a) > filled(b);
    });
    for (const int column : columns.days)
        columns.roles[static_cast<std::size_t>(column)] = CVColumnRole::OtherDay;
}

} // namespace

CVStatementColumns CVGuessColumns(const CVStatementTable& table, const std::vector<CVColumnRole>& known) {
    const auto contents = contentsOf(table);
    auto headings = headingsInStep(table, contents);
    CVStatementColumns columns;
    columns.roles.assign(contents.size(), CVColumnRole::Ignored);
    std::set<CVColumnRole> given;
    for (std::size_t column = 0; column < contents.size(); ++column) {
        const bool isKnown = column < known.size() && known[column] != CVColumnRole::Guessed;
        // A given role is likelier than any heading.
        headings[column] = isKnown ? CVHeading{known[column], -1}
                                   : checkedHeading(headings[column], contents[column], !table.likely.empty());
        const CVColumnRole role = headings[column].role;
        columns.isMarkerGiven = columns.isMarkerGiven || (isKnown && role == CVColumnRole::Marker);
        columns.isFeeGiven = columns.isFeeGiven || (isKnown && role == CVColumnRole::Fee);
        if (isKnown)
            given.insert(role);
        if (auto* const list = listOf(columns, role))
            list->push_back(static_cast<int>(column));
        else
            columns.roles[column] = role == CVColumnRole::Guessed ? roleByContents(contents[column]) : role;
    }
    const auto isNoGuess = [&](int column) { return headings[static_cast<std::size_t>(column)].rank < 0; };
    const bool isAmountGiven = given.contains(CVColumnRole::Amount);
    const bool isInGiven = given.contains(CVColumnRole::MoneyIn);
    const bool isOutGiven = given.contains(CVColumnRole::MoneyOut);
    if (isAmountGiven || isInGiven || isOutGiven)
        std::erase_if(columns.amounts, std::not_fn(isNoGuess));
    if (isAmountGiven || isInGiven)
        std::erase_if(columns.moneyIn, std::not_fn(isNoGuess));
    if (isAmountGiven || isOutGiven)
        std::erase_if(columns.moneyOut, std::not_fn(isNoGuess));
    if (columns.isMarkerGiven)
        std::erase_if(columns.markers, std::not_fn(isNoGuess));
    if (columns.isFeeGiven)
        std::erase_if(columns.fees, std::not_fn(isNoGuess));
    keepLikeliest(columns.amounts, headings);
    columns.areAmountsNamed = !columns.amounts.empty() || !columns.moneyIn.empty() || !columns.moneyOut.empty();
    guessAmounts(table, columns, headings, contents);
    for (auto* const list : {&columns.balances, &columns.fees, &columns.markers})
        list->resize(std::min(list->size(), kMostColumnsBesideAmounts));
    chooseDay(columns, headings, contents);
    choosePurpose(columns, headings, contents);
    return columns;
}
