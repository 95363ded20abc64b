#include "importing/CVPayeeWords.h"

#include <QString>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using namespace std::string_view_literals;

template <typename Words>
constexpr Words inOrder(Words words) {
    std::sort(words.begin(), words.end());
    return words;
}

constexpr auto kWordsBesidePayees = inOrder(
    std::to_array<std::u16string_view>({u"ab"sv,          u"abbuchung"sv, u"achat"sv,        u"addebito"sv,
                                        u"ag"sv,          u"and"sv,       u"aps"sv,          u"as"sv,
                                        u"at"sv,          u"atm"sv,       u"auftrag"sv,      u"basislastschrift"sv,
                                        u"betaalpas"sv,   u"betaling"sv,  u"bestellung"sv,   u"bv"sv,
                                        u"card"sv,        u"carta"sv,     u"carte"sv,        u"cartao"sv,
                                        u"cb"sv,          u"co"sv,        u"com"sv,          u"compra"sv,
                                        u"contactless"sv, u"corp"sv,      u"credit"sv,       u"customer"sv,
                                        u"dankt"sv,       u"danke"sv,     u"dauerauftrag"sv, u"debit"sv,
                                        u"debito"sv,      u"direct"sv,    u"ec"sv,           u"eft"sv,
                                        u"ek"sv,          u"et"sv,        u"ev"sv,           u"facture"sv,
                                        u"factura"sv,     u"faktura"sv,   u"fattura"sv,      u"from"sv,
                                        u"giro"sv,        u"girocard"sv,  u"gmbh"sv,         u"gutschrift"sv,
                                        u"http"sv,        u"https"sv,     u"inc"sv,          u"incasso"sv,
                                        u"invoice"sv,     u"karta"sv,     u"karte"sv,        u"kartenzahlung"sv,
                                        u"kauf"sv,        u"kg"sv,        u"kgaa"sv,         u"kk"sv,
                                        u"korttiosto"sv,  u"kortkop"sv,   u"kundennr"sv,     u"lastschrift"sv,
                                        u"limited"sv,     u"llc"sv,       u"ltd"sv,          u"ltda"sv,
                                        u"maestro"sv,     u"mandat"sv,    u"mastercard"sv,   u"mbh"sv,
                                        u"nr"sv,          u"nv"sv,        u"of"sv,           u"ohg"sv,
                                        u"online"sv,      u"order"sv,     u"oy"sv,           u"oyj"sv,
                                        u"paga"sv,        u"pagamento"sv, u"pago"sv,         u"paiement"sv,
                                        u"pas"sv,         u"payment"sv,   u"plc"sv,          u"pos"sv,
                                        u"prelevement"sv, u"pty"sv,       u"purchase"sv,     u"pvt"sv,
                                        u"rechnung"sv,    u"recurring"sv, u"ref"sv,          u"reference"sv,
                                        u"sa"sv,          u"sagt"sv,      u"sarl"sv,         u"sas"sv,
                                        u"se"sv,          u"sepa"sv,      u"spa"sv,          u"srl"sv,
                                        u"sl"sv,          u"tarjeta"sv,   u"the"sv,          u"to"sv,
                                        u"transaction"sv, u"ug"sv,        u"und"sv,          u"vielen"sv,
                                        u"vertrag"sv,     u"virement"sv,  u"visa"sv,         u"von"sv,
                                        u"www"sv,         u"zahlung"sv,   u"zoo"sv}));

/// The names of months in several languages begin with one of these.
constexpr auto kBeginsOfMonths = std::to_array<std::u16string_view>(
    {u"jan"sv, u"feb"sv, u"fev"sv, u"mar"sv,  u"maa"sv, u"apr"sv,  u"avr"sv, u"abr"sv, u"may"sv,
     u"mai"sv, u"mei"sv, u"jun"sv, u"juin"sv, u"jul"sv, u"juil"sv, u"aug"sv, u"aou"sv, u"ago"sv,
     u"sep"sv, u"oct"sv, u"okt"sv, u"out"sv,  u"nov"sv, u"dec"sv,  u"dez"sv, u"dic"sv});

constexpr qsizetype kLongestShortMonth = 4;

std::u16string_view viewOf(QStringView word) {
    return {word.utf16(), static_cast<std::size_t>(word.size())};
}

} // namespace

bool CVIsWordBesidePayee(QStringView word) {
    return std::binary_search(kWordsBesidePayees.begin(), kWordsBesidePayees.end(), viewOf(word));
}

bool CVIsWordOfMonth(QStringView word) {
    const auto text = viewOf(word);
    return word.size() <= kLongestShortMonth &&
           std::any_of(kBeginsOfMonths.begin(), kBeginsOfMonths.end(),
                       [&text](const auto& begin) { return text.starts_with(begin); });
}
