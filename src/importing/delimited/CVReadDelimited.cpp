#include "importing/delimited/CVReadDelimited.h"

#include "importing/delimited/CVAskAboutStatement.h"
#include "importing/delimited/CVDelimitedSummary.h"
#include "importing/delimited/CVProvenAmounts.h"
#include "importing/delimited/CVSettleYears.h"
#include "importing/delimited/CVStatementLines.h"
#include "importing/statements/CVAskAboutTexts.h"
#include "importing/statements/CVStatementDay.h"
#include "importing/statements/CVStatementText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr qsizetype kMostRows = 200'000;
/// With more columns there are too many ways to read them.
constexpr std::size_t kMostAmountColumns = 8;
constexpr std::size_t kUnreadRows = 5;
const QString kDateOption = QStringLiteral("--date N");
const QString kAmountOption = QStringLiteral("--amount N");
constexpr int kRowsDone = 500;
constexpr int kAllDone = 1000;

struct ReadDelimitedText {
    Q_DECLARE_TR_FUNCTIONS(CVReadDelimited)
};

class DelimitedReader {
public:
    DelimitedReader(const CVStatementMapping& known, const CVStopRequested& stop) : mKnown(known), mStop(stop) {}

    CVStatement read(const QByteArray& bytes) {
        CVStatementText text = CVDecodeStatement(bytes, mKnown.encoding);
        if (!text.problem.isEmpty())
            return besideProblem(text.problem);
        if (QString problem = CVProblemOfOtherKind(text.text); !problem.isEmpty())
            return CVStatement::ofProblem(problem);
        mStatement.mapping = mKnown;
        mStatement.lasting = mKnown;
        mStatement.mapping.encoding = text.encoding;
        const char separator = mKnown.separator.value_or(CVSeparatorOf(text.text));
        mStatement.mapping.separator = separator;
        if (QString problem = readRows(text.text, separator); !problem.isEmpty())
            return besideProblem(problem);
        mColumns = CVGuessColumns(mTable, mKnown.columns.value_or(std::vector<CVColumnRole>()));
        if (const Fault fault = faultOfTable(); !fault.problem.isEmpty())
            return besideColumns(fault);
        settleDayColumn();
        settle();
        mStatement.lines = CVReadStatementLines(mTable, mRule, inSecondHalf());
        if (mIsStopped)
            return CVStatement::ofProblem(ReadDelimitedText::tr("Reading the statement was stopped."));
        completeMapping();
        mStatement.headings = mTable.headings;
        mStatement.headerDigest = CVDigestOfHeadings(mTable, separator);
        mStatement.isDigestCommon = mTable.headings.isEmpty();
        mStatement.summary = CVSummaryOfDelimited(mStatement);
        mStatement.balanceRemark = CVRemarkOnBalance(mTable, mRule.amounts);
        return mStatement;
    }

private:
    /// Why nothing can be read of the rows, and the option that mends it.
    struct Fault {
        QString problem = {};
        QString option = {};
    };

    /// What was chosen, so that it can be chosen otherwise.
    CVStatement besideProblem(const QString& problem) {
        mStatement = CVStatement::ofProblem(problem);
        mStatement.mapping = mKnown;
        return mStatement;
    }

    CVStatement besideColumns(const Fault& fault) {
        mStatement.problem = fault.problem;
        mStatement.problemOption = fault.option;
        mStatement.mapping.headerLine = mKnown.headerLine.value_or(mTable.headerLine);
        mStatement.mapping.columns = mColumns.roles;
        mStatement.headings = mTable.headings;
        for (std::size_t row = mTable.first; row < mTable.end && mStatement.unreadRows.size() < kUnreadRows; ++row) {
            if (!mTable.rows[row].isBlank())
                mStatement.unreadRows.push_back(mTable.rows[row].cells);
        }
        return mStatement;
    }

    QString readRows(const QString& text, char separator) {
        const auto stop = [&](qsizetype done) {
            mIsStopped = mStop && mStop(static_cast<int>(done * kRowsDone / std::max(text.size(), qsizetype{1})));
            return mIsStopped;
        };
        CVStatementRows rows = CVReadStatementRows(text, separator, kMostRows + 1, stop);
        if (mIsStopped)
            return ReadDelimitedText::tr("Reading the statement was stopped.");
        if (!rows.problem.isEmpty())
            return rows.problem;
        if (static_cast<qsizetype>(rows.rows.size()) > kMostRows)
            return ReadDelimitedText::tr("This statement has more than %1 lines. Please import it in parts.")
                .arg(kMostRows);
        mTable = CVFindTable(std::move(rows.rows), mKnown.headerLine);
        return {};
    }

