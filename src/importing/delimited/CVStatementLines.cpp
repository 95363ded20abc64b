#include "importing/delimited/CVStatementLines.h"

#include "importing/delimited/CVSettleYears.h"
#include "importing/delimited/CVStatementCurrency.h"
#include "importing/statements/CVHeadingWords.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"
#include "importing/statements/CVStatementWords.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {

struct StatementLinesText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementLines)
};

class LineReader {
public:
    LineReader(const CVStatementTable& table, const CVLineRule& rule)
        : mTable(table)
        , mRule(rule)
        , mYears(rule.order, rule.year, rule.doesYearChange)
        , mCurrency(CVCurrencyOfStatement(table, rule.roles, rule.amounts)) {
        for (std::size_t column = 0; column < rule.roles.size(); ++column) {
            const QString heading = table.headings.value(static_cast<qsizetype>(column));
            const QString plain = CVPlainWords(heading);
            if (plain.contains(u"status") || plain == u"state")
                mStatusColumns.push_back(static_cast<int>(column));
        }
    }

    void read(std::size_t at, std::vector<CVStatementLine>& lines) {
        const CVStatementRow& row = mTable.rows[at];
        if (row.isBlank() || mTable.repeatsHeader(row)) {
            mMayGoOn = false;
            return;
        }
        const QString dayText = textOf(row, mRule.day);
        const auto day = dayOfText(dayText);
        const CVRuledAmount amount = CVAmountOfRow(row, mRule.amounts);
        if (!day && !amount.hundredths && amount.isEmpty) {
            goOn(row, lines);
            return;
        }
        if (isNoLine(row, day.has_value(), amount) || isBesideLines(at)) {
            mMayGoOn = false;
            return;
        }
        CVStatementLine line = withTexts(row, amount.hundredths.value_or(0) > 0);
        line.day = day;
        line.hundredths = amount.hundredths;
        line.otherCurrency = mCurrency.otherOf(row);
        line.unreadable = faultOf(row, dayText, day, amount);
        lines.push_back(line);
        mMayBePart.push_back(mMayGoOn && dayText.isEmpty() && line.hundredths);
        mMayGoOn = true;
    }

    /// Takes out the rows without a day that are the parts of the line above: together they are its amount.
    void leaveOutParts(std::vector<CVStatementLine>& lines) const {
        std::vector<CVStatementLine> whole;
        for (std::size_t at = 0; at < lines.size();) {
            std::size_t end = at + 1;
            qint64 sum = 0;
            for (; end < mMayBePart.size() && mMayBePart[end]; ++end)
                sum += *lines[end].hundredths;
            const bool areParts = lines[at].day && end > at + 2 && lines[at].hundredths == sum;
            const std::size_t kept = areParts ? at + 1 : end;
            std::move(lines.begin() + static_cast<std::ptrdiff_t>(at),
                      lines.begin() + static_cast<std::ptrdiff_t>(kept), std::back_inserter(whole));
            at = end;
        }
        lines = std::move(whole);
    }

private:
    [[nodiscard]] static QString textOf(const CVStatementRow& row, int column) {
        return CVStatementTable::cell(row, column);
    }

    std::optional<QBDate> dayOfText(const QString& text) {
        const auto fields = text.isEmpty() ? std::nullopt : CVReadDayOfColumn(text);
        return fields ? mYears.next(*fields) : std::nullopt;
    }

    /// Whether the columns for the payee and for the bank's number, where there are any, are empty.
    [[nodiscard]] bool hasNobody(const CVStatementRow& row) const {
        int columns = 0;
        for (int column = 0; column < static_cast<int>(mRule.roles.size()); ++column) {
            const CVColumnRole role = mRule.roles[static_cast<std::size_t>(column)];
            if (role != CVColumnRole::Payee && role != CVColumnRole::BankID)
                continue;
            ++columns;
            if (!textOf(row, column).isEmpty())
                return false;
        }
        return columns > 0;
    }

