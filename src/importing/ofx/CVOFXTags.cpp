#include "importing/ofx/CVOFXTags.h"

#include <algorithm>
#include <array>

namespace {

struct NamedTag {
    QStringView name;
    CVOFXTag tag = {};
};

constexpr std::array<NamedTag, 49> kTags{{{u"OFX", CVOFXTag::Root},
                                          {u"STMTRS", CVOFXTag::Statement},
                                          {u"CCSTMTRS", CVOFXTag::CardStatement},
                                          {u"INVSTMTRS", CVOFXTag::Statement},
                                          {u"BANKACCTFROM", CVOFXTag::AccountFrom},
                                          {u"CCACCTFROM", CVOFXTag::AccountFrom},
                                          {u"INVACCTFROM", CVOFXTag::AccountFrom},
                                          {u"BANKTRANLIST", CVOFXTag::List},
                                          {u"BANKTRANLISTP", CVOFXTag::List},
                                          {u"INVTRANLIST", CVOFXTag::List},
                                          {u"STMTTRN", CVOFXTag::Entry},
                                          {u"STMTTRNP", CVOFXTag::PendingEntry},
                                          {u"PAYEE", CVOFXTag::Payee},
                                          {u"CURRENCY", CVOFXTag::Currency},
                                          {u"ORIGCURRENCY", CVOFXTag::OtherPart},
                                          {u"BANKACCTTO", CVOFXTag::OtherPart},
                                          {u"CCACCTTO", CVOFXTag::OtherPart},
                                          {u"IMAGEDATA", CVOFXTag::OtherPart},
                                          {u"LEDGERBAL", CVOFXTag::Balance},
                                          {u"AVAILBAL", CVOFXTag::Balance},
                                          {u"BALLIST", CVOFXTag::Balance},
                                          {u"INVTRAN", CVOFXTag::Investment},
                                          {u"BANKID", CVOFXTag::BankNumber},
                                          {u"BROKERID", CVOFXTag::BankNumber},
                                          {u"ACCTID", CVOFXTag::AccountNumber},
                                          {u"ACCTTYPE", CVOFXTag::AccountType},
                                          {u"CURDEF", CVOFXTag::AccountCurrency},
                                          {u"BALAMT", CVOFXTag::BalanceAmount},
                                          {u"TRNTYPE", CVOFXTag::Type},
                                          {u"DTPOSTED", CVOFXTag::Day},
                                          {u"TRNAMT", CVOFXTag::Amount},
                                          {u"FITID", CVOFXTag::ID},
                                          {u"NAME", CVOFXTag::Name},
                                          {u"EXTDNAME", CVOFXTag::FullName},
                                          {u"EXTDPAYEE", CVOFXTag::FullName},
                                          {u"ADDR1", CVOFXTag::Address},
                                          {u"ADDR2", CVOFXTag::Address},
                                          {u"ADDR3", CVOFXTag::Address},
                                          {u"POSTALCODE", CVOFXTag::Address},
                                          {u"CITY", CVOFXTag::Address},
                                          {u"STATE", CVOFXTag::Address},
                                          {u"COUNTRY", CVOFXTag::Address},
                                          {u"MEMO", CVOFXTag::Memo},
                                          {u"MEMO2", CVOFXTag::Memo},
                                          {u"CHECKNUM", CVOFXTag::Number},
                                          {u"CURSYM", CVOFXTag::CurrencyCode},
                                          {u"CURRATE", CVOFXTag::Rate},
                                          {u"CATEGORY", CVOFXTag::Category},
                                          {u"CORRECTACTION", CVOFXTag::Correction}}};

} // namespace

CVOFXTag CVOFXTagOf(QStringView name) {
    const auto* const found =
        std::find_if(kTags.begin(), kTags.end(), [name](const NamedTag& each) { return each.name == name; });
    return found == kTags.end() ? CVOFXTag::Unknown : found->tag;
}
