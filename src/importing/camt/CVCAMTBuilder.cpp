#include "importing/camt/CVCAMTBuilder.h"

#include "importing/camt/CVCAMTLines.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {

/// Longer texts are no words for people.
constexpr qsizetype kLongestText = 4096;
constexpr qsizetype kMostTexts = 64;

struct MessageName {
    QByteArrayView element;
    const char16_t* name = nullptr;
};
constexpr std::array<MessageName, 3> kMessages{
    {{"BkToCstmrStmt", u"CAMT.053"}, {"BkToCstmrAcctRpt", u"CAMT.052"}, {"BkToCstmrDbtCdtNtfctn", u"CAMT.054"}}};

bool isOneOf(QByteArrayView path, std::initializer_list<QByteArrayView> paths) {
    return std::find(paths.begin(), paths.end(), path) != paths.end();
}

void addOnce(QStringList& texts, const QString& text) {
    if (texts.size() < kMostTexts && !texts.contains(text))
        texts.append(text);
}

void takeFirst(QString& place, const QString& value) {
    if (place.isEmpty())
        place = value;
}

/// Whether the path is that of an account's number; older messages name other numbers than the IBAN otherwise.
bool isAccountNumber(QByteArrayView path) {
    return isOneOf(path, {"Id/IBAN", "Id/Othr/Id", "Id/BBAN", "Id/UPIC", "Id/PrtryAcct/Id"});
}

/// Whether the path is that of a name: later messages name a person one level below.
bool isName(QByteArrayView path) {
    return isOneOf(path, {"Nm", "Pty/Nm", "Agt/FinInstnId/Nm"});
}

/// Takes what is below the parties of a payment.
void takeOfParties(QByteArrayView path, const QString& value, CVCAMTPart& part) {
    const auto slash = path.indexOf('/');
    if (slash < 0)
        return;
    const QByteArrayView who = path.first(slash);
    const QByteArrayView what = path.sliced(slash + 1);
    if (who == "Dbtr" && isName(what))
        takeFirst(part.debtor.name, value);
    else if (who == "Cdtr" && isName(what))
        takeFirst(part.creditor.name, value);
    else if (who == "UltmtDbtr" && isName(what))
        takeFirst(part.debtor.ultimate, value);
    else if (who == "UltmtCdtr" && isName(what))
        takeFirst(part.creditor.ultimate, value);
    else if (who == "DbtrAcct" && isAccountNumber(what))
        takeFirst(part.debtor.account, value);
    else if (who == "CdtrAcct" && isAccountNumber(what))
        takeFirst(part.creditor.account, value);
    else if ((who == "TradgPty" && isName(what)) || (who == "Prtry" && isOneOf(what, {"Pty/Nm", "Pty/Pty/Nm"})))
        takeFirst(part.otherParty, value);
}

/// Takes what is below what a payment is for.
void takeOfRemittance(QByteArrayView path, const QString& value, CVCAMTPart& part) {
    if (path == "Ustrd")
        addOnce(part.texts, value);
    // A leading question mark is a message to bookkeeping programs.
    else if (isOneOf(path, {"Strd/CdtrRefInf/Ref", "Strd/CdtrRefInf/CdtrRef", "Strd/RfrdDocInf/Nb",
                            "Strd/RfrdDocInf/RfrdDocNb"}) ||
             (path == "Strd/AddtlRmtInf" && !value.startsWith(u'?')))
        addOnce(part.references, value);
}

} // namespace

void CVCAMTBuilder::begin(QByteArrayView name, const QString& currency, int line) {
    const QByteArrayView parent =
        mLengths.empty() ? QByteArrayView() : QByteArrayView(mPath).sliced(mLengths.back() + 1);
    mText.clear();
    const bool isStatement = !mStatement.isOpen() && isOneOf(name, {"Stmt", "Rpt", "Ntfctn"});
    if (isStatement)
        beginStatement(parent);
    mLengths.push_back(mPath.size());
    mPath.append('/').append(name);
    if (isStatement && !file.message.isEmpty())
        mStatement = {mPath.size()};
    if (mStatement.isOpen() && !mEntry.isOpen() && below(mStatement) == "Ntry") {
        mEntry = {mPath.size()};
        mBooked = {};
        mBooked.line = line;
    } else if (mEntry.isOpen() && !mPart.isOpen() && isOneOf(below(mEntry), {"NtryDtls/TxDtls", "TxDtls"})) {
        beginPart();
    }
    if (name == "Amt")
        mCurrency = currency;
}

void CVCAMTBuilder::beginStatement(QByteArrayView parent) {
    const auto* const message = std::find_if(kMessages.begin(), kMessages.end(),
                                             [parent](const MessageName& each) { return each.element == parent; });
    if (message == kMessages.end())
        return;
    file.message = QString::fromUtf16(message->name);
    mAccount = {};
}

void CVCAMTBuilder::beginPart() {
    if (mBooked.parts.size() + mLines >= kMostLines) {
        file.isTooLong = true;
        return;
    }
    mPart = {mPath.size()};
    mBooked.parts.emplace_back();
}