    /// Empty when something can be read.
    [[nodiscard]] Fault faultOfTable() const {
        const bool isEmpty =
            std::all_of(mTable.rows.begin(), mTable.rows.end(), [](const auto& row) { return row.isBlank(); });
        if (isEmpty)
            return {ReadDelimitedText::tr("The file is empty.")};
        const bool hasAmounts = !mColumns.amounts.empty() || !mColumns.moneyIn.empty() || !mColumns.moneyOut.empty();
        if (mTable.likely.empty() && (mTable.headings.isEmpty() || mColumns.days.empty() || !hasAmounts))
            return {
                ReadDelimitedText::tr("This is no statement: no line of it has a day and an amount. Please have your "
                                      "bank export it as CSV.")};
        if (mColumns.days.empty())
            return {ReadDelimitedText::tr("No column holds the days. Please say which one does."), kDateOption};
        if (!hasAmounts)
            return {ReadDelimitedText::tr("No column holds the amounts. Please say which one does."), kAmountOption};
        if (std::max({mColumns.amounts.size(), mColumns.moneyIn.size(), mColumns.moneyOut.size()}) > kMostAmountColumns)
            return {ReadDelimitedText::tr("Too many columns could hold the amounts. Please say which one does."),
                    kAmountOption};
        if (isCutAtDecimals())
            return {ReadDelimitedText::tr("The decimals stand in a column of their own, because the comma is also the "
                                          "separator. Please have your bank export it with semicolons.")};
        return {};
    }

    /// Whether two digits follow every amount in a column without a heading.
    [[nodiscard]] bool isCutAtDecimals() const {
        if (mTable.headings.isEmpty() || mStatement.mapping.separator != ',' ||
            mTable.columns <= mTable.headings.size() || mColumns.amounts.empty())
            return false;
        const int column = mColumns.amounts.front();
        return std::all_of(mTable.likely.begin(), mTable.likely.end(), [&](std::size_t row) {
            const QString cell = CVStatementTable::cell(mTable.rows[row], column);
            const QString next = CVStatementTable::cell(mTable.rows[row], column + 1);
            return !cell.contains(u'.') && next.size() == 2 && next.at(0).isDigit() && next.at(1).isDigit();
        });
    }

    void settle() {
        const CVSettledDays days = settleDays();
        const CVSettledMark mark = settleMark();
        const CVSettledAmounts amounts = CVSettleAmounts(
            mTable, mColumns,
            {mark.mark, mKnown.positiveIsOut, mKnown.outMarker.value_or(QString()),
             CVDaysOfLikelyRows(mTable, mColumns.days.front(), {days.orders.front(), mRule.year, mRule.doesYearChange},
                                kCVMostLinesForRules)});
        mRule.amounts = amounts.rules.empty() ? ruleWithoutLines() : amounts.rules.front();
        if (amounts.rules.size() > 1)
            mStatement.questions.push_back(CVAskForAmounts(mTable, amounts, mKnown));
        mRule.day = mColumns.days.front();
        mRule.order = days.orders.front();
        mRule.amounts.mark = mark.mark;
        takeRoles();
        keepProven(days, mark, amounts);
    }

    /// What only this statement leaves no choice about is settled anew in the next one.
    void keepProven(const CVSettledDays& days, const CVSettledMark& mark, const CVSettledAmounts& amounts) {
        CVStatementMapping& lasting = mStatement.lasting;
        if (!lasting.dayOrder && days.isProven)
            lasting.dayOrder = days.orders.front();
        if (!lasting.decimalMark && mark.isProven)
            lasting.decimalMark = mark.mark;
        if (!lasting.positiveIsOut && amounts.isSignProven)
            lasting.positiveIsOut = mRule.amounts.positiveIsOut;
        if (amounts.isProven)
            keepColumnsOfAmounts();
    }

    void keepColumnsOfAmounts() {
        auto columns = mKnown.columns.value_or(std::vector<CVColumnRole>());
        columns.resize(std::max(columns.size(), mRule.roles.size()), CVColumnRole::Guessed);
        const CVAmountRule& amounts = mRule.amounts;
        for (const int column : {amounts.amount, amounts.moneyIn, amounts.moneyOut, amounts.marker, amounts.fee}) {
            if (column >= 0)
                columns[static_cast<std::size_t>(column)] = mRule.roles[static_cast<std::size_t>(column)];
        }
        mStatement.lasting.columns = columns;
    }

