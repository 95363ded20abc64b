#include "importing/CVPayeeKey.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct KeyRow {
    const char* behaviour;
    const char* payee;
    const char* key;
};

void PrintTo(const KeyRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class CVPayeeKeyTest : public testing::TestWithParam<KeyRow> {};

TEST_P(CVPayeeKeyTest, LeavesTheName) {
    EXPECT_EQ(CVPayeeKey(QString::fromUtf8(GetParam().payee)).text(), QString::fromUtf8(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVPayeeKeyTest,
    testing::Values(
        KeyRow{"in small letters", "Corner MARKET", "corner market"},
        KeyRow{"without accents", "Café Blümchen", "cafe blumchen"},
        KeyRow{"with plain letters for others", "Weiß Søren Œuvre", "weiss soren oeuvre"},
        KeyRow{"without signs between words", "  Dr. Sorensen & Partner ", "dr sorensen partner"},
        KeyRow{"with an apostrophe inside of a word", "O'Hara & Sons, Farmers’ market", "ohara sons farmers market"},
        KeyRow{"without the number of a shop", "BAKERY LINDNER 22", "bakery lindner"},
        KeyRow{"without what follows a long number", "CORNER MARKET 0123 SPRINGFIELD IL", "corner market"},
        KeyRow{"with what follows a short number, which belongs to the name", "Studio 54 Lisbon", "studio lisbon"},
        KeyRow{"without the town behind two slashes", "GREEN VALLEY//SPRINGFIELD/US", "green valley"},
        KeyRow{"with what follows the slashes of an address", "https://harbor-books.example/x",
               "harbor books example x"},
        KeyRow{"without a number that no blank divides from it", "SHOP4711 Springfield", "shop"},
        KeyRow{"with what follows a long number, which is not that of a shop", "Booking OG/000000004 Corner Market",
               "booking og corner market"},
        KeyRow{"with many words behind a number, which are more than a town",
               "Booking 0123 for the Corner Market Lindner Springfield",
               "booking for corner market lindner springfield"},
        KeyRow{"without a date of numbers, with what follows it", "Bought 2026.03.12 14:05 Bakery Lindner",
               "bought bakery lindner"},
        KeyRow{"without a date with a month", "Bakery Lindner 12 MAR 2026", "bakery lindner"},
        KeyRow{"without a date in one word", "BAKERY LINDNER 12MAR26", "bakery lindner"},
        KeyRow{"with a name that is also a month", "April Flowers", "april flowers"},
        KeyRow{"without the words of a card", "CARD PURCHASE VISA XXXX1234 Corner Market", "corner market"},
        KeyRow{"without a masked number", "**** **** XXXX Corner Market", "corner market"},
        KeyRow{"without the form of a company", "Northfield Power & Light GmbH & Co. KG", "northfield power light"},
        KeyRow{"with the parts of a go-between", "PAYPAL *LANTERN CINEMA", "paypal lantern cinema"},
        KeyRow{"with a letter and a digit", "O2 Shop", "o2 shop"},
        KeyRow{"of such words alone", "VISA Card", "visa card"}, KeyRow{"of numbers alone", "7-11", "7 11"},
        KeyRow{"in another script", "東京ストア 123", "東京ストア"},
        KeyRow{"that is empty without letters and digits", " -- / ", ""}));

struct LikenessRow {
    const char* behaviour;
    const char* a;
    const char* b;
    bool isLikely;
};

void PrintTo(const LikenessRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class CVPayeeLikenessTest : public testing::TestWithParam<LikenessRow> {};

TEST_P(CVPayeeLikenessTest, TellsWhetherTwoAreTheSame) {
    const CVPayeeKey a(QString::fromUtf8(GetParam().a));
    const CVPayeeKey b(QString::fromUtf8(GetParam().b));
    EXPECT_EQ(a.likeness(b) >= CVPayeeKey::kLikely, GetParam().isLikely) << a.likeness(b);
    EXPECT_EQ(a.likeness(b), b.likeness(a));
    EXPECT_GE(a.likeness(b), 0);
    EXPECT_LE(a.likeness(b), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CVPayeeLikenessTest,
    testing::Values(LikenessRow{"the same", "Corner Market", "CORNER MARKET 4711", true},
                    LikenessRow{"a town behind it", "Green Valley Foods", "GREEN VALLEY FOODS SPRINGFIELD IL", true},
                    LikenessRow{"a word that was cut off", "Hartwell Property Management", "HARTWELL PROPERTY MANAGEM",
                                true},
                    LikenessRow{"mistyped", "Riverside Service Station", "Riversde Servise Station", true},
                    LikenessRow{"written in one word", "Green Valley Foods", "GREENVALLEYFOODS", true},
                    LikenessRow{"two letters for an accent", "Café Blümchen", "CAFE BLUEMCHEN", true},
                    LikenessRow{"the words in another order", "Lindner Bakery", "Bakery Lindner", true},
                    LikenessRow{"only the trade", "Pizzeria Sole", "Pizzeria Roma", false},
                    LikenessRow{"only a long trade", "Restaurant Bella", "Restaurant Roma", false},
                    LikenessRow{"only the street", "Garden Street School", "Garden Street Flowers", false},
                    LikenessRow{"only the town", "Town Transit", "Town Theatre", false},
                    LikenessRow{"only the first words", "Green Valley Foods", "Green Valley Market", false},
                    LikenessRow{"one word of many", "Green", "Green Valley Foods", false},
                    LikenessRow{"nothing", "Water Works", "Salon Zoë", false},
                    LikenessRow{"an empty one", "", "Corner Market", false},
                    LikenessRow{"two empty ones", "", "", false}));

} // namespace
