#include "importing/ofx/CVOFXBuilder.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t kMostEntries = 200'000;
constexpr std::size_t kMostAccounts = 1000;
constexpr std::size_t kMostBalances = 1000;
constexpr qsizetype kLongestText = 10'000;

struct OFXBuilderText {
    Q_DECLARE_TR_FUNCTIONS(CVOFXBuilder)
};

void addText(QString& text, const QString& more) {
    if (!text.isEmpty())
        text += u' ';
    text += more;
}

void keepFirst(QString& kept, const QString& text) {
    if (kept.isEmpty())
        kept = text;
}

} // namespace

CVOFXAccount& CVOFXBuilder::account() {
    if (mContents.accounts.empty())
        beginAccount();
    return mContents.accounts.back();
}

void CVOFXBuilder::beginAccount() {
    if (mContents.accounts.size() < kMostAccounts)
        mContents.accounts.emplace_back();
    else
        refuse(
            OFXBuilderText::tr("This file holds more than %1 accounts. Please import it in parts.").arg(kMostAccounts));
}

void CVOFXBuilder::beginEntry(int line) {
    endEntry();
    if (++mEntries > kMostEntries) {
        refuse(
            OFXBuilderText::tr("This statement has more than %1 lines. Please import it in parts.").arg(kMostEntries));
        return;
    }
    mEntry = {};
    mEntry.line = line;
    mHasEntry = true;
    mPlace = Place::Entry;
}

void CVOFXBuilder::endEntry() {
    if (mHasEntry)
        account().entries.push_back(std::move(mEntry));
    mHasEntry = false;
    mPlace = Place::Elsewhere;
}

void CVOFXBuilder::begin(CVOFXTag tag, int line) {
    mElement = tag;
    switch (tag) {
    case CVOFXTag::Root:
        mIsInRoot = true;
        break;
    case CVOFXTag::Statement:
    case CVOFXTag::CardStatement:
        endEntry();
        beginAccount();
        account().isCard = tag == CVOFXTag::CardStatement;
        break;
    case CVOFXTag::AccountFrom:
        mPlace = mHasEntry ? Place::OtherPart : Place::AccountFrom;
        break;
    case CVOFXTag::List:
        endEntry();
        mIsInList = true;
        break;
    case CVOFXTag::Entry:
        beginEntry(line);
        break;
    case CVOFXTag::PendingEntry:
        endEntry();
        ++account().pending;
        break;
    case CVOFXTag::Investment:
        endEntry();
        ++account().investments;
        break;
    case CVOFXTag::Balance:
        endEntry();
        mIsInList = false;
        break;
    case CVOFXTag::Payee:
    case CVOFXTag::Currency:
    case CVOFXTag::OtherPart:
        if (mHasEntry)
            mPlace = tag == CVOFXTag::Payee      ? Place::Payee
                     : tag == CVOFXTag::Currency ? Place::Currency
                                                 : Place::OtherPart;
        break;
    default:
        break;
    }
}

void CVOFXBuilder::take(const QString& text, int line) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || mElement == CVOFXTag::Unknown)
        return;
    if (mHasEntry && trimmed.size() > kLongestText)
        mEntry.fault = CVOFXEntry::Fault::TooLong;
    else if (mHasEntry)
        takeOfEntry(trimmed);
    else
        takeOfAccount(trimmed.left(kLongestText).simplified(), line);
}

void CVOFXBuilder::takeOfAccount(const QString& text, int line) {
    if (mElement == CVOFXTag::AccountCurrency)
        keepFirst(account().currency, text);
    if (mElement == CVOFXTag::BalanceAmount && mContents.balances.size() < kMostBalances)
        mContents.balances.emplace_back(text, line);
    if (mPlace != Place::AccountFrom)
        return;
    if (mElement == CVOFXTag::BankNumber)
        keepFirst(account().bank, text);
    else if (mElement == CVOFXTag::AccountNumber)
        keepFirst(account().number, text);
    else if (mElement == CVOFXTag::AccountType)
        keepFirst(account().type, text);
}

