#include "importing/delimited/CVStatementNotation.h"
#include "importing/statements/CVDecimalMarks.h"

#include <algorithm>

namespace {

/// The amounts of the lines.
CVDecimalMarks marksOfAmounts(const CVStatementTable& table, const CVStatementColumns& columns) {
    CVDecimalMarks marks;
    for (const std::size_t row : table.likely) {
        for (const auto* const list :
             {&columns.amounts, &columns.moneyIn, &columns.moneyOut, &columns.fees, &columns.balances}) {
            for (const int column : *list)
                marks.count(CVStatementTable::cell(table.rows[row], column), row);
        }
    }
    return marks;
}

/// All other numbers of the file, such as a balance above the header.
CVDecimalMarks marksOfOtherCells(const CVStatementTable& table) {
    CVDecimalMarks marks;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        for (const QString& cell : table.rows[row].cells)
            marks.count(cell, row);
    }
    return marks;
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
    const CVDecimalMarks amounts = marksOfAmounts(table, columns);
    CVSettledMark settled;
    settled.mark = amounts.likelier();
    settled.isProven = amounts.isSettled() && !amounts.sayNothing();
    if (amounts.isSettled())
        return settled;
    if (amounts.sayNothing()) {
        if (groupsWithCommas(table.headings))
            return settled;
        const CVDecimalMarks others = marksOfOtherCells(table);
        settled.mark = others.likelier();
        settled.isProven = (others.comma > 0) != (others.point > 0);
        if (settled.isProven)
            return settled;
    }
    settled.isSettled = false;
    settled.row = amounts.openAt.value_or(table.likely.front());
    settled.text = amounts.openText;
    return settled;
}
