#include "importing/ofx/CVReadOFX.h"

#include "importing/ofx/CVDecodeOFX.h"
#include "importing/ofx/CVOFXLines.h"
#include "importing/ofx/CVReadOFXMarkup.h"
#include "importing/ofx/CVReadOFXTree.h"
#include "importing/statements/CVAskAboutTexts.h"
#include "importing/statements/CVStatementSummary.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <algorithm>

namespace {

struct ReadOFXText {
    Q_DECLARE_TR_FUNCTIONS(CVReadOFX)
};

class OFXReader {
public:
    OFXReader(const CVStatementMapping& known, const CVStopRequested& stop) : mKnown(known), mStop(stop) {}

    CVStatement read(const QByteArray& bytes) {
        const CVOFXText text = CVDecodeOFX(bytes, mKnown.encoding);
        if (!text.decoded.problem.isEmpty())
            return CVStatement::ofProblem(text.decoded.problem);
        readContents(text);
        if (mIsStopped)
            return CVStatement::ofProblem(ReadOFXText::tr("Reading the statement was stopped."));
        if (!mContents.problem.isEmpty())
            return CVStatement::ofProblem(mContents.problem);
        mAccounts = namesOfAccounts();
        if (const QString problem = chooseAccount(); !problem.isEmpty())
            return CVStatement::ofProblem(problem);
        settle(text);
        return mStatement;
    }

private:
    void readContents(const CVOFXText& text) {
        const CVStopRequested stop = [this](int permille) {
            mIsStopped = mIsStopped || (mStop && mStop(permille));
            return mIsStopped;
        };
        auto contents = text.isTree ? CVReadOFXTree(text.decoded.text, stop) : std::nullopt;
        // Many files say that they are XML and are not.
        if (!contents && !mIsStopped)
            contents = CVReadOFXMarkup(text.decoded.text, stop);
        if (contents)
            mContents = std::move(*contents);
    }

    /// Each account by its number, with as much more as tells it from the others.
    [[nodiscard]] std::vector<CVAccountOfFile> namesOfAccounts() const {
        std::vector<CVAccountOfFile> named;
        for (const CVOFXAccount& account : mContents.accounts) {
            const QStringList names{account.number, account.number + u' ' + account.type,
                                    account.number + u' ' + account.type + u' ' + account.bank,
                                    account.number + u' ' + account.type + u' ' + account.currency};
            QString name;
            for (const QString& each : names) {
                if (name.isEmpty() && !each.trimmed().isEmpty() && !isTaken(named, each.simplified()))
                    name = each.simplified();
            }
            for (std::size_t number = named.size() + 1; name.isEmpty(); ++number) {
                const QString numbered = QString(account.number + QStringLiteral(" #%1").arg(number)).simplified();
                name = isTaken(named, numbered) ? QString() : numbered;
            }
            named.push_back({name, static_cast<int>(account.entries.size())});
        }
        return named;
    }

    static bool isTaken(const std::vector<CVAccountOfFile>& named, const QString& name) {
        return std::any_of(named.begin(), named.end(), [&](const auto& other) { return other.name == name; });
    }

    /// The problem, if there is one.
    QString chooseAccount() {
        if (mAccounts.empty())
            return ReadOFXText::tr(
                "This file holds no statement of an account. Please have your bank export it again.");
        const auto chosen = std::find_if(mAccounts.begin(), mAccounts.end(), [this](const CVAccountOfFile& account) {
            return mKnown.account ? account.name == *mKnown.account : account.lines > 0;
        });
        if (mKnown.account && chosen == mAccounts.end())
            return CVMissingAccount(mAccounts, *mKnown.account);
        mChosen = chosen == mAccounts.end() ? 0 : static_cast<std::size_t>(chosen - mAccounts.begin());
        std::vector<CVAccountOfFile> filled;
        std::copy_if(mAccounts.begin(), mAccounts.end(), std::back_inserter(filled),
                     [](const CVAccountOfFile& account) { return account.lines > 0; });
        mStatement.accounts = CVNamesOfAccounts(filled);
        if (filled.size() > 1 && !mKnown.account)
            mStatement.questions.push_back(CVAskForAccount(filled, mKnown));
        return whyEmpty();
    }

