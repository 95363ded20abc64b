#include "importing/delimited/CVStatementTable.h"

#include "importing/statements/CVHeadingWords.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr std::size_t kRowsBeforeHeader = 100;

bool isDayCell(const QString& cell) {
    return !cell.isEmpty() && CVReadStatementDay(cell).has_value();
}

bool hasDayAndAmount(const CVStatementRow& row) {
    bool hasDay = false;
    bool hasAmount = false;
    for (const QString& cell : row.cells) {
        if (!hasDay && isDayCell(cell))
            hasDay = true;
        else if (!hasAmount && CVMarkEvidenceOf(cell).isAmount())
            hasAmount = !isDayCell(cell);
        if (hasDay && hasAmount)
            return true;
    }
    return false;
}

/// The known headings among the cells of a row.
struct HeadingCount {
    int useful = 0;
    int known = 0;
    bool hasDay = false;
    bool hasAmount = false;

    [[nodiscard]] bool isHeader() const { return useful >= 2 && (hasDay || hasAmount); }
};

HeadingCount headingsOf(const CVStatementRow& row) {
    HeadingCount count;
    for (const QString& cell : row.cells) {
        const CVColumnRole role = CVHeadingOf(cell).role;
        if (role == CVColumnRole::Guessed)
            continue;
        ++count.known;
        count.useful += role != CVColumnRole::Ignored ? 1 : 0;
        count.hasDay = count.hasDay || role == CVColumnRole::Day || role == CVColumnRole::OtherDay;
        count.hasAmount = count.hasAmount || role == CVColumnRole::Amount || role == CVColumnRole::MoneyIn ||
                          role == CVColumnRole::MoneyOut;
    }
    return count;
}

/// The row with the most known headings; absent when none has enough.
std::optional<std::size_t> headerByWords(const std::vector<CVStatementRow>& rows) {
    std::optional<std::size_t> best;
    int most = 0;
    for (std::size_t at = 0; at < std::min(rows.size(), kRowsBeforeHeader); ++at) {
        const HeadingCount count = headingsOf(rows[at]);
        const int score = 2 * (count.hasDay && count.hasAmount ? 1 : 0) + count.useful + count.known;
        if (count.isHeader() && score > most && !hasDayAndAmount(rows[at])) {
            most = score;
            best = at;
        }
    }
    return best;
}

int countOfFilled(const CVStatementRow& row) {
    return static_cast<int>(
        std::count_if(row.cells.begin(), row.cells.end(), [](const QString& cell) { return !cell.isEmpty(); }));
}

/// The row before the first line, where it has a text for each of its columns; headings in an unknown language are
/// such.
std::optional<std::size_t> headerByShape(const std::vector<CVStatementRow>& rows) {
    const auto line = std::find_if(rows.begin(), rows.end(), hasDayAndAmount);
    if (line == rows.begin() || line == rows.end())
        return std::nullopt;
    const auto at = static_cast<std::size_t>(line - rows.begin()) - 1;
    const CVStatementRow& row = rows[at];
    const bool isText = std::none_of(row.cells.begin(), row.cells.end(), [](const QString& cell) {
        return isDayCell(cell) || CVMarkEvidenceOf(cell).isAmount();
    });
    const bool isFull = row.cells.size() == line->cells.size() && countOfFilled(row) + 1 >= row.cells.size();
    return isText && isFull && row.cells.size() > 2 ? std::optional(at) : std::nullopt;
}

std::optional<std::size_t> headerInLine(const std::vector<CVStatementRow>& rows, int line) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [line](const CVStatementRow& row) { return row.line >= line; });
    return found == rows.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - rows.begin()));
}

QStringList withoutEmptyEnd(QStringList cells) {
    while (!cells.isEmpty() && cells.constLast().isEmpty())
        cells.removeLast();
    return cells;
}

/// The text above a cell of the second row of a header; one that stands above several columns is written once.
QString headingAbove(const QStringList& headings, qsizetype column) {
    while (column > 0 && headings.value(column).isEmpty())
        --column;
    return headings.value(column);
}

/// Whether the second row of a header names a column that the first one leaves open.
bool fillsGap(const CVStatementTable& table, const CVStatementRow& second) {
    for (qsizetype column = 1; column < std::min(second.cells.size(), table.headings.size()); ++column) {
        if (table.headings.at(column).isEmpty() && CVHeadingOf(second.cells.at(column)).role != CVColumnRole::Guessed)
            return true;
    }
    return false;
}