    /// Whether a row with a day or an amount is a balance or a sum.
    [[nodiscard]] bool isNoLine(const CVStatementRow& row, bool hasDay, const CVRuledAmount& amount) const {
        bool hasText = false;
        const bool isNobody = hasNobody(row);
        for (int column = 0; column < static_cast<int>(row.cells.size()); ++column) {
            const QString& cell = row.cells.at(column);
            if (cell.isEmpty() || column == mRule.amounts.balance)
                continue;
            if (CVNamesBalanceRow(cell) || (isNobody && CVMayNameBalanceRow(cell)) || (!hasDay && CVNamesSumRow(cell)))
                return true;
            const bool isWord = std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.isLetter(); });
            hasText = hasText || (isWord && !CVIsCurrencyName(cell) && !CVMarkEvidenceOf(cell).isAmount());
        }
        const bool hasBalance = !textOf(row, mRule.amounts.balance).isEmpty();
        if (amount.isEmpty)
            return hasBalance || !hasText;
        return !hasDay && textOf(row, mRule.day).isEmpty() && (!hasText || row.cells.size() < 2);
    }

    /// Whether a row without a day, above the first line or below the last, says neither who nor what for: a sum of the
    /// statement.
    [[nodiscard]] bool isBesideLines(std::size_t at) const {
        const bool isAmongLines = !mTable.likely.empty() && at > mTable.likely.front() && at < mTable.likely.back();
        const CVStatementRow& row = mTable.rows[at];
        int columns = 0;
        for (int column = 0; column < static_cast<int>(mRule.roles.size()); ++column) {
            const CVColumnRole role = mRule.roles[static_cast<std::size_t>(column)];
            const bool isText =
                role == CVColumnRole::Payee || role == CVColumnRole::Payer || role == CVColumnRole::Purpose;
            columns += isText ? 1 : 0;
            if ((isText || column == mRule.day) && !textOf(row, column).isEmpty())
                return false;
        }
        return !isAmongLines && columns > 0;
    }

    [[nodiscard]] QString faultOf(const CVStatementRow& row, const QString& dayText, const std::optional<QBDate>& day,
                                  const CVRuledAmount& amount) const {
        if (QString cells = faultOfCells(row); !cells.isEmpty())
            return cells;
        for (const int column : mStatusColumns) {
            if (CVNamesFailure(textOf(row, column)))
                return StatementLinesText::tr("the bank did not carry it out (“%1”)").arg(textOf(row, column));
        }
        if (!day && dayText.isEmpty())
            return StatementLinesText::tr("there is no day");
        if (!day)
            return StatementLinesText::tr("“%1” is no day").arg(dayText);
        return amount.hundredths ? QString() : amount.why;
    }

    /// Why the cells of a row with too many or too few stand in wrong columns.
    [[nodiscard]] QString faultOfCells(const CVStatementRow& row) const {
        if (row.cells.size() == mTable.columns)
            return {};
        for (int column = 0; column < static_cast<int>(mRule.roles.size()); ++column) {
            const QString cell = textOf(row, column);
            const CVColumnRole role = mRule.roles[static_cast<std::size_t>(column)];
            const bool isWrong =
                !cell.isEmpty() && ((role == CVColumnRole::Balance && !CVMarkEvidenceOf(cell).isAmount()) ||
                                    (role == CVColumnRole::OtherDay && !CVReadDayOfColumn(cell)) ||
                                    (role == CVColumnRole::Currency && CVMarkEvidenceOf(cell).isAmount()));
            if (isWrong)
                return StatementLinesText::tr("it has %1 columns in place of %2")
                    .arg(row.cells.size())
                    .arg(mTable.columns);
        }
        return {};
    }

    /// The texts of a row, without its day and its amount.
    [[nodiscard]] CVStatementLine withTexts(const CVStatementRow& row, bool isIn) const {
        CVStatementLine line{.number = row.line, .cells = row.cells};
        QString payer;
        for (int column = 0; column < static_cast<int>(mRule.roles.size()); ++column) {
            const QString cell = textOf(row, column);
            if (cell.isEmpty())
                continue;
            switch (mRule.roles[static_cast<std::size_t>(column)]) {
            case CVColumnRole::Payee:
                line.payee = line.payee.isEmpty() ? cell : line.payee;
                break;
            case CVColumnRole::Payer:
                payer = payer.isEmpty() ? cell : payer;
                break;
            case CVColumnRole::Purpose:
                addText(line.purpose, cell);
                break;
            case CVColumnRole::Category:
                line.category = line.category.isEmpty() ? cell : line.category;
                break;
            case CVColumnRole::BankID:
                line.bankID = line.bankID.isEmpty() ? cell : line.bankID;
                break;
            default:
                break;
            }
        }
        if (!payer.isEmpty() && (isIn || line.payee.isEmpty()))
            line.payee = payer;
        line.payee = line.payee.simplified();
        return line;
    }

    static void addText(QString& text, const QString& more) {
        const QString plain = more.simplified();
        if (!text.contains(plain))
            text += text.isEmpty() ? plain : QString(u' ' + plain);
    }

    /// Takes a row of text alone for the rest of the line above.
    void goOn(const CVStatementRow& row, std::vector<CVStatementLine>& lines) const {
        if (!mMayGoOn || lines.empty())
            return;
        QStringList texts;
        for (int column = 0; column < static_cast<int>(row.cells.size()); ++column) {
            const QString& cell = row.cells.at(column);
            if (cell.isEmpty())
                continue;
            const auto at = static_cast<std::size_t>(column);
            const CVColumnRole role = at < mRule.roles.size() ? mRule.roles[at] : CVColumnRole::Ignored;
            if (role != CVColumnRole::Purpose && role != CVColumnRole::Payee)
                return;
            texts.append(cell);
        }
        for (const QString& text : std::as_const(texts))
            addText(lines.back().purpose, text);
    }

    const CVStatementTable& mTable;
    const CVLineRule& mRule;
    CVYearOfDays mYears;
    CVStatementCurrency mCurrency;
    std::vector<int> mStatusColumns = {};
    /// Whether the row above is a line, which may go on.
    bool mMayGoOn = false;
    /// For each line: whether it has no day, and follows a line at once.
    std::vector<bool> mMayBePart = {};
};

/// A row of another table that follows: what its columns say is not known.
void addForeignRow(const CVStatementRow& row, std::vector<CVStatementLine>& lines) {
    const bool hasDay = std::any_of(row.cells.begin(), row.cells.end(),
                                    [](const QString& cell) { return CVReadStatementDay(cell).has_value(); });
    if (!hasDay)
        return;
    CVStatementLine line{.number = row.line, .cells = row.cells};
    line.unreadable = StatementLinesText::tr("it belongs to another table, whose columns are others");
    lines.push_back(line);
}

} // namespace

std::vector<CVStatementLine> CVReadStatementLines(const CVStatementTable& table, const CVLineRule& rule,
                                                  const CVStopRequested& stop) {
    constexpr std::size_t kBetweenQuestions = 64;
    constexpr int kWhole = 1000;
    std::vector<CVStatementLine> lines;
    LineReader reader(table, rule);
    for (std::size_t at = table.first; at < table.rows.size(); ++at) {
        if (at < table.end)
            reader.read(at, lines);
        else
            addForeignRow(table.rows[at], lines);
        if (stop && at % kBetweenQuestions == 0 && stop(static_cast<int>(at * kWhole / table.rows.size())))
            break;
    }
    reader.leaveOutParts(lines);
    return lines;
}