    /// Why nothing of the chosen account can be imported; empty where something can.
    [[nodiscard]] QString whyEmpty() const {
        const CVOFXAccount& account = mContents.accounts[mChosen];
        if (!account.entries.empty() || mContents.cutOffLine > 0)
            return {};
        const bool hasInvestments = mKnown.account ? account.investments > 0
                                                   : std::any_of(mContents.accounts.begin(), mContents.accounts.end(),
                                                                 [](const auto& each) { return each.investments > 0; });
        if (hasInvestments)
            return ReadOFXText::tr("This statement holds only purchases, sales and earnings of investments, which are "
                                   "no payments.");
        return account.pending > 0
                   ? ReadOFXText::tr("This statement holds only pending payments, which are not booked yet.")
                   : ReadOFXText::tr("This statement holds no lines.");
    }

    void settle(const CVOFXText& text) {
        const CVOFXAccount& account = mContents.accounts[mChosen];
        mStatement.mapping = mKnown;
        mStatement.lasting = mKnown;
        CVOFXLines read = CVLinesOfOFX(account, settleMarks(), mKnown);
        // The signs of another account may be settled.
        if (read.question && mStatement.questions.empty())
            mStatement.questions.push_back(*read.question);
        mStatement.lines = std::move(read.lines);
        if (mContents.cutOffLine > 0) {
            CVStatementLine end{.number = mContents.cutOffLine};
            end.unreadable = ReadOFXText::tr("the file breaks off here, so that lines may be missing");
            mStatement.lines.push_back(end);
        }
        const QByteArray& encoding = text.decoded.encoding;
        if (CVEncodingsOfStatements().contains(encoding))
            mStatement.mapping.encoding = encoding;
        mStatement.headerDigest = digestOf(account);
        mStatement.summary = summaryOf(text);
    }

    CVOFXMarks settleMarks() {
        const CVDecimalMarks marks = CVDecimalMarksOfOFX(mContents);
        const bool areBoth = marks.point > 0 && marks.comma > 0;
        if (mKnown.decimalMark)
            return {*mKnown.decimalMark, areBoth};
        if (!marks.isSettled() && marks.openAt)
            mStatement.questions.push_back(
                CVAskForDecimalMark({static_cast<int>(*marks.openAt), marks.openText}, marks.likelier(), mKnown));
        else if (!marks.sayNothing() && !areBoth)
            mStatement.mapping.decimalMark = marks.likelier();
        return {marks.likelier(), areBoth};
    }

    static QByteArray digestOf(const CVOFXAccount& account) {
        const QStringList parts{QStringLiteral("OFX"), account.bank, account.number, account.type, account.currency};
        return QCryptographicHash::hash(parts.join(u'\n').toUtf8(), QCryptographicHash::Sha256).toHex();
    }

    [[nodiscard]] QString summaryOf(const CVOFXText& text) const {
        const CVOFXAccount& account = mContents.accounts[mChosen];
        const QString name = mAccounts[mChosen].name;
        QString summary = CVSummaryOfStatement(
            {QString(QStringLiteral("OFX ") + text.version).trimmed(), CVNameOfEncoding(text.decoded.encoding),
             account.currency.isEmpty() ? ReadOFXText::tr("account %1").arg(name)
                                        : ReadOFXText::tr("account %1 in %2").arg(name, account.currency)},
            mStatement.lines);
        if (account.pending > 0)
            summary += QStringLiteral(", ") + (account.pending == 1
                                                   ? ReadOFXText::tr("1 pending line left out")
                                                   : ReadOFXText::tr("%1 pending lines left out").arg(account.pending));
        int investments = 0;
        for (const CVOFXAccount& each : mContents.accounts)
            investments += each.investments;
        if (investments > 0)
            summary += QStringLiteral(", ") + (investments == 1
                                                   ? ReadOFXText::tr("1 investment line left out")
                                                   : ReadOFXText::tr("%1 investment lines left out").arg(investments));
        return summary;
    }

    const CVStatementMapping& mKnown;
    const CVStopRequested& mStop;
    bool mIsStopped = false;
    CVOFXContents mContents;
    std::vector<CVAccountOfFile> mAccounts;
    std::size_t mChosen = 0;
    CVStatement mStatement;
};

} // namespace

CVStatement CVReadOFX(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    return OFXReader(known, stop).read(bytes);
}