/// Takes the second row of a header, which names what the first one leaves open.
void takeSecondHeaderRow(CVStatementTable& table) {
    if (table.first >= table.rows.size())
        return;
    const CVStatementRow& second = table.rows[table.first];
    const HeadingCount count = headingsOf(second);
    const HeadingCount above = headingsOf({0, table.headings});
    if (count.useful < 2 || hasDayAndAmount(second) || (above.hasDay && above.hasAmount && !fillsGap(table, second)))
        return;
    const QStringList first = table.headings;
    for (int column = 0; column < second.cells.size(); ++column) {
        const QString& cell = second.cells.at(column);
        if (column >= table.headings.size())
            table.headings.append(cell);
        else if (!cell.isEmpty())
            table.headings[column] = QString(headingAbove(first, column) + u' ' + cell).trimmed();
    }
    ++table.first;
}

/// Finds the rows with a day and an amount, and the row from which a table of other columns begins.
void findLines(CVStatementTable& table, bool mayEnd) {
    table.end = table.rows.size();
    for (std::size_t at = table.first; at < table.rows.size(); ++at) {
        if (hasDayAndAmount(table.rows[at])) {
            table.likely.push_back(at);
            continue;
        }
        const HeadingCount count = mayEnd ? headingsOf(table.rows[at]) : HeadingCount();
        if (count.isHeader() && count.hasDay && count.hasAmount && !table.repeatsHeader(table.rows[at])) {
            table.end = at;
            return;
        }
    }
}

/// The rows with an amount and, below a heading of days, digits that are a day only there.
std::vector<std::size_t> rowsWithBareDays(const CVStatementTable& table) {
    std::vector<std::size_t> found;
    for (std::size_t at = table.first; at < table.end; ++at) {
        const CVStatementRow& row = table.rows[at];
        bool hasDay = false;
        bool hasAmount = false;
        for (int column = 0; column < static_cast<int>(row.cells.size()); ++column) {
            const bool isHeaded =
                CVHeadingOf(column < table.headings.size() ? table.headings.at(column) : QString()).role ==
                CVColumnRole::Day;
            hasDay = hasDay || (isHeaded && CVReadDayOfColumn(row.cells.at(column)).has_value());
            hasAmount = hasAmount || (!isHeaded && CVMarkEvidenceOf(row.cells.at(column)).isAmount());
        }
        if (hasDay && hasAmount)
            found.push_back(at);
    }
    return found;
}

int usualCountOfCells(const CVStatementTable& table) {
    std::map<qsizetype, int> counts;
    for (const std::size_t at : table.likely)
        ++counts[table.rows[at].cells.size()];
    const auto usual = std::max_element(counts.begin(), counts.end(),
                                        [](const auto& a, const auto& b) { return a.second < b.second; });
    return usual == counts.end() ? 0 : static_cast<int>(usual->first);
}

} // namespace

QString CVStatementTable::cell(const CVStatementRow& row, int column) {
    return column >= 0 && column < row.cells.size() ? row.cells.at(column) : QString();
}

bool CVStatementTable::repeatsHeader(const CVStatementRow& row) const {
    return !headings.isEmpty() && withoutEmptyEnd(row.cells) == withoutEmptyEnd(headings);
}

CVStatementTable CVFindTable(std::vector<CVStatementRow> rows, std::optional<int> headerLine) {
    CVStatementTable table;
    table.rows = std::move(rows);
    std::optional<std::size_t> header;
    if (headerLine && *headerLine > 0)
        header = headerInLine(table.rows, *headerLine);
    else if (!headerLine)
        header = headerByWords(table.rows);
    if (!header && !headerLine)
        header = headerByShape(table.rows);
    if (header) {
        table.headerLine = table.rows[*header].line;
        table.headings = table.rows[*header].cells;
        table.first = *header + 1;
        takeSecondHeaderRow(table);
    }
    findLines(table, headerLine != 0);
    if (table.likely.empty())
        table.likely = rowsWithBareDays(table);
    table.columns = std::max(usualCountOfCells(table), static_cast<int>(withoutEmptyEnd(table.headings).size()));
    return table;
}
