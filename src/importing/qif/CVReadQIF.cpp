#include "importing/qif/CVReadQIF.h"

#include "importing/qif/CVQIFFile.h"
#include "importing/qif/CVQIFLines.h"
#include "importing/statements/CVAskAboutTexts.h"
#include "importing/statements/CVStatementSummary.h"
#include "importing/statements/CVStatementText.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t kMostQIFEntries = 200'000;
constexpr int kQIFHalfDone = 500;

struct ReadQIFText {
    Q_DECLARE_TR_FUNCTIONS(CVReadQIF)
};

/// Where this kind is used, a year of two digits stands behind the slashes, unless the days say otherwise.
CVDayOrders withYearBehind(const CVDayOrders& orders) {
    CVDayOrders behind;
    std::copy_if(orders.begin(), orders.end(), std::back_inserter(behind),
                 [](CVDayOrder order) { return order != CVDayOrder::YearMonthDay; });
    return behind.empty() ? orders : behind;
}

class QIFReader {
public:
    QIFReader(const CVStatementMapping& known, const CVStopRequested& stop) : mKnown(known), mStop(stop) {}

    CVStatement read(const QByteArray& bytes) {
        const CVStatementText text = CVDecodeStatement(bytes, mKnown.encoding);
        if (!text.problem.isEmpty())
            return CVStatement::ofProblem(text.problem);
        mStatement.mapping = mKnown;
        mStatement.lasting = mKnown;
        mStatement.mapping.encoding = text.encoding;
        mFile = CVTakeQIFApart(text.text, [this, size = text.text.size()](qsizetype done) {
            return isStopped(static_cast<int>(done * kQIFHalfDone / std::max(size, qsizetype{1})));
        });
        if (mIsStopped)
            return CVStatement::ofProblem(ReadQIFText::tr("Reading the statement was stopped."));
        if (QString problem = faultOfFile(); !problem.isEmpty())
            return CVStatement::ofProblem(problem);
        settle();
        readLines();
        if (mIsStopped)
            return CVStatement::ofProblem(ReadQIFText::tr("Reading the statement was stopped."));
        chooseAccount();
        return mStatement;
    }

private:
    bool isStopped(int permille) {
        mIsStopped = mIsStopped || (mStop && mStop(permille));
        return mIsStopped;
    }

    /// Why nothing can be read of the file; empty when something can.
    [[nodiscard]] QString faultOfFile() const {
        if (mFile.isTooLong || mFile.entries.size() > kMostQIFEntries)
            return ReadQIFText::tr("This statement has more than %1 payments. Please import it in parts.")
                .arg(kMostQIFEntries);
        if (mFile.entries.empty() && mFile.investments > 0)
            return ReadQIFText::tr("This file holds investments alone, which are no payments.");
        if (mFile.entries.empty() && mFile.hasLists)
            return ReadQIFText::tr("This file holds lists, such as one of categories, but no payments.");
        if (mFile.entries.empty())
            return ReadQIFText::tr("This file holds no payments.");
        const auto isWanted = [this](const CVQIFAccount& account) { return account.name == mKnown.account; };
        if (mKnown.account && std::none_of(mFile.accounts.begin(), mFile.accounts.end(), isWanted)) {
            std::vector<CVAccountOfFile> accounts;
            for (const CVQIFAccount& account : mFile.accounts)
                accounts.push_back({account.name});
            return CVMissingAccount(accounts, *mKnown.account);
        }
        return {};
    }

    /// One program wrote all accounts of a file, in one notation.
    void settle() {
        CVQIFNotation all;
        std::vector<CVWrittenDays> daysOfAccounts(mFile.accounts.size());
        for (const CVQIFEntry& entry : mFile.entries) {
            const std::size_t before = all.days.size();
            all.count(entry);
            auto& days = daysOfAccounts[entry.account];
            days.insert(days.end(), all.days.begin() + static_cast<std::ptrdiff_t>(before), all.days.end());
        }
        settleDays(all, daysOfAccounts);
        settleMark(all.marks);
        mRule.year = mKnown.year;
        mRule.positiveIsOut = mKnown.positiveIsOut.value_or(false);
    }

