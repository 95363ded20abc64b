#pragma once

#include <QtGlobal>

#include <array>
#include <span>

/// What the made-up family of the sample budget pays, where and how often. Texts are UTF-8, amounts are in cents and
/// lie between both limits.
namespace CVHouseholdTables {

enum class Account { Checking, Savings };
enum class Tax { No, Yes };

struct Amount {
    int fromCents;
    int toCents;
};

struct Purchase {
    const char* payee;
    const char* remark;
    Amount amount;
};

/// Falls due on one day of every so many months, counted from January.
struct Bill {
    const char* category;
    int dayOfMonth;
    int firstMonth;
    int everyMonths;
    Purchase purchase;
    Tax tax = Tax::No;
    Account account = Account::Checking;
};

/// Comes up every so many days on average, as one of the purchases.
struct Habit {
    const char* category;
    int everyDays;
    std::array<Purchase, 4> purchases;
    Tax tax = Tax::No;
};

/// Once a year.
struct Event {
    const char* category;
    int month;
    int day;
    Purchase purchase;
    Tax tax = Tax::No;
};

struct Estimate {
    const char* category;
    qint64 frequency;
    int cents;
};

[[nodiscard]] std::span<const Bill> bills();
/// The first one is the most frequent.
[[nodiscard]] std::span<const Habit> habits();
[[nodiscard]] std::span<const Event> events();
[[nodiscard]] std::span<const Estimate> estimates();

} // namespace CVHouseholdTables
