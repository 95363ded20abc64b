#pragma once

#include <QtGlobal>

#include <array>
#include <span>

/// What the made-up family of the sample budget pays, where and how often. Texts are UTF-8. Amounts are in cents, from
/// the lower to the upper limit.
namespace CVHouseholdTables {

/// The family's accounts, each with a transaction set of its own.
enum class Account { Checking, Income, Savings };
enum class Tax { No, Yes };

struct Amount {
    int fromCents = 0;
    int toCents = 0;
};

struct Purchase {
    const char* payee = nullptr;
    const char* remark = nullptr;
    Amount amount;
};

/// A bill that is due on one day of every n-th month, counted from January.
struct Bill {
    const char* category = nullptr;
    int dayOfMonth = 0;
    int firstMonth = 0;
    int everyMonths = 0;
    Purchase purchase;
    Tax tax = Tax::No;
    Account account = Account::Checking;
};

/// A purchase that is made once in n days on average.
struct Habit {
    const char* category = nullptr;
    int everyDays = 0;
    std::array<Purchase, 4> purchases;
    Tax tax = Tax::No;
};

/// An expense that comes once a year.
struct Event {
    const char* category = nullptr;
    int month = 0;
    int day = 0;
    Purchase purchase;
    Tax tax = Tax::No;
    Account account = Account::Checking;
};

struct Estimate {
    const char* category = nullptr;
    qint64 frequency = 0;
    int cents = 0;
};

[[nodiscard]] std::span<const Bill> bills();
/// The family's habits, the most frequent first.
[[nodiscard]] std::span<const Habit> habits();
[[nodiscard]] std::span<const Event> events();
[[nodiscard]] std::span<const Estimate> estimates();

} // namespace CVHouseholdTables