    void settleDays(const CVQIFNotation& all, const std::vector<CVWrittenDays>& daysOfAccounts) {
        CVDayOrders orders = CVPossibleDayOrders(all.days);
        if (mKnown.dayOrder)
            orders = {*mKnown.dayOrder};
        if (orders.size() > 1)
            orders = CVDayOrdersBySpan(all.days, orders);
        for (const CVWrittenDays& days : daysOfAccounts)
            orders = orders.size() > 1 ? CVDayOrdersByRun(days, orders) : orders;
        if (orders.size() > 1 && all.days.front().second.separator == u'/')
            orders = withYearBehind(orders);
        orders = CVDistinctDayOrders(all.days, orders);
        if (const auto* const open = CVOpenDay(all.days, orders)) {
            const QString text = all.dayTexts.at(open - all.days.data());
            const int line = static_cast<int>(open->first);
            mStatement.questions.push_back(CVAskForDayOrder({line, CVQIFDayText(text)}, orders, mKnown));
        }
        if (!orders.empty())
            mRule.order = orders.front();
        mStatement.mapping.dayOrder = mRule.order;
    }

    void settleMark(const CVDecimalMarks& marks) {
        if (!mKnown.decimalMark && !marks.isSettled()) {
            const int line = static_cast<int>(marks.openAt.value_or(1));
            mStatement.questions.push_back(CVAskForDecimalMark({line, marks.openText}, marks.likelier(), mKnown));
        }
        mRule.mark = mKnown.decimalMark.value_or(marks.likelier());
        mStatement.mapping.decimalMark = mRule.mark;
    }

    void readLines() {
        constexpr std::size_t kBetweenQuestions = 256;
        mLines.resize(mFile.accounts.size());
        for (std::size_t at = 0; at < mFile.entries.size(); ++at) {
            if (at % kBetweenQuestions == 0 &&
                isStopped(kQIFHalfDone + static_cast<int>(at * kQIFHalfDone / mFile.entries.size())))
                return;
            const CVQIFEntry& entry = mFile.entries[at];
            std::vector<CVStatementLine> lines = CVLinesOfQIFEntry(entry, mRule);
            std::move(lines.begin(), lines.end(), std::back_inserter(mLines[entry.account]));
        }
    }

    void chooseAccount() {
        std::size_t chosen = 0;
        std::vector<CVAccountOfFile> accounts;
        for (std::size_t at = 0; at < mFile.accounts.size(); ++at) {
            accounts.push_back({mFile.accounts[at].name, static_cast<int>(mLines[at].size())});
            chosen = mFile.accounts[at].name == mKnown.account ? at : chosen;
        }
        mStatement.accounts = CVNamesOfAccounts(accounts);
        if (accounts.size() > 1 && !mKnown.account)
            mStatement.questions.insert(mStatement.questions.begin(), CVAskForAccount(accounts, mKnown));
        mStatement.lines = std::move(mLines[chosen]);
        describe(mFile.accounts[chosen]);
    }

    void describe(const CVQIFAccount& account) {
        QStringList parts{QStringLiteral("QIF"), CVNameOfEncoding(*mStatement.mapping.encoding)};
        if (account.isNamed || mKnown.account)
            parts.append(ReadQIFText::tr("account %1").arg(account.name));
        if (mFile.investments == 1)
            parts.append(ReadQIFText::tr("1 investment line left out"));
        else if (mFile.investments > 1)
            parts.append(ReadQIFText::tr("%1 investment lines left out").arg(mFile.investments));
        mStatement.summary = CVSummaryOfStatement(parts, mStatement.lines);
        // An account without a name may be anybody's, so that nothing is remembered of it.
        if (account.isNamed)
            mStatement.headerDigest =
                QCryptographicHash::hash("QIF\n" + account.name.toUtf8(), QCryptographicHash::Sha256).toHex();
    }

    const CVStatementMapping& mKnown;
    const CVStopRequested& mStop;
    bool mIsStopped = false;
    CVQIFFile mFile;
    CVQIFRule mRule;
    /// Of each account.
    std::vector<std::vector<CVStatementLine>> mLines;
    CVStatement mStatement;
};

} // namespace

CVStatement CVReadQIF(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    return QIFReader(known, stop).read(bytes);
}

bool CVIsQIF(const QByteArray& bytes) {
    constexpr qsizetype kSample = 65536;
    QByteArray sample = bytes.first(std::min(bytes.size(), kSample));
    // In UTF-16 each of the letters that matter has a NUL beside it.
    sample.removeIf([](char c) { return c == '\0'; });
    for (const auto* const mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
        if (sample.startsWith(mark))
            sample.remove(0, static_cast<qsizetype>(qstrlen(mark)));
    }
    const QString text = QString::fromLatin1(sample);
    return CVHasQIFHeader(text) || CVBeginsAsQIF(text);
}