/// Keeps a text of which an entry has one alone.
void CVOFXBuilder::takeOnce(QString& kept, const QString& text) {
    if (!kept.isEmpty() && kept != text)
        mEntry.fault = CVOFXEntry::Fault::Twofold;
    keepFirst(kept, text);
}

/// The parts of an entry need not end: what is none of theirs is the entry's own.
void CVOFXBuilder::takeOfEntry(const QString& text) {
    switch (mElement) {
    case CVOFXTag::Type:
        return keepFirst(mEntry.type, text.simplified().toUpper());
    case CVOFXTag::Day:
        return takeOnce(mEntry.day, text.simplified());
    case CVOFXTag::Amount:
        return takeOnce(mEntry.amount, text.simplified());
    case CVOFXTag::ID:
        return keepFirst(mEntry.id, text.simplified());
    case CVOFXTag::Payee:
        return addText(mEntry.payeeName, text);
    case CVOFXTag::Name:
        return takeName(text);
    case CVOFXTag::FullName:
        return addText(mEntry.fullName, text);
    case CVOFXTag::Address:
        if (mPlace == Place::Payee)
            addText(mEntry.address, text);
        return;
    case CVOFXTag::Memo:
        return addText(mEntry.memo, text);
    case CVOFXTag::Number:
        return keepFirst(mEntry.number, text.simplified());
    case CVOFXTag::Currency:
    case CVOFXTag::CurrencyCode:
    case CVOFXTag::Rate:
        return takeCurrency(text.simplified());
    case CVOFXTag::Category:
        return keepFirst(mEntry.category, text.simplified());
    case CVOFXTag::Correction:
        return keepFirst(mEntry.correction, text.simplified().toUpper());
    default:
        return;
    }
}

void CVOFXBuilder::takeName(const QString& text) {
    addText(mPlace == Place::Payee ? mEntry.payeeName : mEntry.name, text);
}

void CVOFXBuilder::takeCurrency(const QString& text) {
    if (mPlace == Place::Currency)
        keepFirst(mElement == CVOFXTag::Rate ? mEntry.rate : mEntry.currency, text);
}

void CVOFXBuilder::end(CVOFXTag tag) {
    mElement = CVOFXTag::Unknown;
    switch (tag) {
    case CVOFXTag::Root:
        mIsInRoot = false;
        mIsInList = false;
        return endEntry();
    case CVOFXTag::Statement:
    case CVOFXTag::CardStatement:
    case CVOFXTag::List:
        mIsInList = false;
        return endEntry();
    case CVOFXTag::Entry:
        return endEntry();
    case CVOFXTag::AccountFrom:
    case CVOFXTag::Payee:
    case CVOFXTag::Currency:
    case CVOFXTag::OtherPart:
        mPlace = mHasEntry ? Place::Entry : Place::Elsewhere;
        return;
    default:
        return;
    }
}

/// A file may have several statements of one account, for one month each.
void CVOFXBuilder::uniteAccounts() {
    std::vector<CVOFXAccount> united;
    for (CVOFXAccount& each : mContents.accounts) {
        const auto same =
            std::find_if(united.begin(), united.end(), [&](const auto& other) { return other.isSameAs(each); });
        if (same == united.end()) {
            united.push_back(std::move(each));
            continue;
        }
        std::move(each.entries.begin(), each.entries.end(), std::back_inserter(same->entries));
        same->pending += each.pending;
        same->investments += each.investments;
    }
    mContents.accounts = std::move(united);
}

CVOFXContents CVOFXBuilder::finish(int lastLine) {
    if (mHasEntry)
        mEntry.fault = CVOFXEntry::Fault::CutOff;
    else if (mIsInRoot || mIsInList)
        mContents.cutOffLine = lastLine;
    endEntry();
    uniteAccounts();
    return std::move(mContents);
}
