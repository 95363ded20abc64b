#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <algorithm>

namespace {

/// How many texts are amounts with one mark alone, and one that is another amount with the other mark.
struct MarkCount {
    int point = 0;
    int comma = 0;
    std::optional<std::size_t> openRow = std::nullopt;
    QString openText = {};
};

void countMark(const QString& cell, std::size_t row, MarkCount& count) {
    const CVMarkEvidence evidence = CVMarkEvidenceOf(cell);
    if (evidence.point != evidence.comma && !CVReadStatementDay(cell))
        ++(evidence.point ? count.point : count.comma);
    if (evidence.differs && !count.openRow) {
        count.openRow = row;
        count.openText = cell;
    }
}

/// The amounts of the lines.
MarkCount marksOfAmounts(const CVStatementTable& table, const CVStatementColumns& columns) {
    MarkCount count;
    for (const std::size_t row : table.likely) {
        for (const auto* const list :
             {&columns.amounts, &columns.moneyIn, &columns.moneyOut, &columns.fees, &columns.balances}) {
            for (const int column : *list)
                countMark(CVStatementTable::cell(table.rows[row], column), row, count);
        }
    }
    return count;
}

/// All other numbers of the file, such as a balance above the header.
MarkCount marksOfOtherCells(const CVStatementTable& table) {
    MarkCount count;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        for (const QString& cell : table.rows[row].cells)
            countMark(cell, row, count);
    }
    return count;
}

/// Whether the headings are in a writing of countries in which a comma always stands between groups.
bool groupsWithCommas(const QStringList& headings) {
    return std::any_of(headings.begin(), headings.end(), [](const QString& heading) {
        return std::any_of(heading.begin(), heading.end(), [](QChar c) {
            return c.script() == QChar::Script_Han || c.script() == QChar::Script_Hangul ||
                   c.script() == QChar::Script_Hiragana || c.script() == QChar::Script_Katakana;
        });
    });
}

} // namespace

CVSettledMark CVSettleDecimalMark(const CVStatementTable& table, const CVStatementColumns& columns) {
    constexpr int kMany = 9;
    const MarkCount amounts = marksOfAmounts(table, columns);
    CVSettledMark settled;
    settled.mark = amounts.comma > amounts.point ? u',' : u'.';
    const int more = std::max(amounts.point, amounts.comma);
    const int fewer = std::min(amounts.point, amounts.comma);
    // Where some texts have the other mark, they cannot be read, and texts that could be either are no longer sure.
    if (more > 0 && (fewer == 0 || (!amounts.openRow && more > kMany * fewer)))
        return settled;
    if (more == 0 && !amounts.openRow)
        return settled;
    if (more == 0) {
        if (groupsWithCommas(table.headings))
            return settled;
        const MarkCount others = marksOfOtherCells(table);
        settled.mark = others.comma > others.point ? u',' : u'.';
        if ((others.comma > 0) != (others.point > 0))
            return settled;
    }
    settled.isSettled = false;
    settled.row = amounts.openRow.value_or(table.likely.front());
    settled.text = amounts.openText;
    return settled;
}
