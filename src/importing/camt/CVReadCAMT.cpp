#include "importing/camt/CVReadCAMT.h"

#include "format/QBLocale.h"
#include "importing/camt/CVCAMTParser.h"
#include "importing/camt/CVCAMTText.h"
#include "importing/statements/CVAskAboutTexts.h"
#include "importing/statements/CVStatementSummary.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QLocale>

#include <algorithm>
#include <array>

namespace {

struct ReadCAMTText {
    Q_DECLARE_TR_FUNCTIONS(CVReadCAMT)
};

using End = CVCAMTParsed::End;

/// Why nothing can be read of a message; empty when something can.
QString faultOf(const CVCAMTParsed& parsed) {
    switch (parsed.end) {
    case End::Whole:
        break;
    case End::Stopped:
        return ReadCAMTText::tr("Reading the statement was stopped.");
    case End::Damaged:
        return ReadCAMTText::tr("This statement is damaged in line %1, so that nothing of it is read. Please have your "
                                "bank make it anew.")
            .arg(parsed.line);
    case End::HasDeclarations:
        return ReadCAMTText::tr("This is no statement of a bank: it declares a document type of its own.");
    case End::TooLong:
        return ReadCAMTText::tr("This statement has more than %1 payments. Please import it in parts.")
            .arg(CVCAMTBuilder::kMostLines);
    }
    if (parsed.file.message.isEmpty())
        return ReadCAMTText::tr("This file holds no statement of an account.");
    return parsed.file.accounts.empty() ? ReadCAMTText::tr("This statement holds no entries.") : QString();
}

/// The account's number, with its currency where several have that number.
QString nameOf(const CVCAMTAccount& account, const std::vector<CVCAMTAccount>& all) {
    const auto hasNumber = [&account](const CVCAMTAccount& other) { return other.id == account.id; };
    if (account.id.isEmpty())
        return account.currency;
    return std::count_if(all.begin(), all.end(), hasNumber) > 1 ? account.id + u' ' + account.currency : account.id;
}

QString summaryOf(const CVCAMTFile& file, const CVCAMTAccount& account, const QString& name) {
    QStringList parts{file.version > 0 ? ReadCAMTText::tr("%1 version %2").arg(file.message).arg(file.version)
                                       : file.message};
    if (!account.id.isEmpty())
        parts.append(ReadCAMTText::tr("account %1").arg(name));
    const bool isForeign = account.currency != QBLocaleInForce().currencySymbol(QLocale::CurrencyIsoCode);
    if (isForeign && !account.currency.isEmpty() && !name.endsWith(account.currency))
        parts.append(ReadCAMTText::tr("in %1").arg(account.currency));
    return CVSummaryOfStatement(parts, account.lines);
}

} // namespace

CVStatement CVReadCAMT(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    const CVCAMTText text = CVDecodeCAMT(bytes, known.encoding);
    if (!text.problem.isEmpty())
        return CVStatement::ofProblem(text.problem);
    CVCAMTParsed parsed = CVParseCAMT(text.utf8, stop);
    if (QString problem = faultOf(parsed); !problem.isEmpty())
        return CVStatement::ofProblem(problem);
    std::vector<CVAccountOfFile> accounts;
    std::size_t chosen = 0;
    for (const CVCAMTAccount& account : parsed.file.accounts) {
        const QString name = nameOf(account, parsed.file.accounts);
        chosen = name == known.account ? accounts.size() : chosen;
        accounts.push_back({name, static_cast<int>(account.lines.size())});
    }
    if (known.account && accounts[chosen].name != known.account)
        return CVStatement::ofProblem(CVMissingAccount(accounts, *known.account));
    CVStatement statement;
    statement.mapping = known;
    statement.lasting = known;
    statement.mapping.encoding = text.encoding;
    statement.accounts = CVNamesOfAccounts(accounts);
    if (accounts.size() > 1 && !known.account)
        statement.questions.push_back(CVAskForAccount(accounts, known));
    CVCAMTAccount& account = parsed.file.accounts[chosen];
    statement.summary = summaryOf(parsed.file, account, accounts[chosen].name);
    // An account without a number may be anybody's, so that nothing is remembered of it.
    if (!account.id.isEmpty())
        statement.headerDigest =
            QCryptographicHash::hash("CAMT\n" + accounts[chosen].name.toUtf8(), QCryptographicHash::Sha256).toHex();
    statement.lines = std::move(account.lines);
    return statement;
}

bool CVIsCAMT(const QByteArray& bytes) {
    constexpr qsizetype kSample = 65536;
    constexpr std::array kNames{"BkToCstmrStmt", "BkToCstmrAcctRpt", "BkToCstmrDbtCdtNtfctn", "tech:xsd:camt.05"};
    const QByteArray start = CVStartOfCAMT(bytes, kSample);
    return start.startsWith('<') &&
           std::any_of(kNames.begin(), kNames.end(), [&start](const char* name) { return start.contains(name); });
}
