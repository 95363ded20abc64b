#pragma once

#include <QStringView>

/// What an element means. Those of no use here are Unknown.
enum class CVOFXTag {
    Unknown,
    // Elements that hold others.
    Root,
    Statement,
    CardStatement,
    AccountFrom,
    List,
    Entry,
    PendingEntry,
    Payee,
    Currency,
    /// A part of an entry that has the same texts with another meaning, such as the account on the other side.
    OtherPart,
    Balance,
    Investment,
    // Elements that hold a text.
    BankNumber,
    AccountNumber,
    AccountType,
    AccountCurrency,
    BalanceAmount,
    Type,
    Day,
    Amount,
    ID,
    Name,
    FullName,
    Address,
    Memo,
    Number,
    CurrencyCode,
    Rate,
    Category,
    Correction
};

/// `name` in capitals.
[[nodiscard]] CVOFXTag CVOFXTagOf(QStringView name);
