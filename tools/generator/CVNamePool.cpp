#include "generator/CVNamePool.h"

#include <array>
#include <span>

namespace {

constexpr std::array<const char*, 30> kOwners{
    "Harbor",   "Green Valley", "Old Town", "Müller",  "Corner",    "Linden",      "Riverside", "O'Hara",
    "Maple",    "Sunrise",      "Weiß",     "Station", "Castle",    "Blue Door",   "Gärtner",   "North End",
    "Parkview", "Whitfield",    "José",     "Mill",    "Lakeshore", "Twelve Oaks", "Björk",     "Garden Street",
    "Hollow",   "Marchetti",    "Eastgate", "Pelham",  "Zoë",       "Stone Bridge"};
constexpr std::array<const char*, 10> kTrades{"Market", "Bakery",          "Pharmacy",        "Hardware",
                                              "& Sons", "Bookshop",        "Service Station", "Café",
                                              "Garage", "Tailor & Cleaner"};

constexpr std::array<const char*, 50> kThings{"groceries",
                                              "bread",
                                              "fruit & vegetables",
                                              "milk and eggs",
                                              "lunch",
                                              "dinner",
                                              "coffee",
                                              "birthday cake",
                                              "shoes",
                                              "winter coat",
                                              "school books",
                                              "pens and paper",
                                              "light bulbs",
                                              "paint",
                                              "screws",
                                              "garden soil",
                                              "flowers",
                                              "dog food",
                                              "cat litter",
                                              "haircut",
                                              "dry cleaning",
                                              "bus ticket",
                                              "train ticket",
                                              "parking",
                                              "fuel",
                                              "oil change",
                                              "tyres",
                                              "car wash",
                                              "prescription",
                                              "check-up",
                                              "new glasses",
                                              "dentist",
                                              "cinema",
                                              "concert",
                                              "museum",
                                              "swimming pool",
                                              "board game",
                                              "magazine",
                                              "postage",
                                              "printer ink",
                                              "phone card",
                                              "batteries",
                                              "curtains",
                                              "kitchen towels",
                                              "soap & shampoo",
                                              "toothpaste",
                                              "fish",
                                              "olive oil",
                                              "32\" monitor",
                                              "repair of the bicycle"};
constexpr std::array<const char*, 30> kOccasions{"",
                                                 ", weekly",
                                                 ", for two",
                                                 ", for the children",
                                                 ", cash",
                                                 ", by card",
                                                 ", on sale",
                                                 ", second half",
                                                 ", paid back later",
                                                 ", with Anna",
                                                 ", with Jürgen",
                                                 ", for Mother",
                                                 ", holiday",
                                                 ", weekend",
                                                 ", for the party",
                                                 ", at work",
                                                 ", returned once",
                                                 ", club",
                                                 ", refund due",
                                                 ", for the house",
                                                 ", for the car",
                                                 ", for the garden",
                                                 ", school trip",
                                                 ", gift",
                                                 ", spare",
                                                 ", monthly pack",
                                                 ", emergency",
                                                 ", with voucher",
                                                 ", shared < half",
                                                 ", see receipt"};

/// All pairs of a first and a second half, in an order in which neighbours differ in both halves.
std::vector<QString> pairs(std::span<const char* const> first, std::span<const char* const> second,
                           const char* between) {
    std::vector<QString> texts;
    texts.reserve(first.size() * second.size());
    for (std::size_t i = 0; i < first.size() * second.size(); ++i) {
        const std::size_t turn = i / first.size();
        const std::size_t place = i % first.size();
        texts.push_back(QString::fromUtf8(first[place]) + QLatin1String(between) +
                        QString::fromUtf8(second[(place + turn) % second.size()]));
    }
    return texts;
}

} // namespace

std::vector<QString> CVNamePool::payees() {
    return pairs(kOwners, kTrades, " ");
}

std::vector<QString> CVNamePool::remarks() {
    return pairs(kThings, kOccasions, "");
}
