#include "generator/CVHouseholdTables.h"

#include "model/CVExpenseFrequency.h"

namespace CVHouseholdTables {

namespace {

constexpr auto kBills = std::to_array<Bill>({
    {"Salary", 25, 1, 1, {"Ashgrove Instruments", "salary", {424'000, 424'000}}, Tax::No, Account::Income},
    {"Rent or Mortgage", 1, 1, 1, {"Hartwell Property Management", "rent", {118'000, 118'000}}},
    {"Electricity", 8, 1, 1, {"Northfield Power & Light", "", {5'800, 9'900}}},
    {"Gas and Heating", 12, 1, 1, {"Northfield Power & Light", "heating", {6'400, 14'800}}},
    {"Water", 15, 2, 3, {"Town Water Works", "quarter", {8'200, 9'600}}},
    {"Internet", 5, 1, 1, {"Brightline Cable", "", {3'995, 3'995}}},
    {"Phone", 18, 1, 1, {"Larkspur Mobile", "two phones", {3'480, 4'120}}},
    {"Child Care", 2, 1, 1, {"Kindergarten Löwenzahn", "", {26'500, 26'500}}, Tax::Yes},
    {"Car Insurance", 3, 1, 3, {"Meridian Mutual", "quarter", {14'630, 14'630}}},
    {"Home Insurance", 20, 3, 12, {"Meridian Mutual", "year", {21'850, 22'400}}},
    {"Taxes", 10, 5, 12, {"County Treasurer", "car tax", {16'400, 16'400}}, Tax::Yes},
    {"Education", 6, 1, 1, {"Piano School Marchetti", "lessons", {7'200, 7'200}}},
    {"Savings", 26, 1, 1, {"Savings account", "monthly", {30'000, 30'000}}},
    {"Savings", 26, 1, 1, {"From checking account", "monthly", {30'000, 30'000}}, Tax::No, Account::Savings},
    {"Other", 30, 3, 3, {"Quarry Hill Savings Bank", "interest", {1'180, 2'460}}, Tax::Yes, Account::Savings},
});

constexpr auto kHabits = std::to_array<Habit>({
    {"Groceries",
     3,
     {{{"Green Valley Foods", "weekly shopping", {6'240, 13'980}},
       {"Corner Market", "", {980, 6'450}},
       {"Bakery Lindner", "bread", {320, 1'480}},
       {"Farmers' market", "fruit & vegetables", {890, 3'600}}}}},
    {"Fuel",
     11,
     {{{"Riverside Service Station", "", {4'450, 7'100}},
       {"Riverside Service Station", "", {4'450, 7'100}},
       {"Eastgate Garage", "", {4'200, 6'900}},
       {"Motorway stop", "trip", {5'200, 7'900}}}}},
    {"Dining Out",
     9,
     {{{"Café Blümchen", "coffee and cake", {890, 2'460}},
       {"Pizzeria Sole", "dinner", {3'150, 6'280}},
       {"Old Mill Inn", "lunch", {2'450, 5'900}},
       {"Noodle House", "", {1'280, 3'940}}}}},
    {"Public Transport",
     21,
     {{{"Town Transit", "bus", {280, 560}},
       {"Town Transit", "ten tickets", {2'460, 2'460}},
       {"Central Station", "train", {1'190, 3'480}},
       {"Town Transit", "bus", {280, 560}}}}},
    {"Household Supplies",
     18,
     {{{"Stone Bridge Hardware", "light bulbs", {690, 1'890}},
       {"Corner Market", "cleaning things", {780, 2'350}},
       {"Weiß Household", "", {1'150, 5'900}},
       {"Stone Bridge Hardware", "screws & paint", {1'890, 6'450}}}}},
    {"Medical",
     32,
     {{{"Parkview Pharmacy", "prescription", {850, 3'600}},
       {"Dr. Ellen Whitfield", "check-up", {4'500, 9'200}},
       {"Dr. Sorensen & Partner", "dentist", {6'800, 18'500}},
       {"Parkview Pharmacy", "", {590, 2'480}}}},
     Tax::Yes},
    {"Clothing",
     38,
     {{{"Maple Street Outfitters", "", {2'490, 9'900}},
       {"Shoes by Pelham", "children's shoes", {3'990, 6'990}},
       {"Second Season", "coat", {2'900, 5'500}},
       {"Maple Street Outfitters", "school", {3'480, 8'900}}}}},
    {"Entertainment",
     24,
     {{{"Lantern Cinema", "tickets", {1'980, 4'600}},
       {"Town Theatre", "", {3'400, 7'200}},
       {"Swimming hall", "family ticket", {1'450, 1'450}},
       {"Lantern Cinema", "", {1'980, 4'600}}}}},
    {"Personal Care",
     35,
     {{{"Salon Zoë", "haircut", {3'800, 6'200}},
       {"Parkview Pharmacy", "soap & shampoo", {790, 2'150}},
       {"Salon Zoë", "haircut, children", {1'800, 3'600}},
       {"Salon Zoë", "", {3'800, 6'200}}}}},
    {"Pets",
     30,
     {{{"Paws and Claws", "cat food", {1'480, 3'900}},
       {"Paws and Claws", "", {690, 2'800}},
       {"Dr. Gärtner, vet", "vaccination", {5'400, 8'600}},
       {"Paws and Claws", "litter", {890, 1'780}}}}},
    {"Hobbies",
     45,
     {{{"Harbor Bookshop", "books", {1'290, 4'480}},
       {"Linden Garden Centre", "seeds", {890, 4'250}},
       {"Twelve Oaks Music", "strings", {1'480, 3'900}},
       {"Harbor Bookshop", "", {1'290, 3'980}}}}},
    {"Gifts",
     52,
     {{{"Harbor Bookshop", "birthday", {1'490, 3'990}},
       {"Toy Chest", "children's party", {1'500, 2'990}},
       {"Garden Street Flowers", "", {1'250, 3'800}},
       {"Toy Chest", "", {1'990, 4'990}}}}},
    {"Repairs",
     120,
     {{{"Eastgate Garage", "brakes", {18'900, 42'000}},
       {"Eastgate Garage", "service", {14'500, 28'800}},
       {"O'Hara & Sons", "washing machine", {8'900, 19'500}},
       {"Bicycle Workshop", "", {2'400, 7'900}}}}},
    {"Other",
     60,
     {{{"Post office", "postage", {480, 1'890}},
       {"Town hall", "passport", {3'700, 6'000}},
       {"Post office", "", {480, 1'890}},
       {"Community fund", "donation", {2'000, 5'000}}}}},
});

constexpr auto kEvents = std::to_array<Event>({
    {"Travel", 6, 14, {"Seabreeze Ferries", "summer holiday, tickets", {28'400, 31'200}}},
    {"Travel", 6, 20, {"Pension Möwe", "summer holiday, deposit", {30'000, 30'000}}},
    {"Travel", 7, 19, {"Pension Möwe", "summer holiday", {76'000, 84'000}}},
    {"Dining Out", 7, 11, {"Harbor Grill", "summer holiday", {5'800, 9'200}}},
    {"Fuel", 7, 6, {"Coast road station", "summer holiday", {6'100, 7'400}}},
    {"Entertainment", 7, 13, {"Island boat tour", "summer holiday", {4'800, 5'600}}},
    {"Travel", 2, 8, {"Hut Silberspitz", "winter weekend", {34'000, 39'500}}},
    {"Entertainment", 2, 9, {"Ski lifts", "winter weekend", {11'200, 13'600}}},
    {"Travel", 12, 22, {"Central Station", "to grandmother", {9'800, 13'400}}},
    {"Gifts", 12, 16, {"Toy Chest", "holidays", {8'900, 14'500}}},
    {"Gifts", 12, 18, {"Harbor Bookshop", "holidays", {5'200, 8'800}}},
    {"Clothing", 11, 4, {"Maple Street Outfitters", "winter coats", {14'900, 21'000}}},
    {"Education", 9, 12, {"Garden Street School", "school trip", {8'500, 9'800}}, Tax::Yes},
    {"Education", 8, 28, {"Harbor Bookshop", "school books", {6'400, 9'900}}},
    {"Taxes", 4, 22, {"Pelham Tax Advisers", "tax return", {18'000, 19'500}}, Tax::Yes},
    {"Medical", 10, 9, {"Optician Lakeshore", "glasses", {16'900, 24'500}}, Tax::Yes},
    {"Salary", 11, 25, {"Ashgrove Instruments", "bonus", {95'000, 130'000}}, Tax::No, Account::Income},
});

constexpr auto kEstimates = std::to_array<Estimate>({
    {"Car Insurance", CVExpenseFrequency::kQuarterly, 15'000},
    {"Child Care", CVExpenseFrequency::kMonthly, 26'500},
    {"Clothing", CVExpenseFrequency::kMonthly, 7'500},
    {"Dining Out", CVExpenseFrequency::kWeekly, 3'000},
    {"Education", CVExpenseFrequency::kMonthly, 9'000},
    {"Electricity", CVExpenseFrequency::kMonthly, 7'800},
    {"Entertainment", CVExpenseFrequency::kBiWeekly, 2'500},
    {"Fuel", CVExpenseFrequency::kBiWeekly, 6'500},
    {"Gas and Heating", CVExpenseFrequency::kMonthly, 10'500},
    {"Gifts", CVExpenseFrequency::kBiMonthly, 6'000},
    {"Groceries", CVExpenseFrequency::kWeekly, 12'500},
    {"Hobbies", CVExpenseFrequency::kMonthly, 3'500},
    {"Home Insurance", CVExpenseFrequency::kAnnually, 22'000},
    {"Household Supplies", CVExpenseFrequency::kMonthly, 4'000},
    {"Internet", CVExpenseFrequency::kMonthly, 3'995},
    {"Medical", CVExpenseFrequency::kMonthly, 5'500},
    {"Personal Care", CVExpenseFrequency::kMonthly, 3'500},
    {"Pets", CVExpenseFrequency::kMonthly, 3'500},
    {"Phone", CVExpenseFrequency::kMonthly, 3'900},
    {"Public Transport", CVExpenseFrequency::kSemiMonthly, 1'200},
    {"Rent or Mortgage", CVExpenseFrequency::kMonthly, 118'000},
    {"Repairs", CVExpenseFrequency::kSemiAnnually, 40'000},
    {"Salary", CVExpenseFrequency::kMonthly, 424'000},
    {"Savings", CVExpenseFrequency::kMonthly, 30'000},
    {"Taxes", CVExpenseFrequency::kAnnually, 35'000},
    {"Travel", CVExpenseFrequency::kAnnually, 180'000},
    {"Water", CVExpenseFrequency::kQuarterly, 9'000},
});

} // namespace

std::span<const Bill> bills() {
    return kBills;
}

std::span<const Habit> habits() {
    return kHabits;
}

std::span<const Event> events() {
    return kEvents;
}

std::span<const Estimate> estimates() {
    return kEstimates;
}

} // namespace CVHouseholdTables
