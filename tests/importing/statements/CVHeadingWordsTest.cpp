#include "importing/statements/CVHeadingWords.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct HeadingRow {
    const char16_t* text;
    CVColumnRole role;
};

TEST(CVHeadingWords, SayWhatAColumnHolds) {
    using enum CVColumnRole;
    const std::vector<HeadingRow> rows{{u"Date", Day},
                                       {u"Buchungstag", Day},
                                       {u"Posting Date", Day},
                                       {u"dateOp", Day},
                                       {u"Datum za\u00fa\u010dtov\u00e1n\u00ed", Day},
                                       {u"\u53d6\u5f15\u65e5", Day},
                                       {u"Posted", Day},
                                       {u"Completed", Day},
                                       {u"Started", OtherDay},
                                       {u"Wertstellung", OtherDay},
                                       {u"Value date", OtherDay},
                                       {u"Amount", Amount},
                                       {u"Betrag (EUR)", Amount},
                                       {u"Amount (total)", Amount},
                                       {u"\u5165\u51fa\u91d1(\u5186)", Amount},
                                       {u"Betrag (Fremdw\u00e4hrung)", Ignored},
                                       {u"OriginalAmount", Ignored},
                                       {u"Amount (fee)", Fee},
                                       {u"Withdrawals (SGD)", MoneyOut},
                                       {u"Debit Amount", MoneyOut},
                                       {u"Betrag Soll", MoneyOut},
                                       {u"\u51fa\u91d1\u91d1\u984d", MoneyOut},
                                       {u"Money In", MoneyIn},
                                       {u"Haben", MoneyIn},
                                       {u"In (EUR)", MoneyIn},
                                       {u"RunningBalance", Balance},
                                       {u"Saldo nach Buchung", Balance},
                                       {u"Balance currency", Currency},
                                       {u"IBAN Zahlungsbeteiligter", Ignored},
                                       {u"Name Zahlungsbeteiligter", Payee},
                                       {u"Credit Card Number", Ignored},
                                       {u"Transaction Time", Ignored},
                                       {u"TransactionId", BankID},
                                       {u"Verwendungszweck", Purpose},
                                       {u"Notiz", Purpose},
                                       {u"Kategorie", Category},
                                       {u"Max Mustermann", Guessed},
                                       {u"", Guessed},
                                       {u"12.50", Guessed}};
    for (const auto& [text, role] : rows)
        EXPECT_EQ(static_cast<int>(CVHeadingOf(QString::fromUtf16(text)).role), static_cast<int>(role))
            << QString::fromUtf16(text).toStdString();
}

TEST(CVHeadingWords, PreferTheDayOfBooking) {
    EXPECT_LT(CVHeadingOf("Buchungstag").rank, CVHeadingOf("Datum").rank);
    EXPECT_LT(CVHeadingOf("Posted").rank, CVHeadingOf("Transaction date").rank);
    EXPECT_LT(CVHeadingOf("Billing amount").rank, CVHeadingOf("Transaction amount").rank);
}

} // namespace