void CVCAMTBuilder::addText(QByteArrayView text) {
    if (mText.size() < kLongestText)
        mText.append(text);
}

void CVCAMTBuilder::end() {
    if (mLengths.empty())
        return;
    const QString value = QString::fromUtf8(mText).left(kLongestText).simplified();
    if (!value.isEmpty())
        takeValue(value);
    mText.clear();
    if (mPart.end == mPath.size())
        mPart = {};
    if (mEntry.end == mPath.size()) {
        finishEntry();
        mEntry = {};
    }
    if (mStatement.end == mPath.size())
        mStatement = {};
    mPath.truncate(mLengths.back());
    mLengths.pop_back();
}

void CVCAMTBuilder::takeSchema(const QString& name) {
    static const QRegularExpression form(QStringLiteral("camt\\.05[234]\\.001\\.(\\d{2})"));
    if (const auto match = form.match(name); match.hasMatch())
        file.version = match.capturedView(1).toInt();
}

/// The path of the open element from below that container on.
QByteArrayView CVCAMTBuilder::below(const Container& container) const {
    const QByteArrayView path(mPath);
    return path.size() > container.end ? path.sliced(container.end + 1) : QByteArrayView();
}

void CVCAMTBuilder::takeValue(const QString& value) {
    if (mPart.isOpen())
        takeOfPart(below(mPart), value);
    else if (mEntry.isOpen())
        takeOfEntry(below(mEntry), value);
    else if (mStatement.isOpen())
        takeOfStatement(below(mStatement), value);
}

void CVCAMTBuilder::takeOfStatement(QByteArrayView path, const QString& value) {
    if (!path.startsWith("Acct/"))
        return;
    const QByteArrayView what = path.sliced(5);
    if (isAccountNumber(what))
        takeFirst(mAccount.id, value);
    else if (what == "Ccy")
        takeFirst(mAccount.currency, value);
    else if (isOneOf(what, {"Ownr/Nm", "Ownr/Pty/Nm"}))
        takeFirst(mAccount.owner, value);
}

void CVCAMTBuilder::takeOfEntry(QByteArrayView path, const QString& value) {
    if (path == "Amt")
        mBooked.amount = {value, mCurrency};
    else if (path == "CdtDbtInd")
        mBooked.mark = value;
    else if (path == "RvslInd")
        mBooked.isReversal = value == u"true" || value == u"1";
    else if (isOneOf(path, {"Sts", "Sts/Cd", "Sts/Prtry"}))
        mBooked.status = value;
    else if (isOneOf(path, {"BookgDt/Dt", "BookgDt/DtTm"}))
        mBooked.bookingDay = value;
    else if (isOneOf(path, {"ValDt/Dt", "ValDt/DtTm"}))
        mBooked.valueDay = value;
    else if (path == "AcctSvcrRef")
        mBooked.bankReference = value;
    else if (path == "NtryRef")
        mBooked.reference = value;
    else if (path == "AddtlNtryInf")
        mBooked.information = value;
}

void CVCAMTBuilder::takeOfPart(QByteArrayView path, const QString& value) {
    CVCAMTPart& part = mBooked.parts.back();
    if (path == "Amt")
        part.amounts[0] = {value, mCurrency};
    else if (path == "AmtDtls/TxAmt/Amt")
        part.amounts[1] = {value, mCurrency};
    else if (path == "AmtDtls/InstdAmt/Amt")
        part.amounts[2] = {value, mCurrency};
    else if (path == "CdtDbtInd")
        part.mark = value;
    else if (path == "Refs/AcctSvcrRef")
        part.bankReference = value;
    else if (path == "Refs/TxId")
        part.transactionID = value;
    else if (path == "AddtlTxInf")
        part.information = value;
    else if (path.startsWith("RltdPties/"))
        takeOfParties(path.sliced(10), value, part);
    else if (path.startsWith("RmtInf/"))
        takeOfRemittance(path.sliced(7), value, part);
}

void CVCAMTBuilder::finishEntry() {
    CVCAMTAccount& account = accountOfEntry();
    std::vector<CVStatementLine> lines = CVLinesOfCAMTEntry(mBooked, account);
    mLines += lines.size();
    file.isTooLong = file.isTooLong || mLines > kMostLines;
    std::move(lines.begin(), lines.end(), std::back_inserter(account.lines));
    mBooked = {};
}

/// One number may stand for accounts in several currencies.
CVCAMTAccount& CVCAMTBuilder::accountOfEntry() {
    if (mAccount.currency.isEmpty())
        mAccount.currency = mBooked.amount.currency;
    const QString key = mAccount.id + u'\n' + mAccount.currency;
    auto place = mPlaces.constFind(key);
    if (place == mPlaces.cend()) {
        place = mPlaces.insert(key, file.accounts.size());
        file.accounts.push_back(mAccount);
    }
    return file.accounts[*place];
}