    /// The rule that the headings give where no line says more.
    [[nodiscard]] CVAmountRule ruleWithoutLines() const {
        const auto first = [](const std::vector<int>& columns) { return columns.empty() ? -1 : columns.front(); };
        CVAmountRule rule;
        rule.amount = first(mColumns.amounts);
        rule.moneyOut = rule.amount < 0 ? first(mColumns.moneyOut) : -1;
        rule.moneyIn = rule.amount < 0 ? first(mColumns.moneyIn) : -1;
        return rule;
    }

    void settleDayColumn() {
        const CVSettledDayColumn days = CVSettleDayColumn(mTable, mColumns);
        if (!days.isSettled())
            mStatement.questions.push_back(CVAskForDayColumn(mTable, days, mKnown));
        const auto chosen = std::find(mColumns.days.begin(), mColumns.days.end(), days.columns.front());
        std::rotate(mColumns.days.begin(), chosen, chosen + 1);
    }

    CVSettledDays settleDays() {
        CVSettledDays days = CVSettleDays(mTable, mColumns);
        if (mKnown.dayOrder)
            days.orders = {*mKnown.dayOrder};
        else if (!days.isSettled())
            mStatement.questions.push_back(CVAskForDayOrder({lineOf(days.row), days.text}, days.orders, mKnown));
        mRule.year = mKnown.year ? mKnown.year : days.year;
        if (!days.hasYears && !mRule.year) {
            const QString first = CVStatementTable::cell(mTable.rows[mTable.likely.front()], mColumns.days.front());
            mStatement.questions.push_back(CVAskForYear(mTable, first, mKnown));
            mRule.year = static_cast<int>(QBDate::date().yearOfCommonEra());
        }
        if (!days.hasYears)
            settleYears(days);
        return days;
    }

    void settleYears(const CVSettledDays& days) {
        const CVSettledYears years = CVSettleYears(mTable, mColumns.days.front(), days.orders.front(),
                                                   {*mRule.year, mKnown.otherYear, days.period});
        mRule.doesYearChange = years.change;
        // Another answer may leave nothing to ask.
        if (!years.isSettled && mStatement.questions.empty())
            mStatement.questions.push_back(CVAskForOtherYear(mTable, years, mKnown));
    }

    [[nodiscard]] int lineOf(std::size_t row) const { return mTable.rows[row].line; }

    CVSettledMark settleMark() {
        CVSettledMark mark;
        if (mKnown.decimalMark) {
            mark.mark = *mKnown.decimalMark;
            return mark;
        }
        mark = CVSettleDecimalMark(mTable, mColumns);
        if (!mark.isSettled)
            mStatement.questions.push_back(CVAskForDecimalMark({lineOf(mark.row), mark.text}, mark.mark, mKnown));
        return mark;
    }

    /// Gives each column its role.
    void takeRoles() {
        mRule.roles = mColumns.roles;
        const auto give = [this](int column, CVColumnRole role) {
            if (column >= 0)
                mRule.roles[static_cast<std::size_t>(column)] = role;
        };
        give(mRule.day, CVColumnRole::Day);
        give(mRule.amounts.balance, CVColumnRole::Balance);
        give(mRule.amounts.marker, CVColumnRole::Marker);
        give(mRule.amounts.fee, CVColumnRole::Fee);
        give(mRule.amounts.moneyIn, CVColumnRole::MoneyIn);
        give(mRule.amounts.moneyOut, CVColumnRole::MoneyOut);
        give(mRule.amounts.amount, CVColumnRole::Amount);
    }

    void completeMapping() {
        CVStatementMapping& mapping = mStatement.mapping;
        mapping.headerLine = mTable.headerLine;
        mapping.columns = mRule.roles;
        mapping.dayOrder = mStatement.lasting.dayOrder;
        mapping.decimalMark = mStatement.lasting.decimalMark;
        mapping.year = mRule.year;
        mapping.positiveIsOut = mStatement.lasting.positiveIsOut;
    }

    CVStopRequested inSecondHalf() {
        return [this](int permille) {
            mIsStopped = mIsStopped || (mStop && mStop(kRowsDone + permille * (kAllDone - kRowsDone) / kAllDone));
            return mIsStopped;
        };
    }

    const CVStatementMapping& mKnown;
    const CVStopRequested& mStop;
    bool mIsStopped = false;
    CVStatementTable mTable;
    CVStatementColumns mColumns;
    CVLineRule mRule;
    CVStatement mStatement;
};

} // namespace

CVStatement CVReadDelimited(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    return DelimitedReader(known, stop).read(bytes);
}
